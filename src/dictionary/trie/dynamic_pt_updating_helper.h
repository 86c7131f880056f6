// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/trie/pt_node_params.h"
#include "storage/buffer_with_extendable_buffer.h"
#include "storage/int_array_view.h"

#include <optional>

namespace wordengine {

class BigramProperty;
class DynamicPtReadingHelper;
class PtNodeReader;
class PtNodeWriter;
class UnigramProperty;

/// Puts words into a trie that can change. What is new goes to the tail of the buffer, and what leads to it
/// is written last: a write that is refused in between leaves bytes that nothing leads to. Everything is
/// false where a write was refused or the trie is damaged. Buffer, reader and writer must outlive it.
class DynamicPtUpdatingHelper {
public:
    static constexpr int CHILDREN_POSITION_FIELD_SIZE = 3;

    DynamicPtUpdatingHelper(BufferWithExtendableBuffer* buffer, const PtNodeReader* ptNodeReader,
                            PtNodeWriter* ptNodeWriter)
        : buffer_(buffer), ptNodeReader_(ptNodeReader), ptNodeWriter_(ptNodeWriter) {}

    /// From the array under the helper's cursor. A word that is there already is updated, and is then no
    /// new one.
    bool addUnigramWord(DynamicPtReadingHelper* readingHelper, const int* word, int length,
                        const UnigramProperty* unigramProperty, bool* outAddedNewUnigram);

    // All positions are of the words' terminal nodes.

    bool addNgramEntry(IntArrayView prevWordsPtNodePos, int wordPos, const BigramProperty* bigramProperty,
                       bool* outAddedNewEntry);
    bool removeNgramEntry(IntArrayView prevWordsPtNodePos, int wordPos);
    bool addShortcutTarget(int wordPos, const int* targetCodePoints, int targetCodePointCount,
                           int shortcutProbability);

private:
    struct PairIds {
        int previous;
        int word;
    };

    [[nodiscard]] std::optional<PairIds> terminalIdsOf(IntArrayView prevWordsPtNodePos, int wordPos) const;

    /// The letters of a word that no node has yet.
    struct Rest {
        const int* codePoints;
        int count;
    };

    bool setPtNodeProbability(const PtNodeParams& ptNodeParams, const UnigramProperty* unigramProperty,
                              bool* outAddedNewUnigram);
    bool createAndInsertNodeIntoPtNodeArray(int parentPos, Rest rest, const UnigramProperty* unigramProperty,
                                            int forwardLinkFieldPos);
    bool createChildrenPtNodeArrayAndAChildPtNode(const PtNodeParams& parent, Rest rest,
                                                  const UnigramProperty* unigramProperty);
    bool createNewPtNodeArrayWithAChildPtNode(int parentPos, Rest rest,
                                              const UnigramProperty* unigramProperty, int* pos);
    bool reallocatePtNodeAndAddNewPtNodes(const PtNodeParams& ptNodeParams, int overlappingCodePointCount,
                                          Rest rest, const UnigramProperty* unigramProperty);
    bool writePrefix(const PtNodeParams& ptNodeParams, int overlappingCodePointCount, bool isWord,
                     const UnigramProperty* unigramProperty, int* outPrefixPos);
    bool writePartsBelowPrefix(const PtNodeParams& ptNodeParams, int overlappingCodePointCount, int prefixPos,
                               Rest rest, const UnigramProperty* unigramProperty, int* outOldPartPos);
    bool writeNewTerminal(int parentPos, Rest rest, const UnigramProperty* unigramProperty, int* pos);

    BufferWithExtendableBuffer* buffer_;
    const PtNodeReader* ptNodeReader_;
    PtNodeWriter* ptNodeWriter_;
};

}  // namespace wordengine
