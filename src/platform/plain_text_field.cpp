// SPDX-License-Identifier: Apache-2.0
#include "platform/plain_text_field.h"

#include "platform/characters.h"

#include <string_view>
#include <utility>

namespace vorpel::platform {

void PlainTextField::setText(std::string text) {
    text_ = std::move(text);
    cursor_ = text_.size();
}

std::size_t PlainTextField::cursor() const {
    return characterCount(std::string_view(text_).substr(0, cursor_));
}

void PlainTextField::setCursor(std::size_t position) {
    cursor_ = 0;
    for (std::size_t step = 0; step < position && cursor_ < text_.size(); ++step) moveTo(cursor_ + 1);
}

void PlainTextField::insertText(const std::string& text) {
    text_.insert(cursor_, text);
    moveTo(cursor_ + text.size());
}

void PlainTextField::deleteBackward() {
    const std::size_t size = lastCharacter(std::string_view(text_).substr(0, cursor_)).size();
    text_.erase(cursor_ - size, size);
    moveTo(cursor_ - size);
}

void PlainTextField::adjustTextPositionByCharacterOffset(int offset) {
    for (; offset > 0 && cursor_ < text_.size(); --offset) moveTo(cursor_ + 1);
    for (; offset < 0 && cursor_ > 0; ++offset) {
        cursor_ -= lastCharacter(std::string_view(text_).substr(0, cursor_)).size();
    }
}

std::optional<std::string> PlainTextField::documentContextBeforeInput() const {
    if (cursor_ == 0) return std::nullopt;
    return text_.substr(0, cursor_);
}

std::optional<std::string> PlainTextField::documentContextAfterInput() const {
    if (cursor_ == text_.size()) return std::nullopt;
    return text_.substr(cursor_);
}

void PlainTextField::moveTo(std::size_t offset) {
    cursor_ = characterBoundaryFrom(text_, offset);
}

}  // namespace vorpel::platform
