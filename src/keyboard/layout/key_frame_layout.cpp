// SPDX-License-Identifier: Apache-2.0
#include "keyboard/layout/key_frame_layout.h"

#include <algorithm>
#include <cmath>

namespace vorpel {

/// Edges, gaps and sizes that all rows of a page share.
struct KeyFrameLayout::PageMeasures {
    bool isLandscape = false;
    double sideEdges = 0;
    double topEdge = 0;
    double rowGap = 0;
    double rowGapTotal = 0;
    double keyGap = 0;
    double lastRowKeyGap = 0;
    double leftSideRatio = 0;
    double rightSideRatio = 0;
    double keyHeight = 0;
    double letterKeyWidth = 0;

    [[nodiscard]] ui::Rect rowFrame(const KeyFrameLayout& layout, const ui::Rect& bounds, std::size_t row,
                                    std::size_t rowCount) const {
        const auto index = static_cast<double>(row);
        // The last row alone is pushed down by its own gap.
        const double gapsAbove = row + 1 == rowCount ? rowGapTotal : index * rowGap;
        return {layout.rounded(sideEdges), layout.rounded(topEdge + index * keyHeight + gapsAbove),
                layout.rounded(bounds.width - 2 * sideEdges), layout.rounded(keyHeight)};
    }
};

double KeyFrameLayout::rounded(double measurement) const {
    const double scale = screen_.scale();
    return std::round(measurement * scale) / scale;
}

std::optional<KeyFrames> KeyFrameLayout::generateKeyFrames(const Keyboard& model, const ui::Rect& bounds,
                                                           int page) {
    if (bounds.width == 0 || bounds.height == 0) return std::nullopt;
    KeyFrames frames;
    const Page none;
    const bool exists = page >= 0 && static_cast<std::size_t>(page) < model.pages.size();
    const Page& laidOut = exists ? model.pages[static_cast<std::size_t>(page)] : none;
    const PageMeasures measures = measurePage(bounds, laidOut, page);
    for (std::size_t r = 0; r < laidOut.rows.size(); ++r) {
        const KeyRow& row = laidOut.rows[r];
        const RowFrames rowFrames =
            layoutRow(row, measures, measures.rowFrame(*this, bounds, r, laidOut.rows.size()));
        for (std::size_t k = 0; k < row.size() && k < rowFrames.size(); ++k) {
            frames.emplace_back(row[k].get(), rowFrames[k]);
        }
    }
    return frames;
}

KeyFrameLayout::PageMeasures KeyFrameLayout::measurePage(const ui::Rect& bounds, const Page& page,
                                                         int number) const {
    const LayoutConstants& constants = layoutConstants_;
    const double width = bounds.width;
    PageMeasures measures;
    const bool isLandscape = measures.isLandscape = width / bounds.height >= constants.landscapeRatio();
    const double edge = isLandscape ? constants.sideEdgesLandscape() : constants.sideEdgesPortrait(width);
    const double normalKeyboardSize = width - 2 * edge;
    const double shrunkKeyboardSize = constants.keyboardShrunkSize(normalKeyboardSize);
    measures.sideEdges = edge + (normalKeyboardSize - shrunkKeyboardSize) / 2;
    measures.topEdge = isLandscape ? constants.topEdgeLandscape() : constants.topEdgePortrait(width);
    measures.rowGap = isLandscape ? constants.rowGapLandscape() : constants.rowGapPortrait(width);
    // The screen is asked, and its trace line written, in landscape too.
    const double portraitLastRowGap = constants.lastRowGapOfScreen();
    const double lastRowGap = isLandscape ? measures.rowGap : portraitLastRowGap;
    measures.lastRowKeyGap =
        isLandscape ? constants.lastRowKeyGapLandscape(width) : constants.lastRowKeyGapPortrait();
    measures.leftSideRatio = isLandscape
                                 ? constants.lastRowLandscapeFirstTwoButtonAreaWidthToKeyboardAreaWidth()
                                 : constants.lastRowPortraitFirstTwoButtonAreaWidthToKeyboardAreaWidth();
    measures.rightSideRatio = isLandscape ? constants.lastRowLandscapeLastButtonAreaWidthToKeyboardAreaWidth()
                                          : constants.lastRowPortraitLastButtonAreaWidthToKeyboardAreaWidth();

    std::size_t mostKeysInRow = 0;
    for (const KeyRow& row : page.rows) mostKeysInRow = std::max(mostKeysInRow, row.size());
    // The extra keys at the ends of the wide set do not narrow the others.
    if (number >= FIRST_WIDE_PAGE && mostKeysInRow >= 2) mostKeysInRow -= 2;
    const auto rowCount = static_cast<double>(page.rows.size());
    const auto keyCount = static_cast<double>(mostKeysInRow);
    measures.rowGapTotal = (rowCount - 2) * measures.rowGap + lastRowGap;
    measures.keyGap = isLandscape ? constants.keyGapLandscape(width, mostKeysInRow)
                                  : constants.keyGapPortrait(width, mostKeysInRow);
    // The edge below is what the sides were before they were widened.
    measures.keyHeight =
        rounded((bounds.height - (edge + measures.topEdge + measures.rowGapTotal)) / rowCount);
    measures.letterKeyWidth =
        rounded((width - (2 * measures.sideEdges + measures.keyGap * (keyCount - 1))) / keyCount);
    return measures;
}

KeyFrameLayout::RowFrames KeyFrameLayout::layoutRow(const KeyRow& row, const PageMeasures& page,
                                                    const ui::Rect& frame) {
    if (characterRowHeuristic(row)) return layoutCharacterRow(row, page.letterKeyWidth, page.keyGap, frame);
    if (doubleSidedRowHeuristic(row) || specialRowWithoutSpaceHeuristic(row)) {
        return layoutCharacterWithSidesRow(row, frame, page.isLandscape, page.letterKeyWidth, page.keyGap);
    }
    if (landscapeCharacterRowBoolean(row)) {
        return layoutCharacterRowForLandscape(row, page.letterKeyWidth, page.keyGap, frame);
    }
    if (landscapeDoubleSidedRowBoolean(row) || landscapeSpecialRowWithoutSpaceBoolean(row)) {
        return layoutCharacterWithSidesRowForLandscape(row, frame, page.isLandscape, page.letterKeyWidth,
                                                       page.keyGap);
    }
    const double micRatio = layoutConstants_.micButtonPortraitWidthRatioToOtherSpecialButtons();
    if (landscapeSpecialKeysRowBoolean(row)) {
        return layoutSpecialKeysRowForLandscape(row, page.letterKeyWidth, page.lastRowKeyGap,
                                                page.leftSideRatio, page.rightSideRatio, micRatio,
                                                page.isLandscape, frame);
    }
    return layoutSpecialKeysRow(row, page.letterKeyWidth, page.lastRowKeyGap, page.leftSideRatio,
                                page.rightSideRatio, micRatio, page.isLandscape, frame);
}

}  // namespace vorpel
