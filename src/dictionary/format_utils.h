// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace wordengine {

/// Tells what a file is from its first bytes.
class FormatUtils {
public:
    FormatUtils() = delete;

    enum FORMAT_VERSION {
        UNKNOWN_VERSION = -1,
        /// One file, read-only.
        VERSION_2 = 2,
        // Directories of files that can be updated.
        VERSION_399 = 399,
        VERSION_402 = 402,
        VERSION_403 = 403,
    };

    static constexpr uint32_t MAGIC_NUMBER = 0x9BC13AFE;
    static constexpr int DICTIONARY_MINIMUM_SIZE = 12;

    static FORMAT_VERSION getFormatVersion(int formatVersion);

    /// UNKNOWN_VERSION for anything that does not begin as a dictionary does; null bytes of size 0 too.
    static FORMAT_VERSION detectFormatVersion(const uint8_t* dict, int dictSize);
};

}  // namespace wordengine
