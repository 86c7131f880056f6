// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v2/shortcut_list_reading_utils.h"

#include "storage/byte_reader.h"

namespace wordengine {

ShortcutListReadingUtils::ShortcutFlags ShortcutListReadingUtils::getFlagsAndForwardPointer(
    ByteReader* reader) {
    return static_cast<ShortcutFlags>(reader->readUint8());
}

int ShortcutListReadingUtils::getShortcutListSizeAndForwardPointer(ByteReader* reader) {
    return static_cast<int>(reader->readUint16()) - SHORTCUT_LIST_SIZE_FIELD_SIZE;
}

int ShortcutListReadingUtils::readShortcutTarget(ByteReader* reader, int maxLength, int* outCodePoints) {
    return reader->readString(maxLength, outCodePoints);
}

}  // namespace wordengine
