// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/trie/pt_node_flags.h"
#include "storage/byte_array_view.h"

namespace wordengine {

class ByteReader;
class DictionaryBigramsStructurePolicy;
class DictionaryShortcutsStructurePolicy;

/// The fields of the read-only trie, in the order in which they stand in a node. All positions count from
/// the start of the body. What does not fit into the body fails the reader.
class PatriciaTrieReadingUtils : public PtNodeFlags {
public:
    using NodeFlags = wordengine::NodeFlags;

    PatriciaTrieReadingUtils() = delete;

    static constexpr NodeFlags MASK_CHILDREN_POSITION_TYPE = 0xC0;
    static constexpr NodeFlags FLAG_CHILDREN_POSITION_TYPE_NOPOSITION = 0x00;
    static constexpr NodeFlags FLAG_CHILDREN_POSITION_TYPE_ONEBYTE = 0x40;
    static constexpr NodeFlags FLAG_CHILDREN_POSITION_TYPE_TWOBYTES = 0x80;
    static constexpr NodeFlags FLAG_CHILDREN_POSITION_TYPE_THREEBYTES = 0xC0;

    static bool isTerminal(NodeFlags flags) { return (flags & FLAG_IS_TERMINAL) != 0; }
    static bool hasMultipleChars(NodeFlags flags) { return (flags & FLAG_HAS_MULTIPLE_CHARS) != 0; }
    static bool hasShortcutTargets(NodeFlags flags) { return (flags & FLAG_HAS_SHORTCUT_TARGETS) != 0; }
    static bool hasBigrams(NodeFlags flags) { return (flags & FLAG_HAS_BIGRAMS) != 0; }
    static bool isBlacklisted(NodeFlags flags) { return (flags & FLAG_IS_BLACKLISTED) != 0; }
    static bool isNotAWord(NodeFlags flags) { return (flags & FLAG_IS_NOT_A_WORD) != 0; }
    static bool hasChildrenInFlags(NodeFlags flags) {
        return (flags & MASK_CHILDREN_POSITION_TYPE) != FLAG_CHILDREN_POSITION_TYPE_NOPOSITION;
    }

    static int getPtNodeArraySizeAndAdvancePosition(ByteReader* reader);
    static NodeFlags getFlagsAndAdvancePosition(ByteReader* reader);
    static int getCodePointAndAdvancePosition(ByteReader* reader);
    /// Returns the count of the node's code points, of which `outCodePoints` has room for `maxLength`.
    static int getCharsAndAdvancePosition(ByteReader* reader, NodeFlags flags, int maxLength,
                                          int* outCodePoints);
    static int skipCharacters(ByteReader* reader, NodeFlags flags, int maxLength);
    static int readProbabilityAndAdvancePosition(ByteReader* reader);
    /// The position of the array of children; NO_DICT_POS for a node that has none.
    static int readChildrenPositionAndAdvancePosition(ByteReader* reader, NodeFlags flags);

    /// Moves behind the lists, which end a node; each position is NO_DICT_POS if there is no such list.
    static void skipLists(ByteReader* reader, NodeFlags flags,
                          const DictionaryShortcutsStructurePolicy* shortcutPolicy,
                          const DictionaryBigramsStructurePolicy* bigramPolicy, int* outShortcutPos,
                          int* outBigramPos);

    /// Reads a whole node; `outCodePoints` holds WORD_LENGTH_LIMIT. False if it does not lie in the body
    /// from its first byte to its last: then none of the results means anything.
    static bool readPtNodeInfo(ReadOnlyByteArrayView body, int ptNodePos,
                               const DictionaryShortcutsStructurePolicy* shortcutPolicy,
                               const DictionaryBigramsStructurePolicy* bigramPolicy, NodeFlags* outFlags,
                               int* outCodePointCount, int* outCodePoints, int* outProbability,
                               int* outChildrenPos, int* outShortcutPos, int* outBigramPos,
                               int* outSiblingPos);
};

}  // namespace wordengine
