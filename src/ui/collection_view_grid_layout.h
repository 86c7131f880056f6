// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/collection_view_layout.h"

namespace vorpel::ui {

class CollectionViewGridLayout;

/// The settings of single sections; where there is no answer, those of the layout hold.
class CollectionViewGridLayoutDelegate : public CollectionViewLayoutDelegate {
public:
    using Layout = CollectionViewGridLayout;
    virtual std::optional<EdgeInsets> sectionInsetForSection(Layout&, int /*section*/) { return {}; }
    virtual std::optional<double> lineSpacingForSection(Layout&, int /*section*/) { return {}; }
    virtual std::optional<double> interitemSpacingForSection(Layout&, int /*section*/) { return {}; }
    virtual std::optional<double> headerLengthForSection(Layout&, int /*section*/) { return {}; }
    virtual std::optional<double> footerLengthForSection(Layout&, int /*section*/) { return {}; }
    virtual std::optional<int> numberOfItemsPerLineForSection(Layout&, int /*section*/) { return {}; }
    virtual std::optional<double> aspectRatioForSection(Layout&, int /*section*/) { return {}; }
};

/// Lines of a fixed number of cells, section after section. The cells of a section are all of one size, which
/// follows from the room across the scroll direction, the spacing and the aspect ratio. Lengths are points
/// along the scroll direction.
class CollectionViewGridLayout : public CollectionViewLayout {
public:
    // Each setter invalidates the layout.

    /// 1 at first; less counts as 1.
    void setNumberOfItemsPerLine(int count);
    [[nodiscard]] int numberOfItemsPerLine() const { return itemsPerLine_; }

    /// The width of a cell over its height; 1 at first, and when it is not above 0.
    void setAspectRatio(double ratio);
    [[nodiscard]] double aspectRatio() const { return aspectRatio_; }

    /// What is left free around the cells of each section; nothing at first.
    void setSectionInset(const EdgeInsets& inset);
    [[nodiscard]] const EdgeInsets& sectionInset() const { return sectionInset_; }

    /// Between the cells of a line; 10 at first.
    void setInteritemSpacing(double spacing);
    [[nodiscard]] double interitemSpacing() const { return interitemSpacing_; }

    /// Between the lines of a section; 10 at first.
    void setLineSpacing(double spacing);
    [[nodiscard]] double lineSpacing() const { return lineSpacing_; }

    /// Vertical at first.
    void setScrollDirection(ScrollDirection direction);
    [[nodiscard]] ScrollDirection scrollDirection() const { return direction_; }

    /// Of each section's header and footer; 0, for none, at first.
    void setHeaderReferenceLength(double length);
    [[nodiscard]] double headerReferenceLength() const { return headerLength_; }
    void setFooterReferenceLength(double length);
    [[nodiscard]] double footerReferenceLength() const { return footerLength_; }

    void prepareLayout() override;
    [[nodiscard]] Size collectionViewContentSize() override;
    [[nodiscard]] std::vector<LayoutAttributes> layoutAttributesForElementsInRect(const Rect& rect) override;
    [[nodiscard]] std::optional<LayoutAttributes> layoutAttributesForItemAtIndexPath(
        const IndexPath& path) override;
    [[nodiscard]] std::optional<LayoutAttributes> layoutAttributesForSupplementaryViewOfKind(
        SupplementaryKind kind, const IndexPath& path) override;

    /// When the size differs.
    [[nodiscard]] bool shouldInvalidateLayoutForBoundsChange(const Rect& newBounds) override;

private:
    /// One section: what holds for it, and what follows.
    struct Section {
        int items = 0;
        int itemsPerLine = 1;
        double aspectRatio = 1;
        EdgeInsets inset;
        double lineSpacing = 0;
        double interitemSpacing = 0;
        double headerLength = 0;
        double footerLength = 0;
        double start = 0;
        Size cellSize;
        std::optional<LayoutAttributes> header;
        std::optional<LayoutAttributes> footer;
        std::vector<LayoutAttributes> cells;
    };

    // The delegate's answer, or else the layout's setting; made such that it can be reckoned with.
    [[nodiscard]] EdgeInsets sectionInsetForSection(int section);
    [[nodiscard]] double lineSpacingForSection(int section);
    [[nodiscard]] double interitemSpacingForSection(int section);
    [[nodiscard]] double headerLengthForSection(int section);
    [[nodiscard]] double footerLengthForSection(int section);
    [[nodiscard]] int numberOfItemsPerLineForSection(int section);
    [[nodiscard]] double aspectRatioForSection(int section);
    template <typename Value>
    using Question = std::optional<Value> (CollectionViewGridLayoutDelegate::*)(CollectionViewGridLayout&,
                                                                                int);
    template <typename Value>
    Value ask(Question<Value> question, int section, Value setting);

    [[nodiscard]] bool isVertical() const { return direction_ == ScrollDirection::Vertical; }
    [[nodiscard]] double along(Size size) const { return isVertical() ? size.height : size.width; }
    [[nodiscard]] double across(Size size) const { return isVertical() ? size.width : size.height; }
    [[nodiscard]] Rect rectAt(double along, double across, Size size) const;

    [[nodiscard]] Section readSection(int section);
    void calculateContentSize();
    void calculateLayoutAttributes();
    [[nodiscard]] double usableSpaceInSection(const Section& section) const;
    [[nodiscard]] Size cellSizeInSection(const Section& section) const;
    [[nodiscard]] static int rowsInSection(const Section& section);
    [[nodiscard]] double lengthwiseInsetLengthInSection(const Section& section) const;
    [[nodiscard]] double contentLengthForSection(const Section& section) const;
    [[nodiscard]] double startOfCells(const Section& section) const;
    [[nodiscard]] double acrossInset(const Section& section) const;
    [[nodiscard]] Rect frameForItemAtIndexPath(const IndexPath& path) const;
    [[nodiscard]] LayoutAttributes layoutAttributesForCellAtIndexPath(const IndexPath& path) const;
    [[nodiscard]] std::vector<LayoutAttributes> layoutAttributesForItemsInSection(int section) const;
    [[nodiscard]] std::optional<LayoutAttributes> headerAttributesForIndexPath(const IndexPath& path) const;
    [[nodiscard]] std::optional<LayoutAttributes> footerAttributesForIndexPath(const IndexPath& path) const;
    [[nodiscard]] LayoutAttributes supplementaryAttributes(SupplementaryKind kind, int section, double start,
                                                           double length) const;
    void addCellsInRect(const Section& section, const Rect& rect, std::vector<LayoutAttributes>& found) const;

    /// Null when there is no such section.
    [[nodiscard]] const Section* findSection(int section) const;

    int itemsPerLine_ = 1;
    double aspectRatio_ = 1;
    EdgeInsets sectionInset_;
    double interitemSpacing_ = 10;
    double lineSpacing_ = 10;
    ScrollDirection direction_ = ScrollDirection::Vertical;
    double headerLength_ = 0;
    double footerLength_ = 0;

    // From one preparation to the next.
    Size bounds_;
    std::vector<Section> sections_;
    double contentLength_ = 0;
};

}  // namespace vorpel::ui
