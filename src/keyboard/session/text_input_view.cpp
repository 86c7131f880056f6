// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session/text_input_view.h"

#include "platform/characters.h"

#include <cstddef>

namespace vorpel {

namespace {

constexpr const char* BULLET = "•";
constexpr double SIDE_MARGIN = 12;
constexpr ui::Color GROUND = ui::Color::white();

}  // namespace

TextInputView::TextInputView(const ui::Rect& frame) : View(frame) {
    setBackgroundColor(GROUND);
    label.setAdjustsFontSizeToFitWidth(true);
    addSubview(label);
}

void TextInputView::insertText(const std::string& text) {
    text_ += text;
    show();
}

void TextInputView::deleteBackward() {
    text_ = platform::withoutLastCharacter(text_);
    show();
}

void TextInputView::clear() {
    text_.clear();
    show();
}

void TextInputView::setIsPasswordProtacted(bool isProtected) {
    isPasswordProtacted_ = isProtected;
    show();
}

void TextInputView::show() {
    std::string shown = text_;
    if (isPasswordProtacted_) {
        shown.clear();
        for (std::size_t left = platform::characterCount(text_); left > 0; --left) shown += BULLET;
    }
    label.setText(shown);
}

void TextInputView::layoutSubviews() {
    label.setFrame(bounds().insetBy(SIDE_MARGIN, 0));
}

}  // namespace vorpel
