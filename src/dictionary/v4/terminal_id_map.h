// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <unordered_map>

namespace wordengine {

/// From the terminal ids before a garbage collection to those after it; the ids of dropped words are
/// not there.
using TerminalIdMap = std::unordered_map<int, int>;

}  // namespace wordengine
