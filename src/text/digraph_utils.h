// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "text/char_utils.h"
#include "text/engine_constants.h"

namespace wordengine {

/// Letters that may be typed as two: "ue" for "ü". Stateless; the tables are constant.
///
/// Two operations ask a dictionary's header which digraphs it uses. They are templates over anything
/// with `bool requiresGermanUmlautProcessing() const`, since headers live in a layer above this one.
class DigraphUtils {
public:
    enum DigraphType {
        DIGRAPH_TYPE_NONE = 0,
        DIGRAPH_TYPE_GERMAN_UMLAUT = 1,
    };

    enum DigraphCodePointIndex {
        NOT_A_DIGRAPH_INDEX = 0,
        FIRST_DIGRAPH_CODEPOINT = 1,
        SECOND_DIGRAPH_CODEPOINT = 2,
    };

    struct digraph_t {
        int first;
        int second;
        int compositeGlyph;
    };

    static constexpr digraph_t GERMAN_UMLAUT_DIGRAPHS[] = {
        {'a', 'e', 0x00E4}, {'o', 'e', 0x00F6}, {'u', 'e', 0x00FC}};
    static constexpr DigraphType USED_DIGRAPH_TYPES[] = {DIGRAPH_TYPE_GERMAN_UMLAUT};

    DigraphUtils() = delete;

    template <class HeaderPolicy>
    [[nodiscard]] static DigraphType getDigraphTypeForDictionary(const HeaderPolicy* headerPolicy) {
        return headerPolicy->requiresGermanUmlautProcessing() ? DIGRAPH_TYPE_GERMAN_UMLAUT
                                                              : DIGRAPH_TYPE_NONE;
    }

    /// Whether the dictionary lets this letter, small or capital, be typed as two.
    template <class HeaderPolicy>
    [[nodiscard]] static bool hasDigraphForCodePoint(const HeaderPolicy* headerPolicy,
                                                     int compositeGlyphCodePoint) {
        return getDigraphForDigraphTypeAndCodePoint(getDigraphTypeForDictionary(headerPolicy),
                                                    compositeGlyphCodePoint) != nullptr;
    }

    /// Points `*outDigraphs` at the table of the type and returns its length; null and 0 without one.
    static int getAllDigraphsForDigraphTypeAndReturnSize(DigraphType digraphType,
                                                         const digraph_t** outDigraphs);

    /// The digraph of a letter, small or capital; null if it has none.
    [[nodiscard]] static const digraph_t* getDigraphForDigraphTypeAndCodePoint(DigraphType digraphType,
                                                                               int compositeGlyphCodePoint);

    /// As above over all types in use, whatever the dictionary.
    [[nodiscard]] static const digraph_t* getDigraphForCodePoint(int compositeGlyphCodePoint);

    /// The first or second letter of the digraph of a letter; NO_CODE_POINT for index 0 and for a
    /// letter without one.
    [[nodiscard]] static int getDigraphCodePointForIndex(int compositeGlyphCodePoint,
                                                         DigraphCodePointIndex digraphCodePointIndex);
};

}  // namespace wordengine
