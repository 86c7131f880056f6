// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// Size of every per-key array; a key count above it is cut to it.
inline constexpr int KEY_COUNT_LIMIT = 64;

/// Slots in a grid cell and in an input point's proximity list.
inline constexpr int PROXIMITY_SLOT_COUNT = 16;

/// Separates the near keys from the additional characters in a proximity list.
inline constexpr int ADDITIONAL_CHARS_DELIMITER = 2;

}  // namespace wordengine
