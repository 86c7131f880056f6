// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/emoji/emoji_page_view.h"
#include "keyboard/emoji/vp_emoji_category_scroll_view.h"
#include "keyboard/emoji/vp_emoji_collection_view.h"
#include "keyboard/emoji/vp_emoticon_manager.h"
#include "platform/platform.h"
#include "ui/button.h"
#include "ui/paged_scroll_view.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorpel {

/// What the emoji keyboard asks of the typing session.
class VPEmoticonKeyboardViewDelegate {
public:
    virtual ~VPEmoticonKeyboardViewDelegate() = default;

    /// The emoji is to be put into the text.
    virtual void emoctionSelectedSE(const std::string& emoji) = 0;

    /// Back to the letters.
    virtual void dismissTheEmoction() = 0;
    virtual void backspaceDownEmoction() = 0;
    virtual void backspaceUpEmoction() = 0;
};

/// The page that takes the place of the keys: a page of emoji for each category, side by side, and under them
/// the icons of the categories between a button for the letters and one for backspace. Main thread only.
class VPEmoticonKeyboardView : public ui::View,
                               private ui::PagedScrollViewDataSource,
                               private ui::PagedScrollViewDelegate,
                               private VPEmojiCategoryScrollViewDelegate,
                               private VPEmojiCollectionViewDelegate {
public:
    /// The platform must outlive the view.
    VPEmoticonKeyboardView(const ui::Rect& frame, const platform::Platform& platform);
    ~VPEmoticonKeyboardView() override;

    /// Not owned; null for none.
    VPEmoticonKeyboardViewDelegate* delegate = nullptr;

    /// Asked before a tapped emoji goes among the recent ones; without it every one does.
    std::function<bool()> mayRemember;

    /// About to come on show: the recent page is what it is by now.
    void open();

    [[nodiscard]] int currentIndex() const { return currentIndex_; }

    /// Shows that page at once; any other number does nothing.
    void setCurrentIndex(int page);

    /// The emoji of the page in hand.
    [[nodiscard]] const std::vector<std::string>& currentArray() const { return currentArray_; }

    /// The page on show; null before it is laid out for the first time.
    [[nodiscard]] EmojiPageView* currentPage() const { return loadedPage(currentIndex_); }

    /// The ground of the icon whose page is on show; made when it is first asked for.
    [[nodiscard]] ui::Button& category_highlight_view();

    /// Of one icon of the categories, in points.
    [[nodiscard]] double emojiCategoryButtonWidth() const { return categoryView_.itemWidth(); }

    [[nodiscard]] bool dark_mode() const { return darkMode_; }

    /// Takes the colours for light or dark surroundings, or those of the theme in force.
    void setDark_mode(bool dark);

    [[nodiscard]] ui::PagedScrollView& emojiButtonView() { return emojiButtonView_; }
    [[nodiscard]] ui::Button& modeChangeButton() { return modeChangeButton_; }
    [[nodiscard]] ui::Button& backSpaceButton() { return backSpaceButton_; }
    [[nodiscard]] VPEmojiCategoryScrollView& categoryView() { return categoryView_; }

    void layoutSubviews() override;

private:
    int numberOfItemsInPagedScrollView(ui::PagedScrollView& pages) override;
    std::unique_ptr<ui::View> viewForItemAtIndex(ui::PagedScrollView& pages, int index,
                                                 std::unique_ptr<ui::View> reusing) override;
    std::optional<ui::Size> pagedScrollViewItemSize(ui::PagedScrollView& pages) override;
    void pagedScrollViewCurrentItemIndexDidChange(ui::PagedScrollView& pages) override;
    void pagedScrollViewDidEndDragging(ui::PagedScrollView& pages, bool willDecelerate) override;
    void pagedScrollViewDidEndDecelerating(ui::PagedScrollView& pages) override;
    void pagedScrollViewDidEndScrollingAnimation(ui::PagedScrollView& pages) override;
    void scrollMenuViewSelectedIndex(int index) override;
    void emojiTapped(const std::string& text, VPEmojiCollectionViewCell& sender) override;

    void setUpButtons(const platform::Bundle& bundle);
    void becomeCurrent(int page);
    void fillCurrentArray();
    void modeChange();
    void backspaceDown();
    void backspaceUp();
    [[nodiscard]] EmojiPageView* loadedPage(int index) const;
    void showEmoji(EmojiPageView& page, int index);
    void refreshRecentPage();

    const platform::Platform& platform_;
    VPEmoticonManager manager_;
    int currentIndex_ = -1;  // until one is shown
    bool recentPageIsOld_ = false;
    bool darkMode_ = false;
    ui::Color textColor_;
    std::vector<std::string> currentArray_;
    std::unique_ptr<ui::Button> categoryHighlightView_;
    ui::PagedScrollView emojiButtonView_;
    ui::Button modeChangeButton_;
    ui::Button backSpaceButton_;
    VPEmojiCategoryScrollView categoryView_;
};

}  // namespace vorpel
