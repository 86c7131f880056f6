// SPDX-License-Identifier: Apache-2.0
#include "keyboard/emoji/vp_emoji_collection_view.h"

#include <cmath>
#include <cstddef>
#include <utility>

namespace vorpel {

namespace {

constexpr const char* CELL = "EmojiCell";

// Points; a cell is 40 wide.
constexpr double EMOJI_SIZE = 30;

// A little more than half of what lies between two.
constexpr double TAP_MARGIN = 4;

constexpr double SHRINKING_SECONDS = 0.2;
constexpr double LEAST_SCALE = 0.8;

// Each size is a picture of its own for the painter: few of them look no less smooth.
constexpr double SCALE_STEP = 0.05;

}  // namespace

VPEmojiCollectionViewCell::VPEmojiCollectionViewCell() {
    label.setTextAlignment(ui::TextAlignment::Center);
    addSubview(label);
    scaleLabel(1);
}

void VPEmojiCollectionViewCell::prepareForReuse() {
    shrinking_.cancel();
    scaleLabel(1);
}

void VPEmojiCollectionViewCell::scaleLabel(double scale) {
    label.setFont({EMOJI_SIZE * scale, ui::FontWeight::Regular, ui::FontFace::Emoji});
}

void VPEmojiCollectionViewCell::shrinkForAnInstant() {
    shrinking_ = ui::animate(window(), SHRINKING_SECONDS, ui::AnimationCurve::Linear, [this](double way) {
        const double depth = 1 - std::abs(2 * way - 1);
        const double scale = 1 - (1 - LEAST_SCALE) * depth;
        scaleLabel(std::round(scale / SCALE_STEP) * SCALE_STEP);
    });
}

void VPEmojiCollectionViewCell::layoutSubviews() {
    label.setFrame(bounds());
}

VPEmojiCollectionView::VPEmojiCollectionView() {
    collectionView_.registerCell(CELL, [] { return std::make_unique<VPEmojiCollectionViewCell>(); });
    collectionView_.setShowsIndicators(false);
    collectionView_.setAlwaysBounceVertical(true);
    collectionView_.setTapMargin(TAP_MARGIN);
    collectionView_.setLayout(&grid_);
    collectionView_.setSelectionDelegate(this);
    collectionView_.setDataSource(this);
    addSubview(collectionView_);
}

VPEmojiCollectionView::~VPEmojiCollectionView() = default;

void VPEmojiCollectionView::setEmojis(std::vector<std::string> emojis) {
    if (emojis == emojis_) return;
    emojis_ = std::move(emojis);
    collectionView_.setContentOffset({});
    collectionView_.reloadData();
}

void VPEmojiCollectionView::layoutSubviews() {
    collectionView_.setFrame(bounds());
}

int VPEmojiCollectionView::numberOfItemsInSection(ui::CollectionView& /*view*/, int /*section*/) {
    return static_cast<int>(emojis_.size());
}

ui::CollectionViewCell* VPEmojiCollectionView::cellForItemAtIndexPath(ui::CollectionView& view,
                                                                      const ui::IndexPath& path) {
    auto& cell = static_cast<VPEmojiCollectionViewCell&>(view.dequeueReusableCell(CELL, path));
    cell.label.setText(emojis_[static_cast<std::size_t>(path.item)]);
    return &cell;
}

void VPEmojiCollectionView::didSelectItemAtIndexPath(ui::CollectionView& view, const ui::IndexPath& path) {
    auto* const cell = static_cast<VPEmojiCollectionViewCell*>(view.cellForItem(path));
    if (!emojiDelegate || !cell) return;
    // Held here: the delegate may change the array.
    const std::string emoji = emojis_[static_cast<std::size_t>(path.item)];
    emojiDelegate->emojiTapped(emoji, *cell);
}

}  // namespace vorpel
