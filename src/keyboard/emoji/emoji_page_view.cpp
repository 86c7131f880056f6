// SPDX-License-Identifier: Apache-2.0
#include "keyboard/emoji/emoji_page_view.h"

#include <algorithm>
#include <utility>

namespace vorpel {

namespace {

// Points.
constexpr double CELL_WIDTH = 40;
constexpr double SPACING = 5;
constexpr double SIDE_INSET = 5;
constexpr double NOTE_SIZE = 16;

}  // namespace

int emojiPerLine(double width) {
    return std::max(1, static_cast<int>((width + SPACING) / (CELL_WIDTH + SPACING)));
}

EmojiPageView::EmojiPageView(const platform::Screen& screen) : screen_(screen) {
    ui::CollectionViewGridLayout& grid = collectionView_.grid();
    grid.setLineSpacing(SPACING);
    grid.setInteritemSpacing(SPACING);
    grid.setSectionInset({0, SIDE_INSET, 0, SIDE_INSET});
    note_.setFont({NOTE_SIZE, ui::FontWeight::Regular});
    note_.setTextAlignment(ui::TextAlignment::Center);
    note_.setAdjustsFontSizeToFitWidth(true);
    addSubview(collectionView_);
    addSubview(note_);
}

void EmojiPageView::show(std::vector<std::string> emoji, const std::string& note) {
    const bool isEmpty = emoji.empty();
    collectionView_.setHidden(isEmpty);
    note_.setHidden(!isEmpty);
    note_.setText(isEmpty ? note : "");
    collectionView_.setEmojis(std::move(emoji));
}

void EmojiPageView::layoutSubviews() {
    // A keyboard that is narrower than its screen has room for fewer.
    const double width = std::min(screen_.boundsWidth(), bounds().width);
    collectionView_.grid().setNumberOfItemsPerLine(emojiPerLine(width));
    collectionView_.setFrame(bounds());
    note_.setFrame(bounds());
}

}  // namespace vorpel
