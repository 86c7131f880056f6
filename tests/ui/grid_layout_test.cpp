// SPDX-License-Identifier: Apache-2.0
#include "ui/collection_view_grid_layout.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <random>

namespace vorpel::ui {
namespace {

/// What the delegate answers for one section, and how many items it has.
struct Told {
    int items = 0;
    std::optional<int> perLine;
    std::optional<double> aspect, lineSpacing, gap, header, footer;
    std::optional<EdgeInsets> inset;
};

class Source : public CollectionViewLayoutSource, public CollectionViewGridLayoutDelegate {
public:
    std::vector<Told> sections;
    Rect bounds;
    mutable int asked = 0;

    int layoutSectionCount() const override { return static_cast<int>(sections.size()); }
    int layoutItemCount(int section) const override { return ++asked, at(section).items; }
    Rect layoutBounds() const override { return bounds; }
    CollectionViewLayoutDelegate* layoutDelegate() const override { return const_cast<Source*>(this); }
    void layoutInvalidated() override {}
    void layoutLeft() override {}

    std::optional<EdgeInsets> sectionInsetForSection(Layout&, int i) override { return at(i).inset; }
    std::optional<double> lineSpacingForSection(Layout&, int i) override { return at(i).lineSpacing; }
    std::optional<double> interitemSpacingForSection(Layout&, int i) override { return at(i).gap; }
    std::optional<double> headerLengthForSection(Layout&, int i) override { return at(i).header; }
    std::optional<double> footerLengthForSection(Layout&, int i) override { return at(i).footer; }
    std::optional<int> numberOfItemsPerLineForSection(Layout&, int i) override { return at(i).perLine; }
    std::optional<double> aspectRatioForSection(Layout&, int i) override { return at(i).aspect; }

private:
    const Told& at(int section) const { return sections.at(static_cast<std::size_t>(section)); }
};

class GridLayoutTest : public ::testing::Test {
protected:
    GridLayoutTest() { layout.setSource(&source); }

    int count(int least, int most) { return std::uniform_int_distribution<int>(least, most)(random); }
    double number(double least, double most) {
        return std::uniform_real_distribution<double>(least, most)(random);
    }
    bool isVertical() const { return layout.scrollDirection() == ScrollDirection::Vertical; }
    double across() const { return isVertical() ? source.bounds.width : source.bounds.height; }
    EdgeInsets insets() { return {number(0, 9), number(0, 9), number(0, 9), count(0, 9) ? 5 : 1000.0}; }

    void makeSections() {
        source.bounds = {0, 0, number(200, 500), number(200, 500)};
        source.sections.assign(static_cast<std::size_t>(count(0, 4)), {});
        for (Told& told : source.sections) {
            told.items = count(0, 40);
            if (count(0, 1)) told.perLine = count(0, 9) ? count(-1, 9) : INT_MAX;
            if (count(0, 1)) told.aspect = count(0, 9) ? number(-0.2, 3) : NAN;
            if (count(0, 1)) told.lineSpacing = number(0, 12);
            if (count(0, 1)) told.gap = number(0, 12);
            if (count(0, 1)) told.header = number(-5, 30);
            if (count(0, 1)) told.footer = number(-5, 30);
            if (count(0, 1)) told.inset = insets();
        }
    }

    /// So that each setter has to have the layout computed anew.
    void changeOneSetting(int which) {
        if (which == 0) layout.setNumberOfItemsPerLine(count(0, 9));
        if (which == 1) layout.setAspectRatio(number(-0.2, 3));
        if (which == 2) layout.setSectionInset(insets());
        if (which == 3) layout.setInteritemSpacing(number(0, 12));
        if (which == 4) layout.setLineSpacing(number(0, 12));
        if (which == 5) layout.setHeaderReferenceLength(number(-5, 20));
        if (which == 6) layout.setFooterReferenceLength(number(-5, 20));
        if (which == 7) layout.setScrollDirection(ScrollDirection(isVertical()));
    }

