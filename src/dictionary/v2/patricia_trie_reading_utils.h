// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/trie/pt_node_flags.h"
#include "storage/byte_reader.h"
#include "text/engine_constants.h"

namespace wordengine {

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
    static NodeFlags getFlagsAndAdvancePosition(ByteReader* reader) {
        return static_cast<NodeFlags>(reader->readUint8());
    }
    static int getCodePointAndAdvancePosition(ByteReader* reader);
    /// Returns the count of the node's code points, of which `outCodePoints` has room for `maxLength`.
    static int getCharsAndAdvancePosition(ByteReader* reader, NodeFlags flags, int maxLength,
                                          int* outCodePoints) {
        if (hasMultipleChars(flags)) return reader->readString(maxLength, outCodePoints);
        const int codePoint = reader->readCodePoint();
        if (codePoint == NO_CODE_POINT) return 0;
        if (maxLength > 0) outCodePoints[0] = codePoint;
        return 1;
    }
    static int skipCharacters(ByteReader* reader, NodeFlags flags, int maxLength);
    static int readProbabilityAndAdvancePosition(ByteReader* reader) {
        return static_cast<int>(reader->readUint8());
    }
    /// The position of the array of children; NO_DICT_POS for a node that has none.
    static int readChildrenPositionAndAdvancePosition(ByteReader* reader, NodeFlags flags) {
        const int fieldPos = reader->position();
        switch (flags & MASK_CHILDREN_POSITION_TYPE) {
            case FLAG_CHILDREN_POSITION_TYPE_ONEBYTE:
                return fieldPos + static_cast<int>(reader->readUint8());
            case FLAG_CHILDREN_POSITION_TYPE_TWOBYTES:
                return fieldPos + static_cast<int>(reader->readUint16());
            case FLAG_CHILDREN_POSITION_TYPE_THREEBYTES:
                return fieldPos + static_cast<int>(reader->readUint24());
            default:
                return NO_DICT_POS;
        }
    }

    /// Moves behind the lists, which end a node; each position is NO_DICT_POS if there is no such list.
    static void skipLists(ByteReader* reader, NodeFlags flags,
                          const DictionaryShortcutsStructurePolicy* shortcutPolicy,
                          const DictionaryBigramsStructurePolicy* bigramPolicy, int* outShortcutPos,
                          int* outBigramPos);

    /// Reads a whole node and moves behind it; `outCodePoints` holds WORD_LENGTH_LIMIT. False if it does
    /// not lie in the body from its first byte to its last: then none of the results means anything.
    static bool readPtNodeInfo(ByteReader* reader, const DictionaryShortcutsStructurePolicy* shortcutPolicy,
                               const DictionaryBigramsStructurePolicy* bigramPolicy, NodeFlags* outFlags,
                               int* outCodePointCount, int* outCodePoints, int* outProbability,
                               int* outChildrenPos, int* outShortcutPos, int* outBigramPos) {
        const NodeFlags flags = getFlagsAndAdvancePosition(reader);
        *outFlags = flags;
        *outCodePointCount = getCharsAndAdvancePosition(reader, flags, WORD_LENGTH_LIMIT, outCodePoints);
        *outProbability = isTerminal(flags) ? readProbabilityAndAdvancePosition(reader) : NO_PROBABILITY;
        *outChildrenPos = readChildrenPositionAndAdvancePosition(reader, flags);
        *outShortcutPos = NO_DICT_POS;
        *outBigramPos = NO_DICT_POS;
        if (hasShortcutTargets(flags) || hasBigrams(flags)) {
            // A copy is sent out, so that the compiler may keep the reader itself in registers.
            ByteReader listReader = *reader;
            skipLists(&listReader, flags, shortcutPolicy, bigramPolicy, outShortcutPos, outBigramPos);
            *reader = listReader;
        }
        return reader->ok();
    }
};

}  // namespace wordengine
