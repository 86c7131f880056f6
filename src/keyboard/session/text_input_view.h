// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/label.h"
#include "ui/view.h"

#include <string>

namespace vorpel {

/// A line of text inside the keyboard that takes what is typed, as a search among stickers does. Text is
/// added and taken away at its end. Main thread only.
class TextInputView : public ui::View {
public:
    explicit TextInputView(const ui::Rect& frame);

    void insertText(const std::string& text);
    void deleteBackward();  ///< one character, if there is any
    void clear();

    /// What was typed, whatever is shown.
    [[nodiscard]] const std::string& text() const { return text_; }

    /// Shows "•" in place of each character.
    [[nodiscard]] bool isPasswordProtacted() const { return isPasswordProtacted_; }
    void setIsPasswordProtacted(bool isProtected);

    ui::Label label;

    void layoutSubviews() override;

private:
    void show();

    std::string text_;
    bool isPasswordProtacted_ = false;
};

}  // namespace vorpel
