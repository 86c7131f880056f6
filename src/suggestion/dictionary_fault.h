// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

namespace wordengine {
class DictionaryStructureWithBufferPolicy;
}

namespace vorpel {

/// Why the dictionary at `path` is of no use, as one line that names it; nothing when it seems whole.
/// `dictionary` is what opening the file gave, null if it failed. The header and the way to the last word
/// are looked at: that finds a file of another kind and one that was cut short, not every flipped bit.
std::optional<std::string> findDictionaryFault(
    const std::string& path, const wordengine::DictionaryStructureWithBufferPolicy* dictionary);

}  // namespace vorpel
