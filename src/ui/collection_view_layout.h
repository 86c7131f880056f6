// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/geometry.h"

#include <compare>
#include <optional>
#include <vector>

namespace vorpel::ui {

/// Which item of which section, both counted from 0.
struct IndexPath {
    int section = 0;
    int item = 0;

    friend auto operator<=>(const IndexPath&, const IndexPath&) = default;
};

enum class ScrollDirection { Vertical = 0, Horizontal = 1 };

/// What a section may have besides its items.
enum class SupplementaryKind { Header, Footer };

/// Where one element lies. Headers and footers have the path of their section's item 0, whether or not there
/// is such an item.
struct LayoutAttributes {
    IndexPath path;
    std::optional<SupplementaryKind> kind;  ///< none for an item
    Rect frame;                             ///< in the content's points

    friend bool operator==(const LayoutAttributes&, const LayoutAttributes&) = default;
};

/// What a host tells a layout section by section. Each layout has its own, derived from this.
class CollectionViewLayoutDelegate {
public:
    virtual ~CollectionViewLayoutDelegate() = default;
};

/// What a layout lays out; a collection view, as a rule.
class CollectionViewLayoutSource {
public:
    virtual ~CollectionViewLayoutSource() = default;
    [[nodiscard]] virtual int layoutSectionCount() const = 0;
    [[nodiscard]] virtual int layoutItemCount(int section) const = 0;

    /// The part of the content that is seen at once; its size counts.
    [[nodiscard]] virtual Rect layoutBounds() const = 0;

    /// Null for none.
    [[nodiscard]] virtual CollectionViewLayoutDelegate* layoutDelegate() const = 0;

    /// What was laid out holds no more.
    virtual void layoutInvalidated() = 0;

    /// The layout is destroyed or lays out something else from here on.
    virtual void layoutLeft() = 0;
};

/// Says where the elements of a collection lie. It computes all when it is first asked and keeps it until it
/// is invalidated. Lays out one source at a time; layout and source may go in either order. Main thread only.
class CollectionViewLayout {
public:
    CollectionViewLayout() = default;
    virtual ~CollectionViewLayout();
    CollectionViewLayout(const CollectionViewLayout&) = delete;
    CollectionViewLayout& operator=(const CollectionViewLayout&) = delete;

    /// Not owned; null for none. The former source is told.
    void setSource(CollectionViewLayoutSource* source);
    [[nodiscard]] CollectionViewLayoutSource* source() const { return source_; }

    /// Computes all anew. Asks the source and its delegate, who are to answer and nothing else.
    virtual void prepareLayout() {}

    /// Prepares what is not prepared. The answers below begin with it.
    void prepareIfNeeded();

    [[nodiscard]] virtual Size collectionViewContentSize() = 0;

    /// The elements whose frames meet the rectangle.
    [[nodiscard]] virtual std::vector<LayoutAttributes> layoutAttributesForElementsInRect(
        const Rect& rect) = 0;

    /// None when there is no such item.
    [[nodiscard]] virtual std::optional<LayoutAttributes> layoutAttributesForItemAtIndexPath(
        const IndexPath& path) = 0;

    /// None when the section has nothing of that kind.
    [[nodiscard]] virtual std::optional<LayoutAttributes> layoutAttributesForSupplementaryViewOfKind(
        SupplementaryKind kind, const IndexPath& path) = 0;

    /// Whether the source, when its bounds become these, has to be laid out anew.
    [[nodiscard]] virtual bool shouldInvalidateLayoutForBoundsChange(const Rect& /*newBounds*/) {
        return false;
    }

    /// What was computed is dropped, and the source is told.
    void invalidateLayout();

private:
    CollectionViewLayoutSource* source_ = nullptr;
    bool prepared_ = false;
};

}  // namespace vorpel::ui
