// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/ver4_dict_buffers.h"
#include "dictionary/v4/ver4_patricia_trie_node_reader.h"
#include "dictionary/v4/ver4_patricia_trie_node_writer.h"

#include <vector>

namespace wordengine {

/// Garbage collection: makes a new dictionary of what is worth keeping of one that has been changed.
class Ver4PatriciaTrieWritingHelper {
public:
    /// The buffers must outlive the helper.
    explicit Ver4PatriciaTrieWritingHelper(Ver4DictBuffers* buffers) : buffers_(buffers) {}

    /// Copies into the empty `buffersToWrite`, of the same layout, all that time has left. False where the
    /// old dictionary is damaged or the new one full. Marks what goes in the old one, which must be opened
    /// anew before it is changed or saved again, whatever the outcome.
    ///
    /// @param outUnigramCount the words, without the marks of sentences
    bool runGC(int rootPtNodeArrayPos, Ver4DictBuffers* buffersToWrite, int* outUnigramCount,
               int* outBigramCount);

private:
    /// What reads and writes one dictionary.
    struct Access;

    /// What is worth least, from the front of a queue.
    struct DictProbability {
        int dictPos;
        int probability;
        int timestamp;
    };

    bool markWhatGoes(Access* access, int rootPos);
    bool truncateUnigrams(Access* access, int maxUnigramCount);
    bool truncateBigrams(int maxBigramCount);
    bool copyTrie(Access* from, int rootPos, Access* to);
    static bool renumber(Access* access, const TerminalIdMap& terminalIdMap, int* outUnigramCount);
    static std::vector<DictProbability> leastBeyond(std::vector<DictProbability> entries, int maxCount);

    Ver4DictBuffers* buffers_;
};

}  // namespace wordengine
