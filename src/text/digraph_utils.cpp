// SPDX-License-Identifier: Apache-2.0
#include "text/digraph_utils.h"

#include <iterator>

namespace wordengine {

int DigraphUtils::getAllDigraphsForDigraphTypeAndReturnSize(DigraphType digraphType,
                                                            const digraph_t** outDigraphs) {
    if (digraphType == DIGRAPH_TYPE_GERMAN_UMLAUT) {
        *outDigraphs = GERMAN_UMLAUT_DIGRAPHS;
        return static_cast<int>(std::size(GERMAN_UMLAUT_DIGRAPHS));
    }
    *outDigraphs = nullptr;
    return 0;
}

const DigraphUtils::digraph_t* DigraphUtils::getDigraphForDigraphTypeAndCodePoint(
    DigraphType digraphType, int compositeGlyphCodePoint) {
    const digraph_t* digraphs = nullptr;
    const int digraphCount = getAllDigraphsForDigraphTypeAndReturnSize(digraphType, &digraphs);
    if (digraphCount == 0) return nullptr;
    const int smallCodePoint = CharUtils::toLowerCase(compositeGlyphCodePoint);
    for (int i = 0; i < digraphCount; ++i) {
        if (digraphs[i].compositeGlyph == smallCodePoint) return &digraphs[i];
    }
    return nullptr;
}

const DigraphUtils::digraph_t* DigraphUtils::getDigraphForCodePoint(int compositeGlyphCodePoint) {
    for (const DigraphType digraphType : USED_DIGRAPH_TYPES) {
        const digraph_t* const digraph =
            getDigraphForDigraphTypeAndCodePoint(digraphType, compositeGlyphCodePoint);
        if (digraph) return digraph;
    }
    return nullptr;
}

int DigraphUtils::getDigraphCodePointForIndex(int compositeGlyphCodePoint,
                                              DigraphCodePointIndex digraphCodePointIndex) {
    if (digraphCodePointIndex == NOT_A_DIGRAPH_INDEX) return NO_CODE_POINT;
    const digraph_t* const digraph = getDigraphForCodePoint(compositeGlyphCodePoint);
    if (!digraph) return NO_CODE_POINT;
    switch (digraphCodePointIndex) {
        case FIRST_DIGRAPH_CODEPOINT:
            return digraph->first;
        case SECOND_DIGRAPH_CODEPOINT:
            return digraph->second;
        default:
            return NO_CODE_POINT;
    }
}

}  // namespace wordengine
