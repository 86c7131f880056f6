// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/text_input_traits.h"

#include <optional>
#include <string>

namespace vorpel::platform {

/// The host's text field as a keyboard sees it. Text is UTF-8; a character is an extended grapheme cluster.
/// A question that the field does not answer returns nothing. Main thread only.
class TextDocumentProxy {
public:
    virtual ~TextDocumentProxy() = default;

    /// At the cursor; a selection is replaced.
    virtual void insertText(const std::string& text) = 0;

    /// The character before the cursor, or the selection.
    virtual void deleteBackward() = 0;

    /// By characters; negative is towards the start.
    virtual void adjustTextPositionByCharacterOffset(int offset) = 0;

    /// Some text on that side of the cursor; nothing when the field is empty there or does not say.
    [[nodiscard]] virtual std::optional<std::string> documentContextBeforeInput() const = 0;
    [[nodiscard]] virtual std::optional<std::string> documentContextAfterInput() const = 0;
    [[nodiscard]] virtual bool hasText() const = 0;

    /// Between the texts before and behind the input; nothing when nothing is selected.
    [[nodiscard]] virtual std::optional<std::string> selectedText() const = 0;

    [[nodiscard]] virtual std::optional<AutocapitalizationType> autocapitalizationType() const = 0;
    [[nodiscard]] virtual std::optional<KeyboardType> keyboardType() const = 0;
    [[nodiscard]] virtual std::optional<ReturnKeyType> returnKeyType() const = 0;
    [[nodiscard]] virtual std::optional<KeyboardAppearance> keyboardAppearance() const = 0;
    [[nodiscard]] virtual std::optional<bool> isSecureTextEntry() const = 0;
    [[nodiscard]] virtual std::optional<bool> isSensitive() const = 0;
};

}  // namespace vorpel::platform
