// SPDX-License-Identifier: Apache-2.0
#include "keyboard/emoji_finger.h"

#include <algorithm>
#include <stdexcept>

namespace vorpel::cli {

namespace {

// Enough for the longest page on the smallest keyboard.
constexpr int MOST_DRAGS = 60;

// Of the scroller's length: a finger keeps away from the edges.
constexpr double LONGEST_DRAG = 0.6;

// Points: what is out of sight by less can be tapped.
constexpr double HARDLY_CUT = 0.5;

/// Without the mark that asks for a picture, which may be left out.
std::string plain(std::string emoji) {
    static const std::string MARK = "\uFE0F";
    for (std::size_t at = 0; (at = emoji.find(MARK, at)) != std::string::npos;) emoji.erase(at, MARK.size());
    return emoji;
}

/// How far a content must be drawn, at most `longest`, so that what spans from `low` to `high` comes into a
/// view of that length.
double wayInto(double low, double high, double length) {
    const double longest = length * LONGEST_DRAG;
    // The content follows a finger only from there on, where it is no tap any more.
    const double more = ui::PanGesture::SLOP + 1;
    if (low < -HARDLY_CUT) return std::min(more - low, longest);
    if (high > length + HARDLY_CUT) return -std::min(more + high - length, longest);
    return 0;
}

}  // namespace

const std::vector<std::string>& emojiPageNames() {
    static const std::vector<std::string> NAMES{"recent", "faces",  "animals", "food", "activity",
                                                "travel", "office", "misc",    "flags"};
    return NAMES;
}

std::optional<int> EmojiFinger::indexOn(int page, const std::string& emoji) const {
    std::vector<std::string> all;
    VPEmoticonManager(stage_.platform()).setTheCurrentArray(page, all);
    const auto found = std::ranges::find(all, plain(emoji), plain);
    if (found == all.end()) return std::nullopt;
    return static_cast<int>(found - all.begin());
}

std::optional<int> EmojiFinger::pageWith(const std::string& emoji) const {
    if (isOpen() && page() != RECENT_EMOJI && indexOn(page(), emoji)) return page();
    for (int page = FACES_AND_PEOPLE; page < EMOJI_PAGE_COUNT; ++page) {
        if (indexOn(page, emoji)) return page;
    }
    return std::nullopt;
}

void EmojiFinger::showPage(int page) {
    VPEmojiCategoryScrollView& categories = view().categoryView();
    stage_.window().layoutIfNeeded();
    tapIn(categories.scrollView(), categories.itemViewArray()[static_cast<std::size_t>(page)]->frame());
    if (this->page() != page) throw std::runtime_error("the icon of an emoji page does not lead to it");
}

void EmojiFinger::tapEmoji(const std::string& emoji) {
    stage_.window().layoutIfNeeded();
    EmojiPageView* const page = view().currentPage();
    if (!page) throw std::runtime_error("the emoji page was not laid out");
    const auto& shown = page->collectionView().emojis();
    const auto found = std::ranges::find(shown, plain(emoji), plain);
    if (found == shown.end()) throw std::runtime_error("the page does not show " + emoji);
    const ui::IndexPath path{0, static_cast<int>(found - shown.begin())};
    ui::CollectionView& grid = page->collectionView().collectionView();
    const auto place = grid.layout()->layoutAttributesForItemAtIndexPath(path);
    if (!place) throw std::runtime_error("the emoji has no place on its page: " + emoji);
    tapIn(grid, place->frame);
}

void EmojiFinger::close() {
    stage_.window().layoutIfNeeded();
    const ui::Button& button = view().modeChangeButton();
    stage_.tap(button.convertToWindow(button.bounds().center()));
}

void EmojiFinger::tapIn(ui::ScrollView& scroller, const ui::Rect& frame) {
    bringIntoView(scroller, frame);
    stage_.tap(scroller.contentView().convertToWindow(frame.center()));
}

void EmojiFinger::bringIntoView(ui::ScrollView& scroller, const ui::Rect& frame) {
    const ui::Size size = scroller.bounds().size();
    const ui::Point middle = scroller.convertToWindow(scroller.bounds().center());
    for (int drag = 0; drag < MOST_DRAGS; ++drag) {
        const ui::Rect seen = frame.offsetBy(ui::Point{} - scroller.contentOffset());
        const ui::Point way{wayInto(seen.x, seen.right(), size.width),
                            wayInto(seen.y, seen.bottom(), size.height)};
        if (way == ui::Point{}) return;
        const ui::Point half{way.x / 2, way.y / 2};
        stage_.drag(middle - half, middle + half);
    }
    throw std::runtime_error("scrolling does not lead to what is to be tapped");
}

}  // namespace vorpel::cli
