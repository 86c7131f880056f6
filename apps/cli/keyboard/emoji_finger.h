// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/emoji/vp_emoticon_keyboard_view.h"
#include "keyboard/keyboard_stage.h"

#include <optional>
#include <string>
#include <vector>

namespace vorpel::cli {

/// The names of the emoji pages, in their order.
[[nodiscard]] const std::vector<std::string>& emojiPageNames();

/// A finger on a stage's emoji keyboard: it taps and drags as a person would, and reaches nothing that a
/// person could not.
class EmojiFinger {
public:
    explicit EmojiFinger(KeyboardStage& stage) : stage_(stage) {}

    /// The first page that has the emoji, the one on show before the others; nothing when none has.
    [[nodiscard]] std::optional<int> pageWith(const std::string& emoji) const;

    [[nodiscard]] bool isOpen() const { return stage_.controller().emojiOnShow(); }
    [[nodiscard]] int page() const { return view().currentIndex(); }

    /// Taps the page's icon.
    void showPage(int page);

    /// Scrolls to the emoji on the page on show, and taps it.
    void tapEmoji(const std::string& emoji);

    /// Taps the button that leads back to the letters.
    void close();

private:
    [[nodiscard]] VPEmoticonKeyboardView& view() const {
        return stage_.controller().getSecondEmoction_Keyboardview();
    }
    [[nodiscard]] std::optional<int> indexOn(int page, const std::string& emoji) const;
    void tapIn(ui::ScrollView& scroller, const ui::Rect& frame);
    void bringIntoView(ui::ScrollView& scroller, const ui::Rect& frame);

    KeyboardStage& stage_;
};

}  // namespace vorpel::cli
