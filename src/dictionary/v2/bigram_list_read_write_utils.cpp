// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v2/bigram_list_read_write_utils.h"

#include "storage/byte_reader.h"

namespace wordengine {

namespace {

/// The address type counts the bytes.
int addressSizeOf(BigramListReadWriteUtils::BigramFlags flags) {
    constexpr int ADDRESS_TYPE_SHIFT = 4;
    return (flags & BigramListReadWriteUtils::MASK_ATTRIBUTE_ADDRESS_TYPE) >> ADDRESS_TYPE_SHIFT;
}

}  // namespace

bool BigramListReadWriteUtils::getBigramEntryPropertiesAndAdvancePosition(ByteReader* reader,
                                                                          BigramFlags* outFlags,
                                                                          int* outTargetPos) {
    const BigramFlags flags = static_cast<BigramFlags>(reader->readUint8());
    const int targetPos = getBigramAddressAndAdvancePosition(reader, flags);
    if (!reader->ok()) return false;
    if (outFlags != nullptr) *outFlags = flags;
    if (outTargetPos != nullptr) *outTargetPos = targetPos;
    return true;
}

int BigramListReadWriteUtils::getBigramAddressAndAdvancePosition(ByteReader* reader, BigramFlags flags) {
    const int origin = reader->position();
    const int addressSize = addressSizeOf(flags);
    const int offset = addressSize == 0 ? 0 : static_cast<int>(reader->readUint(addressSize));
    return (flags & FLAG_ATTRIBUTE_OFFSET_NEGATIVE) != 0 ? origin - offset : origin + offset;
}

bool BigramListReadWriteUtils::skipExistingBigrams(ByteReader* reader) {
    BigramFlags flags = FLAG_ATTRIBUTE_HAS_NEXT;
    while (hasNext(flags) && reader->ok()) {
        flags = static_cast<BigramFlags>(reader->readUint8());
        reader->skip(addressSizeOf(flags));
    }
    return reader->ok();
}

}  // namespace wordengine
