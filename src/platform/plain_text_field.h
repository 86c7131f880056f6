// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/text_document_proxy.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace vorpel::platform {

/// A text in memory with a cursor: the field of programs that have no other. A selection reaches from an
/// anchor to the cursor; what changes the text or moves the cursor ends it. The cursor stands between two
/// characters, never within one: where a change joins what is before and behind it, it goes behind. Main
/// thread only.
class PlainTextField final : public TextDocumentProxy {
public:
    [[nodiscard]] const std::string& text() const { return text_; }

    /// The cursor goes to the end.
    void setText(std::string text);

    /// In characters from the start; what lies beyond the text is its end.
    [[nodiscard]] std::size_t cursor() const;
    void setCursor(std::size_t position);

    /// The other end of the selection, in characters; where nothing is selected, the cursor.
    [[nodiscard]] std::size_t anchor() const;

    /// In characters from the start. The cursor may be before the anchor.
    void select(std::size_t anchor, std::size_t cursor);

    /// What the field says of itself; at first nothing.
    [[nodiscard]] const TextInputTraits& traits() const { return traits_; }
    void setTraits(const TextInputTraits& traits) { traits_ = traits; }

    void insertText(const std::string& text) override;
    void deleteBackward() override;
    void adjustTextPositionByCharacterOffset(int offset) override;

    [[nodiscard]] std::optional<std::string> documentContextBeforeInput() const override;
    [[nodiscard]] std::optional<std::string> documentContextAfterInput() const override;
    [[nodiscard]] bool hasText() const override { return !text_.empty(); }
    [[nodiscard]] std::optional<std::string> selectedText() const override;

    [[nodiscard]] std::optional<AutocapitalizationType> autocapitalizationType() const override {
        return traits_.autocapitalizationType;
    }
    [[nodiscard]] std::optional<KeyboardType> keyboardType() const override { return traits_.keyboardType; }
    [[nodiscard]] std::optional<ReturnKeyType> returnKeyType() const override {
        return traits_.returnKeyType;
    }
    [[nodiscard]] std::optional<KeyboardAppearance> keyboardAppearance() const override {
        return traits_.keyboardAppearance;
    }
    [[nodiscard]] std::optional<bool> isSecureTextEntry() const override { return traits_.isSecureTextEntry; }
    [[nodiscard]] std::optional<bool> isSensitive() const override { return traits_.isSensitive; }

private:
    [[nodiscard]] std::size_t selectionBegin() const { return std::min(anchor_, cursor_); }
    [[nodiscard]] std::size_t selectionEnd() const { return std::max(anchor_, cursor_); }
    [[nodiscard]] std::size_t charactersBefore(std::size_t offset) const;
    void moveTo(std::size_t offset);
    bool deleteSelection();

    std::string text_;
    std::size_t cursor_ = 0;  // in bytes, as is the next
    std::size_t anchor_ = 0;
    TextInputTraits traits_;
};

}  // namespace vorpel::platform
