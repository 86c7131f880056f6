// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/animation.h"
#include "ui/button.h"
#include "ui/scroll_view.h"
#include "ui/view.h"

#include <memory>
#include <string>
#include <vector>

namespace vorpel {

class VPEmojiCategoryScrollViewDelegate {
public:
    virtual ~VPEmojiCategoryScrollViewDelegate() = default;

    /// The icon was tapped.
    virtual void scrollMenuViewSelectedIndex(int index) = 0;
};

/// A row of icons, one for each page, of which one is marked. It scrolls where they do not all fit. Main
/// thread only.
class VPEmojiCategoryScrollView : public ui::View {
public:
    // Points.
    static constexpr double kScrollMenuViewWidth = 32;  ///< of an icon, at least
    static constexpr double kScrollMenuViewMargin = 2;  ///< free around the ground of the marked icon
    static constexpr double kScrollMenuIndicatorHeight = 2;

    VPEmojiCategoryScrollView();

    /// Not owned; null for none.
    VPEmojiCategoryScrollViewDelegate* delegate = nullptr;

    /// The icons' emoji, in the order of the pages.
    [[nodiscard]] const std::vector<std::string>& itemArray() const { return itemArray_; }
    void setItemArray(std::vector<std::string> icons);
    [[nodiscard]] const std::vector<std::unique_ptr<ui::Button>>& itemViewArray() const {
        return itemViewArray_;
    }

    /// The marked icon; null while there is none.
    [[nodiscard]] ui::Button* selectedItemView() const { return selectedItemView_; }
    [[nodiscard]] ui::ScrollView& scrollView() { return scrollView_; }

    /// Marks the page's icon and brings it into view, in a quarter of a second.
    void setItemColor(int currentPage);

    /// Lies behind the marked icon from now on; not owned.
    void setHighlightView(ui::View& view);

    /// Of the line under the marked icon.
    void setIndicatorColor(const ui::Color& color) { indicator_.setBackgroundColor(color); }

    /// Of an icon, in points.
    [[nodiscard]] double itemWidth() const;

    void layoutSubviews() override;

private:
    [[nodiscard]] ui::Rect frameOfItem(double index) const;
    void mark(double index);
    void showItem(int index, ui::Animated animated);

    std::vector<std::string> itemArray_;
    ui::ScrollView scrollView_;
    ui::View indicator_;
    std::vector<std::unique_ptr<ui::Button>> itemViewArray_;
    ui::Button* selectedItemView_ = nullptr;
    ui::View* highlight_ = nullptr;
    double marked_ = 0;  // whose place the mark has; between two while it moves
    ui::Animation marking_;
};

}  // namespace vorpel
