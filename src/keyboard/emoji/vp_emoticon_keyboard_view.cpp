// SPDX-License-Identifier: Apache-2.0
#include "keyboard/emoji/vp_emoticon_keyboard_view.h"

#include "keyboard/emoji/emoticon_colors.h"

#include <algorithm>
#include <utility>

namespace vorpel {

namespace {

// Points: the strip under the pages, and the buttons at its ends.
constexpr double STRIP_HEIGHT = 40;
constexpr double BUTTON_WIDTH = 40;

constexpr double TITLE_SIZE = 12;
constexpr double IMAGE_MARGIN = 9;
constexpr double CORNER_RADIUS = 6;
constexpr double GROUND_MARGIN = 2;

constexpr const char* NO_RECENT_EMOJI = "You have no recent emojis";
constexpr const char* NO_EMOJI = "No font for emoji is installed";

}  // namespace

VPEmoticonKeyboardView::VPEmoticonKeyboardView(const ui::Rect& frame, const platform::Platform& platform)
    : View(frame), platform_(platform), manager_(platform) {
    setClipsToBounds(true);
    setUpButtons(platform.bundle);
    categoryView_.setItemArray(manager_.emoji_category_array());
    categoryView_.setHighlightView(category_highlight_view());
    categoryView_.delegate = this;
    addSubview(categoryView_);
    emojiButtonView_.setDefersItemViewLoading(true);
    emojiButtonView_.setPagingEnabled(true);
    emojiButtonView_.setDelegate(this);
    emojiButtonView_.setDataSource(this);
    addSubview(emojiButtonView_);
    setDark_mode(false);
    // Who has used none yet wants to see some.
    manager_.setTheCurrentArray(RECENT_EMOJI, currentArray_);
    setCurrentIndex(currentArray_.empty() ? FACES_AND_PEOPLE : RECENT_EMOJI);
}

VPEmoticonKeyboardView::~VPEmoticonKeyboardView() = default;

void VPEmoticonKeyboardView::setUpButtons(const platform::Bundle& bundle) {
    modeChangeButton_.setTitle("ABC");
    modeChangeButton_.setFont({TITLE_SIZE, ui::FontWeight::Regular});
    modeChangeButton_.addTarget(this, "modeChange", ui::ControlEvent::TouchUpInside,
                                [this](ui::Control&) { modeChange(); });
    backSpaceButton_.setImage(bundle.pathForResource("backspace", "svg").value_or(""));
    backSpaceButton_.setImageInsets({IMAGE_MARGIN, IMAGE_MARGIN, IMAGE_MARGIN, IMAGE_MARGIN});
    backSpaceButton_.addTarget(this, "backspaceDown", ui::ControlEvent::TouchDown,
                               [this](ui::Control&) { backspaceDown(); });
    backSpaceButton_.addTarget(this, "backspaceUp",
                               ui::ControlEvent::TouchUpInside | ui::ControlEvent::TouchUpOutside |
                                   ui::ControlEvent::TouchDragExit | ui::ControlEvent::TouchCancel,
                               [this](ui::Control&) { backspaceUp(); });
    for (ui::Button* const button : {&modeChangeButton_, &backSpaceButton_}) {
        button->setCornerRadius(CORNER_RADIUS);
        button->setGroundInsets({GROUND_MARGIN, GROUND_MARGIN, GROUND_MARGIN, GROUND_MARGIN});
        addSubview(*button);
    }
}

/// A button for its rounded ground; nobody can press it.
ui::Button& VPEmoticonKeyboardView::category_highlight_view() {
    if (!categoryHighlightView_) {
        categoryHighlightView_ = std::make_unique<ui::Button>();
        categoryHighlightView_->setCornerRadius(CORNER_RADIUS);
    }
    return *categoryHighlightView_;
}

void VPEmoticonKeyboardView::open() {
    // Another keyboard, or its host, may have changed it.
    recentPageIsOld_ = false;
    if (EmojiPageView* const recent = loadedPage(RECENT_EMOJI)) showEmoji(*recent, RECENT_EMOJI);
    if (currentIndex_ == RECENT_EMOJI) fillCurrentArray();
}

void VPEmoticonKeyboardView::setCurrentIndex(int page) {
    if (page < 0 || page >= EMOJI_PAGE_COUNT) return;
    emojiButtonView_.setCurrentPage(page);
    becomeCurrent(page);
    refreshRecentPage();
}

/// The pages tell of it too when they are sent there.
void VPEmoticonKeyboardView::becomeCurrent(int page) {
    if (page == currentIndex_) return;
    currentIndex_ = page;
    fillCurrentArray();
    categoryView_.setItemColor(page);
}

void VPEmoticonKeyboardView::fillCurrentArray() {
    currentArray_.clear();
    manager_.setTheCurrentArray(currentIndex_, currentArray_);
}

void VPEmoticonKeyboardView::setDark_mode(bool dark) {
    darkMode_ = dark;
    const EmoticonColors colors = EmoticonColors::of(dark, platform_.userDefaults);
    setBackgroundColor(colors.background);
    textColor_ = colors.text;
    for (ui::Button* const button : {&modeChangeButton_, &backSpaceButton_}) {
        button->setTitleColor(colors.buttonTitle);
        button->setImageTint(colors.buttonTitle);
        button->setBackgroundColor(colors.buttonBackground, ui::ControlState::Normal);
        button->setBackgroundColor(colors.heldButton, ui::ControlState::Highlighted);
    }
    category_highlight_view().setBackgroundColor(colors.highlight, ui::ControlState::Normal);
    categoryView_.setIndicatorColor(colors.indicator);
    for (int index = 0; index < EMOJI_PAGE_COUNT; ++index) {
        if (EmojiPageView* const page = loadedPage(index)) page->setTextColor(textColor_);
    }
}

void VPEmoticonKeyboardView::layoutSubviews() {
    const ui::Size size = bounds().size();
    const double top = std::max(0.0, size.height - STRIP_HEIGHT);
    modeChangeButton_.setFrame({0, top, BUTTON_WIDTH, STRIP_HEIGHT});
    backSpaceButton_.setFrame({size.width - BUTTON_WIDTH, top, BUTTON_WIDTH, STRIP_HEIGHT});
    categoryView_.setFrame({BUTTON_WIDTH, top, size.width - 2 * BUTTON_WIDTH, STRIP_HEIGHT});
    emojiButtonView_.setFrame({0, 0, size.width, top});
}

int VPEmoticonKeyboardView::numberOfItemsInPagedScrollView(ui::PagedScrollView& /*pages*/) {
    return EMOJI_PAGE_COUNT;
}

std::optional<ui::Size> VPEmoticonKeyboardView::pagedScrollViewItemSize(ui::PagedScrollView& pages) {
    return pages.bounds().size();
}

std::unique_ptr<ui::View> VPEmoticonKeyboardView::viewForItemAtIndex(ui::PagedScrollView& pages, int index,
                                                                     std::unique_ptr<ui::View> reusing) {
    if (!dynamic_cast<EmojiPageView*>(reusing.get())) {
        auto page = std::make_unique<EmojiPageView>(platform_.screen);
        page->collectionView().emojiDelegate = this;
        reusing = std::move(page);
    }
    auto& page = static_cast<EmojiPageView&>(*reusing);
    page.setFrame(pages.bounds());
    page.setTextColor(textColor_);
    showEmoji(page, index);
    return reusing;
}

void VPEmoticonKeyboardView::showEmoji(EmojiPageView& page, int index) {
    std::vector<std::string> emoji;
    manager_.setTheCurrentArray(index, emoji);
    page.show(std::move(emoji), index == RECENT_EMOJI ? NO_RECENT_EMOJI : NO_EMOJI);
}

void VPEmoticonKeyboardView::pagedScrollViewCurrentItemIndexDidChange(ui::PagedScrollView& pages) {
    becomeCurrent(pages.currentPage());
}

void VPEmoticonKeyboardView::pagedScrollViewDidEndDragging(ui::PagedScrollView& /*pages*/,
                                                           bool willDecelerate) {
    if (!willDecelerate) refreshRecentPage();
}

void VPEmoticonKeyboardView::pagedScrollViewDidEndDecelerating(ui::PagedScrollView& /*pages*/) {
    refreshRecentPage();
}

void VPEmoticonKeyboardView::pagedScrollViewDidEndScrollingAnimation(ui::PagedScrollView& /*pages*/) {
    refreshRecentPage();
}

void VPEmoticonKeyboardView::scrollMenuViewSelectedIndex(int index) {
    // While the pages move, the one that seems to be current may be the one that they leave.
    const bool isMoving = emojiButtonView_.isDragging() || emojiButtonView_.isDecelerating();
    if (isMoving || index != currentIndex_) setCurrentIndex(index);
}

EmojiPageView* VPEmoticonKeyboardView::loadedPage(int index) const {
    return dynamic_cast<EmojiPageView*>(emojiButtonView_.itemViewAtIndex(index));
}

/// Not under the eyes of somebody who looks at it: what one is about to tap must not jump away.
void VPEmoticonKeyboardView::refreshRecentPage() {
    if (!recentPageIsOld_ || currentIndex_ == RECENT_EMOJI) return;
    recentPageIsOld_ = false;
    if (EmojiPageView* const page = loadedPage(RECENT_EMOJI)) showEmoji(*page, RECENT_EMOJI);
}

void VPEmoticonKeyboardView::emojiTapped(const std::string& text, VPEmojiCollectionViewCell& sender) {
    sender.shrinkForAnInstant();
    if (!mayRemember || mayRemember()) {
        manager_.saveRecentEmoji(text);
        recentPageIsOld_ = true;
        if (currentIndex_ == RECENT_EMOJI) fillCurrentArray();
        refreshRecentPage();
    }
    if (delegate) delegate->emoctionSelectedSE(text);
}

void VPEmoticonKeyboardView::modeChange() {
    if (delegate) delegate->dismissTheEmoction();
}

void VPEmoticonKeyboardView::backspaceDown() {
    if (delegate) delegate->backspaceDownEmoction();
}

void VPEmoticonKeyboardView::backspaceUp() {
    if (delegate) delegate->backspaceUpEmoction();
}

}  // namespace vorpel
