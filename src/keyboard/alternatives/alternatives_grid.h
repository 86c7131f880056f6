// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/geometry.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace vorpel {

/// Where the alternatives of a held key lie, in points of what the key and the room were given in.
///
/// The key's own letter is the cell right over the key, so that a finger that has not moved is on it already.
/// The others run from there to the side that has more room, then to the other one, then from there again in
/// the row above.
struct AlternativesGrid {
    ui::Rect key;
    ui::Rect panel;               ///< around all cells
    std::vector<ui::Rect> cells;  ///< the key's own first

    /// `count`, at least 1, cells as wide as the key, within the room's width: in one row, or in as many as
    /// they need. Where the room ends soon above the key they are lower, and at last come down over it.
    [[nodiscard]] static AlternativesGrid over(const ui::Rect& key, const ui::Rect& room, std::size_t count);

    /// The cell nearest to the point; nothing far from the panel and the key.
    [[nodiscard]] std::optional<std::size_t> cellAt(ui::Point point) const;
};

}  // namespace vorpel
