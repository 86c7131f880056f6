// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/emoji/vp_emoji_collection_view.h"
#include "platform/screen.h"
#include "ui/label.h"
#include "ui/view.h"

#include <string>
#include <vector>

namespace vorpel {

/// How many emoji stand side by side in that width, in points; at least 1.
[[nodiscard]] int emojiPerLine(double width);

/// One page of the emoji keyboard: a grid, or a line that says why there is none. The screen must outlive it.
class EmojiPageView : public ui::View {
public:
    explicit EmojiPageView(const platform::Screen& screen);

    /// Without emoji the note is shown.
    void show(std::vector<std::string> emoji, const std::string& note);
    void setTextColor(const ui::Color& color) { note_.setTextColor(color); }

    [[nodiscard]] VPEmojiCollectionView& collectionView() { return collectionView_; }
    [[nodiscard]] ui::Label& note() { return note_; }

    void layoutSubviews() override;

private:
    const platform::Screen& screen_;
    VPEmojiCollectionView collectionView_;
    ui::Label note_;
};

}  // namespace vorpel
