// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/ver4_shortcut_list_policy.h"

#include "text/engine_constants.h"

namespace wordengine {

namespace {

// The highest of four bits: the word is always to give way to the target.
constexpr int WHITELIST_PROBABILITY = 15;

}  // namespace

void Ver4ShortcutListPolicy::getNextShortcut(int maxCodePointCount, int* outCodePoint, int* outCodePointCount,
                                             bool* outIsWhitelist, bool* outHasNext, int* pos) const {
    int probability = NO_PROBABILITY;
    shortcutDictContent_->getShortcutEntryAndAdvancePosition(
        maxCodePointCount, outCodePoint, outCodePointCount, &probability, outHasNext, pos);
    if (outIsWhitelist) *outIsWhitelist = probability == WHITELIST_PROBABILITY;
}

bool Ver4ShortcutListPolicy::addNewShortcut(int terminalId, const int* targetCodePoints,
                                            int targetCodePointCount, int shortcutProbability) {
    const int listPos = shortcutDictContent_->getShortcutListHeadPos(terminalId);
    if (listPos != NO_DICT_POS) {
        const int entryPos =
            shortcutDictContent_->findShortcutEntryAndGetPos(listPos, targetCodePoints, targetCodePointCount);
        if (entryPos != NO_DICT_POS) {
            return shortcutDictContent_->setProbability(shortcutProbability, entryPos);
        }
    }
    const int newListPos = shortcutDictContent_->getContentTailPos();
    int pos = newListPos;
    const bool hasNext = listPos != NO_DICT_POS;
    if (!shortcutDictContent_->writeShortcutEntryAndAdvancePosition(targetCodePoints, targetCodePointCount,
                                                                    shortcutProbability, hasNext, &pos)) {
        return false;
    }
    if (hasNext && !shortcutDictContent_->copyShortcutList(listPos, pos)) return false;
    return shortcutDictContent_->setShortcutListHead(terminalId, newListPos);
}

}  // namespace wordengine
