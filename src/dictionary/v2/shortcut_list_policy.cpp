// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v2/shortcut_list_policy.h"

#include "dictionary/v2/shortcut_list_reading_utils.h"
#include "storage/byte_reader.h"
#include "text/engine_constants.h"

namespace wordengine {

int ShortcutListPolicy::getStartPos(int pos) const {
    ByteReader reader(body_, pos);
    reader.skip(ShortcutListReadingUtils::SHORTCUT_LIST_SIZE_FIELD_SIZE);
    return reader.ok() ? reader.position() : NO_DICT_POS;
}

void ShortcutListPolicy::getNextShortcut(int maxCodePointCount, int* outCodePoint, int* outCodePointCount,
                                         bool* outIsWhitelist, bool* outHasNext, int* pos) const {
    ByteReader reader(body_, *pos);
    const ShortcutListReadingUtils::ShortcutFlags flags =
        ShortcutListReadingUtils::getFlagsAndForwardPointer(&reader);
    int codePointCount = 0;
    if (outCodePoint != nullptr) {
        codePointCount =
            ShortcutListReadingUtils::readShortcutTarget(&reader, maxCodePointCount, outCodePoint);
    }
    const bool isWhole = reader.ok();
    if (outHasNext != nullptr) *outHasNext = isWhole && ShortcutListReadingUtils::hasNext(flags);
    if (outIsWhitelist != nullptr) *outIsWhitelist = isWhole && ShortcutListReadingUtils::isWhitelist(flags);
    if (outCodePoint != nullptr && outCodePointCount != nullptr) {
        *outCodePointCount = isWhole ? codePointCount : 0;
    }
    *pos = reader.position();
}

void ShortcutListPolicy::skipAllShortcuts(int* pos) const {
    ByteReader reader(body_, *pos);
    // A size too small for its own field would lead back to where the list begins.
    reader.skip(ShortcutListReadingUtils::getShortcutListSizeAndForwardPointer(&reader));
    *pos = reader.ok() ? reader.position() : NO_DICT_POS;
}

}  // namespace wordengine
