// SPDX-License-Identifier: Apache-2.0
#include "keyboard/emoji/vp_emoji_category_scroll_view.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vorpel {

namespace {

constexpr double ICON_SIZE = 21;
constexpr double MARKING_SECONDS = 0.25;

}  // namespace

VPEmojiCategoryScrollView::VPEmojiCategoryScrollView() {
    scrollView_.setShowsIndicators(false);
    addSubview(scrollView_);
    scrollView_.contentView().addSubview(indicator_);
    indicator_.setUserInteractionEnabled(false);
}

void VPEmojiCategoryScrollView::setItemArray(std::vector<std::string> icons) {
    marking_.cancel();
    selectedItemView_ = nullptr;
    itemViewArray_.clear();
    itemArray_ = std::move(icons);
    for (std::size_t index = 0; index < itemArray_.size(); ++index) {
        auto item = std::make_unique<ui::Button>();
        item->setTitle(itemArray_[index]);
        item->setFont({ICON_SIZE, ui::FontWeight::Regular, ui::FontFace::Emoji});
        item->addTarget(this, "scrollMenuViewSelectedIndex:", ui::ControlEvent::TouchUpInside,
                        [this, index](ui::Control&) {
                            if (delegate) delegate->scrollMenuViewSelectedIndex(static_cast<int>(index));
                        });
        scrollView_.contentView().addSubview(*item);
        itemViewArray_.push_back(std::move(item));
    }
    mark(0);
    setNeedsLayout();
}

void VPEmojiCategoryScrollView::setHighlightView(ui::View& view) {
    highlight_ = &view;
    view.setUserInteractionEnabled(false);
    scrollView_.contentView().insertSubview(view, 0);
    mark(marked_);
}

void VPEmojiCategoryScrollView::setItemColor(int currentPage) {
    if (currentPage < 0 || currentPage >= static_cast<int>(itemViewArray_.size())) return;
    for (std::size_t index = 0; index < itemViewArray_.size(); ++index) {
        itemViewArray_[index]->setSelected(static_cast<int>(index) == currentPage);
    }
    selectedItemView_ = itemViewArray_[static_cast<std::size_t>(currentPage)].get();
    const double start = marked_;
    const double end = currentPage;
    marking_ = ui::animate(window(), MARKING_SECONDS, ui::AnimationCurve::EaseInOut,
                           [this, start, end](double way) { mark(start + (end - start) * way); });
    showItem(currentPage, ui::Animated::Yes);
}

/// Icons share the width of the bar, down to their least; then they scroll.
double VPEmojiCategoryScrollView::itemWidth() const {
    const double count = std::max<double>(1, static_cast<double>(itemArray_.size()));
    return std::max(kScrollMenuViewWidth, bounds().width / count);
}

ui::Rect VPEmojiCategoryScrollView::frameOfItem(double index) const {
    return {index * itemWidth(), 0, itemWidth(), bounds().height};
}

void VPEmojiCategoryScrollView::mark(double index) {
    marked_ = index;
    const ui::Rect frame = frameOfItem(index);
    // Square, however far apart the icons stand.
    const double side = std::min(frame.width, frame.height) - 2 * kScrollMenuViewMargin;
    const ui::Point center = frame.center();
    if (highlight_) highlight_->setFrame({center.x - side / 2, center.y - side / 2, side, side});
    indicator_.setFrame(
        {center.x - side / 2, frame.height - kScrollMenuIndicatorHeight, side, kScrollMenuIndicatorHeight});
}

/// Brings the icon into the middle, as far as there is something to scroll.
void VPEmojiCategoryScrollView::showItem(int index, ui::Animated animated) {
    const double farthest = std::max(0.0, scrollView_.contentSize().width - bounds().width);
    const double x = frameOfItem(index).center().x - bounds().width / 2;
    scrollView_.setContentOffset({std::clamp(x, 0.0, farthest), 0}, animated);
}

void VPEmojiCategoryScrollView::layoutSubviews() {
    marking_.finish();
    scrollView_.setFrame(bounds());
    const double count = static_cast<double>(itemViewArray_.size());
    scrollView_.setContentSize({count * itemWidth(), bounds().height});
    for (std::size_t index = 0; index < itemViewArray_.size(); ++index) {
        itemViewArray_[index]->setFrame(frameOfItem(static_cast<double>(index)));
    }
    mark(marked_);
    showItem(static_cast<int>(marked_), ui::Animated::No);
}

}  // namespace vorpel
