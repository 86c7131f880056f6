// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_structure_with_buffer_policy.h"
#include "dictionary/ngram_listener.h"
#include "text/engine_constants.h"

#include <map>
#include <utility>
#include <vector>

namespace wordengine::test {

/// A dictionary of plain maps: words by their code points, lists of pairs by the previous word's position.
class FakePolicy : public DictionaryStructureWithBufferPolicy {
public:
    int getTerminalPtNodePositionOfWord(const int* word, int length, bool forceLowerCase) const override {
        std::vector<int> codePoints(word, word + length);
        if (forceLowerCase) {
            for (int& codePoint : codePoints) codePoint += codePoint >= 'A' && codePoint <= 'Z' ? 32 : 0;
        }
        const auto found = words.find(codePoints);
        return found == words.end() ? NO_DICT_POS : found->second;
    }
    /// Tells both apart.
    int getProbability(int unigramProbability, int bigramProbability) const override {
        return unigramProbability * 1000 + bigramProbability;
    }
    int getProbabilityOfPtNode(const int* prevWordsPtNodePos, int ptNodePos) const override {
        ++directReadCount;
        const auto list = pairs.find(prevWordsPtNodePos[0]);
        if (list == pairs.end()) return NO_PROBABILITY;
        for (const auto& [target, probability] : list->second) {
            if (target == ptNodePos) return -1000 - probability;
        }
        return NO_PROBABILITY;
    }
    void iterateNgramEntries(const int* prevWordsPtNodePos, NgramListener* listener) const override {
        ++iterationCount;
        const auto list = pairs.find(prevWordsPtNodePos[0]);
        if (list == pairs.end()) return;
        for (const auto& [target, probability] : list->second) listener->onVisitEntry(probability, target);
    }

    int getRootPosition() const override { return 0; }
    void readChildren(int, DicNodeChildList*) const override {}
    int getCodePointsAndProbabilityAndReturnCodePointCount(int, int, int*, int*) const override { return 0; }
    int getShortcutPositionOfPtNode(int) const override { return NO_DICT_POS; }
    const DictionaryHeaderStructurePolicy* getHeaderStructurePolicy() const override { return nullptr; }
    const DictionaryShortcutsStructurePolicy* getShortcutsStructurePolicy() const override { return nullptr; }
    bool addUnigramEntry(const int*, int, const UnigramProperty*) override { return false; }
    bool removeUnigramEntry(const int*, int) override { return false; }
    bool addNgramEntry(const PrevWordsInfo*, const BigramProperty*) override { return false; }
    bool removeNgramEntry(const PrevWordsInfo*, const int*, int) override { return false; }
    bool flush(const char*) override { return false; }
    bool flushWithGC(const char*) override { return false; }
    bool needsToRunGC(bool) const override { return false; }
    void getProperty(const char*, int, char*, int) override {}
    int getNextWordAndNextToken(int, int*, int*) override { return 0; }
    bool isCorrupted() const override { return false; }

    std::map<std::vector<int>, int> words;
    std::map<int, std::vector<std::pair<int, int>>> pairs;
    mutable int iterationCount = 0;
    mutable int directReadCount = 0;
};

}  // namespace wordengine::test
