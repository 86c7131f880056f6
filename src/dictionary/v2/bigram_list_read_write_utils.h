// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace wordengine {

class ByteReader;

/// The entries of the read-only format's bigram lists: a flags byte and an offset to the target.
class BigramListReadWriteUtils {
public:
    using BigramFlags = uint8_t;

    BigramListReadWriteUtils() = delete;

    static constexpr BigramFlags MASK_ATTRIBUTE_ADDRESS_TYPE = 0x30;
    static constexpr BigramFlags FLAG_ATTRIBUTE_ADDRESS_TYPE_ONEBYTE = 0x10;
    static constexpr BigramFlags FLAG_ATTRIBUTE_ADDRESS_TYPE_TWOBYTES = 0x20;
    static constexpr BigramFlags FLAG_ATTRIBUTE_ADDRESS_TYPE_THREEBYTES = 0x30;
    static constexpr BigramFlags FLAG_ATTRIBUTE_OFFSET_NEGATIVE = 0x40;
    static constexpr BigramFlags FLAG_ATTRIBUTE_HAS_NEXT = 0x80;
    static constexpr BigramFlags MASK_ATTRIBUTE_PROBABILITY = 0x0F;

    static int getProbabilityFromFlags(BigramFlags flags) { return flags & MASK_ATTRIBUTE_PROBABILITY; }
    static bool hasNext(BigramFlags flags) { return (flags & FLAG_ATTRIBUTE_HAS_NEXT) != 0; }

    /// False, with nothing stored, if the entry is not all there. Either result may be null.
    static bool getBigramEntryPropertiesAndAdvancePosition(ByteReader* reader, BigramFlags* outFlags,
                                                           int* outTargetPos);

    /// Counted from the address field's own first byte; that byte's position where there is no field.
    static int getBigramAddressAndAdvancePosition(ByteReader* reader, BigramFlags flags);

    /// False if the bytes end before the list does.
    static bool skipExistingBigrams(ByteReader* reader);
};

}  // namespace wordengine