    /// Lays all out with a pen that goes on from one element to the next, and leaves it at the end.
    std::vector<LayoutAttributes> drawn() {
        std::vector<LayoutAttributes> all;
        const bool vertical = isVertical();
        const auto add = [&](IndexPath path, std::optional<SupplementaryKind> kind, const Rect& is) {
            all.push_back({path, kind, vertical ? is : Rect{is.y, is.x, is.height, is.width}});
        };
        pen = 0;
        for (int i = 0; i < source.layoutSectionCount(); ++i) {
            const Told& told = source.sections[static_cast<std::size_t>(i)];
            const EdgeInsets inset = told.inset.value_or(layout.sectionInset());
            const double left = vertical ? inset.left : inset.top;
            const double right = vertical ? inset.right : inset.bottom;
            const int perLine = std::max(1, told.perLine.value_or(layout.numberOfItemsPerLine()));
            const double given = told.aspect.value_or(layout.aspectRatio());
            const double aspect = given > 0 ? given : 1;
            const double gap = told.gap.value_or(layout.interitemSpacing());
            const double width = std::max(0.0, across() - left - right - gap * (perLine - 1)) / perLine;
            const double height = vertical ? width / aspect : width * aspect;
            const auto addBar = [&](SupplementaryKind kind, double length) {
                if (length > 0) add({i, 0}, kind, {0, pen, across(), length});
                pen += std::max(0.0, length);
            };
            addBar(SupplementaryKind::Header, told.header.value_or(layout.headerReferenceLength()));
            pen += vertical ? inset.top : inset.left;
            for (int item = 0; item < told.items; ++item) {
                const int column = item % perLine;
                if (item > 0 && column == 0) pen += told.lineSpacing.value_or(layout.lineSpacing());
                add({i, item}, {}, {left + column * (width + gap), pen, width, height});
                if (column == perLine - 1 || item == told.items - 1) pen += height;
            }
            pen += vertical ? inset.bottom : inset.right;
            addBar(SupplementaryKind::Footer, told.footer.value_or(layout.footerReferenceLength()));
        }
        return all;
    }

    /// What the layout says of each element, asked one by one.
    std::vector<LayoutAttributes> askedSingly() {
        std::vector<LayoutAttributes> all;
        const auto add = [&](const std::optional<LayoutAttributes>& one) {
            if (one) all.push_back(*one);
        };
        for (int i = -1; i <= source.layoutSectionCount(); ++i) {
            add(layout.layoutAttributesForSupplementaryViewOfKind(SupplementaryKind::Header, {i, 0}));
            for (int item = -1; item <= 40; ++item) add(layout.layoutAttributesForItemAtIndexPath({i, item}));
            add(layout.layoutAttributesForSupplementaryViewOfKind(SupplementaryKind::Footer, {i, 0}));
        }
        return all;
    }

    std::mt19937 random{11};
    Source source;
    CollectionViewGridLayout layout;
    double pen = 0;
};

TEST_F(GridLayoutTest, LaysOutWhatAPenWouldAndFindsItInAnyRectangle) {
    for (int round = 0; round < 800; ++round) {
        SCOPED_TRACE(round);
        if (round % 10 == 0) makeSections();
        source.asked = 0;
        changeOneSetting(round % 8);
        const std::vector<LayoutAttributes> expected = drawn();
        const std::vector<LayoutAttributes> all = askedSingly();
        ASSERT_EQ(all.size(), expected.size());
        for (std::size_t i = 0; i < all.size(); ++i) {
            const Rect& a = all[i].frame;
            const Rect& b = expected[i].frame;
            EXPECT_TRUE(all[i].path == expected[i].path && all[i].kind == expected[i].kind) << i;
            for (const double off : {a.x - b.x, a.y - b.y, a.width - b.width, a.height - b.height}) {
                EXPECT_NEAR(off, 0, 1e-6) << i;
            }
            for (std::size_t j = 0; j < i; ++j) {
                EXPECT_FALSE(all[j].frame.intersects(a.insetBy(1e-6, 1e-6))) << j << " and " << i;
            }
        }
        const Size size = layout.collectionViewContentSize();
        EXPECT_NEAR(isVertical() ? size.height : size.width, pen, 1e-6);
        EXPECT_EQ(isVertical() ? size.width : size.height, across());
        for (std::size_t query = 0; query < 30; ++query) {
            Rect rect{number(-99, size.width), number(-99, size.height), number(0, 300), number(0, 300)};
            if (query % 3 == 0 && !all.empty()) rect = all[query % all.size()].frame;  // exactly along edges
            std::vector<LayoutAttributes> met = all;
            std::erase_if(met, [&](const LayoutAttributes& one) { return !one.frame.intersects(rect); });
            EXPECT_EQ(layout.layoutAttributesForElementsInRect(rect), met);
        }
        EXPECT_EQ(source.asked, source.layoutSectionCount()) << "once for all of this";
    }
}

}  // namespace
}  // namespace vorpel::ui
