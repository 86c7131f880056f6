// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "capi/failure.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace vorpel::capi {

// Structures that cross the border begin with the size that the caller knows them by, which differs from
// ours when caller and library are of different versions. None of them may end in padding, whose bytes nobody
// sets: a member narrower than the alignment needs a reserved one behind it.

/// No structure ever grows beyond this: a larger size is one that was never set.
inline constexpr std::size_t LARGEST_STRUCT = 4096;

inline std::size_t callersSize(const void* given, std::size_t leastSize) {
    std::size_t size = 0;
    std::memcpy(&size, given, sizeof(size));
    require(size >= leastSize && size <= LARGEST_STRUCT, "a structure's size is not set");
    return size;
}

/// What the caller asks for, as this version knows it. Members that an older caller lacks are 0; a newer
/// one's must be 0 where we do not know them. `leastSize` is that of the first version.
template <typename Struct>
Struct readStruct(const Struct* given, std::size_t leastSize) {
    const std::size_t size = callersSize(given, leastSize);
    const auto* const bytes = reinterpret_cast<const unsigned char*>(given);
    if (size > sizeof(Struct)) {
        require(
            std::all_of(bytes + sizeof(Struct), bytes + size, [](unsigned char byte) { return byte == 0; }),
            "a structure asks for what this version of the library does not know");
    }
    Struct known{};
    std::memcpy(&known, bytes, std::min(size, sizeof(Struct)));
    return known;
}

/// Fills as much of the caller's structure as it has; a newer one's members that we do not know become 0.
template <typename Struct>
void writeStruct(Struct* out, Struct content, std::size_t leastSize) {
    const std::size_t size = callersSize(out, leastSize);
    auto* const bytes = reinterpret_cast<unsigned char*>(out);
    content.size = size;
    std::memcpy(bytes, &content, std::min(size, sizeof(Struct)));
    if (size > sizeof(Struct)) std::memset(bytes + sizeof(Struct), 0, size - sizeof(Struct));
}

}  // namespace vorpel::capi
