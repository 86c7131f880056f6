// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/layout/layout_constants.h"
#include "keyboard/model/keyboard.h"
#include "keyboard/model/page_number.h"
#include "platform/screen.h"
#include "ui/geometry.h"

#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

namespace vorpel {

/// A page's keys with their frames, in row order.
using KeyFrames = std::vector<std::pair<const Key*, ui::Rect>>;

/// Where the keys of a page lie: page and bounds in, frames out. Positions and sizes are snapped to the
/// pixels of the screen. Every step may be overridden. Main thread only; what it is made with must outlive
/// it.
class KeyFrameLayout {
public:
    using RowFrames = std::vector<ui::Rect>;

    KeyFrameLayout(const LayoutConstants& layoutConstants, const platform::Screen& screen)
        : layoutConstants_(layoutConstants), screen_(screen) {}
    virtual ~KeyFrameLayout() = default;
    KeyFrameLayout(const KeyFrameLayout&) = delete;
    KeyFrameLayout& operator=(const KeyFrameLayout&) = delete;

    [[nodiscard]] const LayoutConstants& layoutConstants() const { return layoutConstants_; }

    /// To the nearest pixel, halves away from zero.
    [[nodiscard]] virtual double rounded(double measurement) const;

    /// Nothing for bounds without a size; no frames for a page that does not exist or has no rows.
    virtual std::optional<KeyFrames> generateKeyFrames(const Keyboard& model, const ui::Rect& bounds,
                                                       int page);

    // What kind of row it is.
    [[nodiscard]] virtual bool characterRowHeuristic(const KeyRow& row) const;
    [[nodiscard]] virtual bool doubleSidedRowHeuristic(const KeyRow& row) const;
    [[nodiscard]] virtual bool specialRowWithoutSpaceHeuristic(const KeyRow& row) const;
    [[nodiscard]] virtual bool landscapeCharacterRowBoolean(const KeyRow& row) const;
    [[nodiscard]] virtual bool landscapeDoubleSidedRowBoolean(const KeyRow& row) const;
    [[nodiscard]] virtual bool landscapeSpecialRowWithoutSpaceBoolean(const KeyRow& row) const;
    [[nodiscard]] virtual bool landscapeSpecialKeysRowBoolean(const KeyRow& row) const;

    // The frames of one row, in its order. A row with sides has at least three keys, and one of the wide set
    // two more than the others. The ...ForLandscape ones are for rows of the wide set, whose first and last
    // keys stand outside of the row proper; the bounds may be upright all the same.

    /// Keys of one width in the middle; the gaps shrink before the keys do.
    virtual RowFrames layoutCharacterRow(const KeyRow& row, double keyWidth, double gapWidth,
                                         const ui::Rect& frame);
    virtual RowFrames layoutCharacterRowForLandscape(const KeyRow& row, double keyWidth, double gapWidth,
                                                     const ui::Rect& frame);

    /// A flexible key at each end.
    virtual RowFrames layoutCharacterWithSidesRow(const KeyRow& row, const ui::Rect& frame, bool isLandscape,
                                                  double keyWidth, double keyGap);
    virtual RowFrames layoutCharacterWithSidesRowForLandscape(const KeyRow& row, const ui::Rect& frame,
                                                              bool isLandscape, double keyWidth,
                                                              double keyGap);

    /// Special keys around the space key, which takes the room that is left.
    virtual RowFrames layoutSpecialKeysRow(const KeyRow& row, double keyWidth, double gapWidth,
                                           double leftSideRatio, double rightSideRatio, double micButtonRatio,
                                           bool isLandscape, const ui::Rect& frame);
    virtual RowFrames layoutSpecialKeysRowForLandscape(const KeyRow& row, double keyWidth, double gapWidth,
                                                       double leftSideRatio, double rightSideRatio,
                                                       double micButtonRatio, bool isLandscape,
                                                       const ui::Rect& frame);

    /// The width of the wide set's extra keys; 0 until the first row that has some is laid out, and then
    /// kept.
    double otherTypeKeyWidth = 0;

protected:
    [[nodiscard]] const platform::Screen& screen() const { return screen_; }

private:
    struct PageMeasures;
    struct SidesMeasures;
    struct SpaceRowMeasures;

    [[nodiscard]] PageMeasures measurePage(const ui::Rect& bounds, const Page& page, int number) const;
    [[nodiscard]] SidesMeasures measureSides(double keyCount, const ui::Rect& frame, bool isLandscape,
                                             double keyWidth, double keyGap) const;
    RowFrames layoutRow(const KeyRow& row, const PageMeasures& page, const ui::Rect& frame);
    [[nodiscard]] ui::Rect leftExtraFrame(const ui::Rect& frame) const;
    [[nodiscard]] ui::Rect rightExtraFrame(const ui::Rect& frame) const;
    [[nodiscard]] RowFrames characterFrames(std::size_t count, double origin, double keyWidth,
                                            double gapWidth, const ui::Rect& frame) const;
    [[nodiscard]] RowFrames sidesFrames(std::size_t count, const SidesMeasures& sides,
                                        const ui::Rect& frame) const;

    const LayoutConstants& layoutConstants_;
    const platform::Screen& screen_;
};

}  // namespace vorpel
