// SPDX-License-Identifier: Apache-2.0
#include "keyboard/layout/key_frame_layout.h"

#include <algorithm>

namespace vorpel {

namespace {

bool hasSpace(const KeyRow& row) {
    return std::ranges::any_of(row, [](const auto& key) { return key->isSpace(); });
}

}  // namespace

bool KeyFrameLayout::characterRowHeuristic(const KeyRow& row) const {
    return !row.empty() && row[0]->isCharacter();
}

bool KeyFrameLayout::doubleSidedRowHeuristic(const KeyRow& row) const {
    return row.size() >= 3 && !row[0]->isCharacter() && row[1]->isCharacter() &&
           !row[0]->isLandscapeSpecific();
}

bool KeyFrameLayout::specialRowWithoutSpaceHeuristic(const KeyRow& row) const {
    return row.size() >= 3 && !row[0]->isCharacter() && !hasSpace(row) && !row[0]->isLandscapeSpecific();
}

bool KeyFrameLayout::landscapeCharacterRowBoolean(const KeyRow& row) const {
    return row.size() >= 2 && row[0]->isLandscapeSpecific() && row[1]->isCharacter();
}

bool KeyFrameLayout::landscapeDoubleSidedRowBoolean(const KeyRow& row) const {
    return row.size() >= 3 && row[0]->isLandscapeSpecific() && !row[1]->isCharacter() &&
           row[2]->isCharacter();
}

bool KeyFrameLayout::landscapeSpecialRowWithoutSpaceBoolean(const KeyRow& row) const {
    return row.size() >= 3 && !row[1]->isCharacter() && !hasSpace(row) && row[0]->isLandscapeSpecific();
}

bool KeyFrameLayout::landscapeSpecialKeysRowBoolean(const KeyRow& row) const {
    return row.size() >= 3 && row[0]->isLandscapeSpecific() && row[1]->isSpecial() && row[2]->isSpecial();
}

}  // namespace vorpel
