// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace wordengine {

/// Puts a file in place as a whole: the bytes go to a new file in the same folder, are synced, and the new
/// file takes the path's name. Whoever opens the path sees the old content or the new, also after a crash.
/// On failure the old file stays and the new one is removed.
///
/// @return 0, or the errno of the first step that failed
[[nodiscard]] int writeFileAtomically(const std::string& path, std::span<const uint8_t> bytes);

}  // namespace wordengine
