// SPDX-License-Identifier: Apache-2.0
#include "platform/plain_text_field.h"

#include "platform/characters.h"

#include <string_view>
#include <utility>

namespace vorpel::platform {

void PlainTextField::setText(std::string text) {
    text_ = std::move(text);
    moveTo(text_.size());
}

std::size_t PlainTextField::charactersBefore(std::size_t offset) const {
    return characterCount(std::string_view(text_).substr(0, offset));
}

std::size_t PlainTextField::cursor() const {
    return charactersBefore(cursor_);
}

std::size_t PlainTextField::anchor() const {
    return charactersBefore(anchor_);
}

void PlainTextField::setCursor(std::size_t position) {
    moveTo(0);
    for (std::size_t step = 0; step < position && cursor_ < text_.size(); ++step) moveTo(cursor_ + 1);
}

void PlainTextField::select(std::size_t anchor, std::size_t cursor) {
    setCursor(anchor);
    const std::size_t start = cursor_;
    setCursor(cursor);
    anchor_ = start;
}

void PlainTextField::insertText(const std::string& text) {
    deleteSelection();
    text_.insert(cursor_, text);
    moveTo(cursor_ + text.size());
}

void PlainTextField::deleteBackward() {
    if (deleteSelection()) return;
    const std::size_t size = lastCharacter(std::string_view(text_).substr(0, cursor_)).size();
    text_.erase(cursor_ - size, size);
    moveTo(cursor_ - size);
}

bool PlainTextField::deleteSelection() {
    if (anchor_ == cursor_) return false;
    const std::size_t begin = selectionBegin();
    text_.erase(begin, selectionEnd() - begin);
    moveTo(begin);
    return true;
}

void PlainTextField::adjustTextPositionByCharacterOffset(int offset) {
    for (; offset > 0 && cursor_ < text_.size(); --offset) moveTo(cursor_ + 1);
    for (; offset < 0 && cursor_ > 0; ++offset) {
        cursor_ -= lastCharacter(std::string_view(text_).substr(0, cursor_)).size();
    }
    anchor_ = cursor_;
}

std::optional<std::string> PlainTextField::documentContextBeforeInput() const {
    if (selectionBegin() == 0) return std::nullopt;
    return text_.substr(0, selectionBegin());
}

std::optional<std::string> PlainTextField::documentContextAfterInput() const {
    if (selectionEnd() == text_.size()) return std::nullopt;
    return text_.substr(selectionEnd());
}

std::optional<std::string> PlainTextField::selectedText() const {
    if (anchor_ == cursor_) return std::nullopt;
    return text_.substr(selectionBegin(), selectionEnd() - selectionBegin());
}

void PlainTextField::moveTo(std::size_t offset) {
    cursor_ = characterBoundaryFrom(text_, offset);
    anchor_ = cursor_;
}

}  // namespace vorpel::platform
