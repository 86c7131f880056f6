// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace vorpel {

/// The grid that live key frames are laid over.
inline constexpr int LIVE_GRID_WIDTH = 32;
inline constexpr int LIVE_GRID_HEIGHT = 16;
inline constexpr int LIVE_GRID_CELLS = LIVE_GRID_WIDTH * LIVE_GRID_HEIGHT;
inline constexpr int LIVE_PROXIMITY_CHARS = 8192;

/// Only so many keys take part in the search for neighbours.
inline constexpr int NEIGHBOUR_KEY_LIMIT = 29;

/// Where a live key's sweet spot lies, and how large it is.
struct SweetSpot {
    float x;
    float y;
    float radius;
};

/// The sweet spot of a key by its index, which tells its row, and its frame.
SweetSpot liveSweetSpot(int keyIndex, int x, int y, int width, int height, int mostCommonKeyWidth,
                        int mostCommonKeyHeight);

/// The cells along one axis whose centres may be near a key: pixel positions `start` to `end`, inclusive.
struct CellSpan {
    int start;
    int end;
};

/// `keyStart` and `keyLength` are the key's extent along the axis, `cells` the number of cells on it.
CellSpan cellsNearKey(int keyStart, int keyLength, int threshold, int cellLength, int cells);

}  // namespace vorpel
