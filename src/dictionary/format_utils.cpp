// SPDX-License-Identifier: Apache-2.0
#include "dictionary/format_utils.h"

#include "storage/byte_reader.h"

namespace wordengine {

FormatUtils::FORMAT_VERSION FormatUtils::getFormatVersion(int formatVersion) {
    switch (formatVersion) {
        case VERSION_2:
        case VERSION_399:
        case VERSION_402:
        case VERSION_403:
            return static_cast<FORMAT_VERSION>(formatVersion);
        default:
            return UNKNOWN_VERSION;
    }
}

FormatUtils::FORMAT_VERSION FormatUtils::detectFormatVersion(const uint8_t* dict, int dictSize) {
    if (dictSize < DICTIONARY_MINIMUM_SIZE) return UNKNOWN_VERSION;
    ByteReader reader(dict, dictSize);
    if (reader.readUint32() != MAGIC_NUMBER) return UNKNOWN_VERSION;
    return getFormatVersion(static_cast<int>(reader.readUint16()));
}

}  // namespace wordengine
