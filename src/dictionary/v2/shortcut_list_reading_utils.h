// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace wordengine {

class ByteReader;

/// The shortcut lists of the read-only format: a size, then entries of a flags byte and a string.
class ShortcutListReadingUtils {
public:
    using ShortcutFlags = uint8_t;

    ShortcutListReadingUtils() = delete;

    static constexpr int SHORTCUT_LIST_SIZE_FIELD_SIZE = 2;
    static constexpr ShortcutFlags FLAG_ATTRIBUTE_HAS_NEXT = 0x80;
    static constexpr ShortcutFlags MASK_ATTRIBUTE_PROBABILITY = 0x0F;
    static constexpr int WHITELIST_SHORTCUT_PROBABILITY = 15;

    static ShortcutFlags getFlagsAndForwardPointer(ByteReader* reader);
    static int getProbabilityFromFlags(ShortcutFlags flags) { return flags & MASK_ATTRIBUTE_PROBABILITY; }
    static bool hasNext(ShortcutFlags flags) { return (flags & FLAG_ATTRIBUTE_HAS_NEXT) != 0; }
    static bool isWhitelist(ShortcutFlags flags) {
        return getProbabilityFromFlags(flags) >= WHITELIST_SHORTCUT_PROBABILITY;
    }

    /// What the list holds behind the size field, in bytes; negative for a size that can not be.
    static int getShortcutListSizeAndForwardPointer(ByteReader* reader);

    /// Returns the count of code points stored.
    static int readShortcutTarget(ByteReader* reader, int maxLength, int* outCodePoints);
};

}  // namespace wordengine
