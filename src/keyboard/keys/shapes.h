// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/color.h"
#include "ui/geometry.h"

namespace vorpel::ui {
class Painter;
}

namespace vorpel {

/// A sign drawn as a path, since fonts give such signs odd shapes. Its strokes keep their weight at any size.
class Shape {
public:
    virtual ~Shape() = default;

    /// As large as fits, in the middle of the rectangle.
    virtual void draw(ui::Painter& painter, const ui::Rect& rect, const ui::Color& color) const = 0;
};

/// An arrow upwards: an outline, filled while capitals are on, with a bar under it while they are locked.
class ShiftShape final : public Shape {
public:
    void draw(ui::Painter& painter, const ui::Rect& rect, const ui::Color& color) const override;

    [[nodiscard]] bool withLock() const { return withLock_; }
    void setWithLock(bool withLock) { withLock_ = withLock; }

    /// Returns whether it looks different now.
    bool setState(bool filled, bool withLock) {
        const bool changed = filled != filled_ || withLock != withLock_;
        filled_ = filled;
        withLock_ = withLock;
        return changed;
    }

private:
    bool withLock_ = false;
    bool filled_ = false;
};

/// A tag that points to what is deleted, with a cross in it.
class BackspaceShape final : public Shape {
public:
    void draw(ui::Painter& painter, const ui::Rect& rect, const ui::Color& color) const override;
};

class GlobeShape final : public Shape {
public:
    void draw(ui::Painter& painter, const ui::Rect& rect, const ui::Color& color) const override;
};

/// The arrow of a key that moves the cursor.
class ChevronShape final : public Shape {
public:
    enum class Direction { Left, Right };

    explicit ChevronShape(Direction direction) : direction_(direction) {}
    void draw(ui::Painter& painter, const ui::Rect& rect, const ui::Color& color) const override;

private:
    Direction direction_;
};

/// The arrow of a return key that goes on to somewhere.
class ArrowShape final : public Shape {
public:
    void draw(ui::Painter& painter, const ui::Rect& rect, const ui::Color& color) const override;
};

/// The bent arrow of a return key that ends a line.
class ReturnShape final : public Shape {
public:
    void draw(ui::Painter& painter, const ui::Rect& rect, const ui::Color& color) const override;
};

}  // namespace vorpel
