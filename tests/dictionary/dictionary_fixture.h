// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_structure_with_buffer_policy_factory.h"
#include "dictionary/ngram_listener.h"
#include "dictionary/v2/patricia_trie_policy.h"
#include "storage/mmapped_buffer.h"
#include "support/memory_file.h"
#include "support/trie_assembler.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace wordengine::test {

inline std::unique_ptr<PatriciaTriePolicy> openFile(const Bytes& file) {
    const vorpel::testing::MemoryFile memory(file);
    return std::make_unique<PatriciaTriePolicy>(MmappedBuffer::openBuffer(memory.path().c_str(), false));
}

inline std::unique_ptr<PatriciaTriePolicy> openBody(const Bytes& body) {
    return openFile(TrieAssembler::fileOf(body));
}

inline std::vector<int> codePointsOf(const std::u32string& text) {
    return std::vector<int>(text.begin(), text.end());
}

inline int positionOf(const DictionaryStructureWithBufferPolicy& policy, const std::u32string& word,
                      bool forceLowerCaseSearch = false) {
    const std::vector<int> codePoints = codePointsOf(word);
    return policy.getTerminalPtNodePositionOfWord(codePoints.data(), static_cast<int>(codePoints.size()),
                                                  forceLowerCaseSearch);
}

/// The word of a position; "" if there is none.
inline std::u32string wordAt(const DictionaryStructureWithBufferPolicy& policy, int position,
                             int* outProbability = nullptr, int maxCodePointCount = WORD_LENGTH_LIMIT) {
    int codePoints[WORD_LENGTH_LIMIT];
    int probability = 0;
    const int length = policy.getCodePointsAndProbabilityAndReturnCodePointCount(position, maxCodePointCount,
                                                                                 codePoints, &probability);
    if (outProbability != nullptr) *outProbability = probability;
    return std::u32string(codePoints, codePoints + length);
}

/// All words in the order of the walk.
inline std::vector<std::u32string> walkWords(DictionaryStructureWithBufferPolicy* policy) {
    std::vector<std::u32string> words;
    int token = 0;
    do {
        int codePoints[WORD_LENGTH_LIMIT];
        int length = -1;
        token = policy->getNextWordAndNextToken(token, codePoints, &length);
        if (length >= 0) words.emplace_back(codePoints, codePoints + length);
    } while (token != 0);
    return words;
}

/// Keeps what a list holds.
struct RecordingListener final : NgramListener {
    void onVisitEntry(int ngramProbability, int targetPtNodePos) override {
        entries.emplace_back(targetPtNodePos, ngramProbability);
    }
    std::vector<std::pair<int, int>> entries;
};

}  // namespace wordengine::test
