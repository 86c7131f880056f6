// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_header_structure_policy.h"
#include "dictionary/dictionary_shortcuts_structure_policy.h"
#include "dictionary/dictionary_structure_with_buffer_policy.h"
#include "dictionary/ngram_listener.h"
#include "node/dic_node.h"
#include "node/dic_node_vector.h"
#include "text/char_utils.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace wordengine::testing {

using CodePoints = std::vector<int>;

inline CodePoints codePointsOf(const std::u32string& text) {
    return CodePoints(text.begin(), text.end());
}

/// A dictionary in plain maps, for searches without a file. A position is the index of a letter's node;
/// chains of letters without a choice are handed out as one merged node, or letter by letter. A pair's
/// probability stands as it is for the word after its partner.
class PlainDictionary final : public DictionaryStructureWithBufferPolicy {
public:
    class Header final : public DictionaryHeaderStructurePolicy {
    public:
        int getFormatVersionNumber() const override { return 2; }
        int getSize() const override { return 0; }
        const AttributeMap* getAttributeMap() const override { return &attributes; }
        bool requiresGermanUmlautProcessing() const override { return usesUmlauts; }
        float getMultiWordCostMultiplier() const override { return multiWordCostMultiplier; }
        void readHeaderValueOrQuestionMark(const char*, int* outValue, int outValueSize) const override {
            if (outValueSize > 0) outValue[0] = 0;
        }
        bool shouldBoostExactMatches() const override { return boostsExactMatches; }
        const std::vector<int>* getLocale() const override { return &locale; }
        bool supportsBeginningOfSentence() const override { return true; }

        bool usesUmlauts = false;
        bool boostsExactMatches = true;
        float multiWordCostMultiplier = 1.0f;
        AttributeMap attributes;
        std::vector<int> locale;
    };

    enum class Chains { Merged, LetterByLetter };

    explicit PlainDictionary(Chains chains = Chains::Merged) : shortcuts_(this), chains_(chains) {}
    PlainDictionary(PlainDictionary&& other)
        : header(std::move(other.header)),
          nodes_(std::move(other.nodes_)),
          shortcuts_(this),
          chains_(other.chains_) {}

    /// A word may be added again to change its probability.
    PlainDictionary& word(const std::u32string& text, int probability, bool isNotAWord = false) {
        Node& node = nodes_[static_cast<size_t>(insert(text))];
        node.isTerminal = true;
        node.probability = probability;
        node.isNotAWord = isNotAWord;
        return *this;
    }
    PlainDictionary& pair(const std::u32string& first, const std::u32string& second, int probability) {
        const int target = insert(second);
        nodes_[static_cast<size_t>(insert(first))].pairs.push_back({probability, target});
        return *this;
    }
    PlainDictionary& shortcut(const std::u32string& from, const std::u32string& target, bool isWhitelist) {
        nodes_[static_cast<size_t>(insert(from))].shortcuts.push_back({codePointsOf(target), isWhitelist});
        return *this;
    }

    Header header;

    int getRootPosition() const override { return ROOT; }

    void readChildren(int ptNodeArrayPos, DicNodeChildList* outChildren) const override {
        for (const auto& [codePoint, child] : nodeAt(ptNodeArrayPos).children) {
            CodePoints merged{codePoint};
            int last = child;
            while (chains_ == Chains::Merged && !nodeAt(last).isTerminal &&
                   nodeAt(last).children.size() == 1) {
                merged.push_back(nodeAt(last).children.begin()->first);
                last = nodeAt(last).children.begin()->second;
            }
            const Node& node = nodeAt(last);
            outChildren->add(last, last, node.probability, node.isTerminal, !node.children.empty(),
                             node.isNotAWord, static_cast<int>(merged.size()), merged.data());
        }
    }

    int getCodePointsAndProbabilityAndReturnCodePointCount(int ptNodePos, int maxCodePointCount,
                                                           int* outCodePoints,
                                                           int* outUnigramProbability) const override {
        *outUnigramProbability = nodeAt(ptNodePos).probability;
        CodePoints word;
        for (int i = ptNodePos; i != ROOT; i = nodeAt(i).parent) word.push_back(nodeAt(i).codePoint);
        if (static_cast<int>(word.size()) > maxCodePointCount) return 0;
        std::copy(word.rbegin(), word.rend(), outCodePoints);
        return static_cast<int>(word.size());
    }

    int getTerminalPtNodePositionOfWord(const int* word, int length, bool forceLowerCase) const override {
        int position = ROOT;
        for (int i = 0; i < length; ++i) {
            const auto& children = nodeAt(position).children;
            const auto child = children.find(forceLowerCase ? CharUtils::toLowerCase(word[i]) : word[i]);
            if (child == children.end()) return NO_DICT_POS;
            position = child->second;
        }
        return nodeAt(position).isTerminal ? position : NO_DICT_POS;
    }

    int getProbability(int unigramProbability, int bigramProbability) const override {
        return unigramProbability == NO_PROBABILITY || bigramProbability == NO_PROBABILITY
                   ? unigramProbability
                   : bigramProbability;
    }

    int getProbabilityOfPtNode(const int* prevWordsPtNodePos, int ptNodePos) const override {
        if (ptNodePos == NO_DICT_POS) return NO_PROBABILITY;
        if (!prevWordsPtNodePos) return nodeAt(ptNodePos).probability;
        if (prevWordsPtNodePos[0] == NO_DICT_POS) return NO_PROBABILITY;
        for (const auto& [probability, target] : nodeAt(prevWordsPtNodePos[0]).pairs) {
            if (target == ptNodePos) return probability;
        }
        return NO_PROBABILITY;
    }

    void iterateNgramEntries(const int* prevWordsPtNodePos, NgramListener* listener) const override {
        if (!prevWordsPtNodePos || prevWordsPtNodePos[0] == NO_DICT_POS) return;
        for (const auto& [probability, target] : nodeAt(prevWordsPtNodePos[0]).pairs) {
            listener->onVisitEntry(probability, target);
        }
    }

    int getShortcutPositionOfPtNode(int ptNodePos) const override {
        return nodeAt(ptNodePos).shortcuts.empty() ? NO_DICT_POS : ptNodePos * MAX_SHORTCUTS;
    }

    const DictionaryHeaderStructurePolicy* getHeaderStructurePolicy() const override { return &header; }
    const DictionaryShortcutsStructurePolicy* getShortcutsStructurePolicy() const override {
        return &shortcuts_;
    }

    bool addUnigramEntry(const int*, int, const UnigramProperty*) override { return false; }
    bool removeUnigramEntry(const int*, int) override { return false; }
    bool addNgramEntry(const PrevWordsInfo*, const BigramProperty*) override { return false; }
    bool removeNgramEntry(const PrevWordsInfo*, const int*, int) override { return false; }
    bool flush(const char*) override { return false; }
    bool flushWithGC(const char*) override { return false; }
    bool needsToRunGC(bool) const override { return false; }
    void getProperty(const char*, int, char* outResult, int maxResultLength) override {
        if (maxResultLength > 0) outResult[0] = '\0';
    }
    int getNextWordAndNextToken(int, int*, int*) override { return 0; }
    bool isCorrupted() const override { return false; }

private:
    static constexpr int ROOT = 0;
    static constexpr int MAX_SHORTCUTS = 256;

    struct Node {
        int codePoint = NO_CODE_POINT;
        int parent = ROOT;
        std::map<int, int> children;
        bool isTerminal = false;
        bool isNotAWord = false;
        int probability = NO_PROBABILITY;
        std::vector<std::pair<int, int>> pairs;
        std::vector<std::pair<CodePoints, bool>> shortcuts;
    };

    class Shortcuts final : public DictionaryShortcutsStructurePolicy {
    public:
        explicit Shortcuts(const PlainDictionary* dictionary) : dictionary_(dictionary) {}

        int getStartPos(int pos) const override { return pos; }
        void getNextShortcut(int maxCodePointCount, int* outCodePoint, int* outCodePointCount,
                             bool* outIsWhitelist, bool* outHasNext, int* pos) const override {
            const auto& list = dictionary_->nodeAt(*pos / MAX_SHORTCUTS).shortcuts;
            const auto& [target, isWhitelist] = list[static_cast<size_t>(*pos % MAX_SHORTCUTS)];
            const int count = std::min(static_cast<int>(target.size()), maxCodePointCount);
            if (outCodePoint) std::copy_n(target.begin(), count, outCodePoint);
            if (outCodePointCount) *outCodePointCount = count;
            if (outIsWhitelist) *outIsWhitelist = isWhitelist;
            ++*pos;
            if (outHasNext) *outHasNext = static_cast<size_t>(*pos % MAX_SHORTCUTS) < list.size();
        }
        void skipAllShortcuts(int*) const override {}

    private:
        const PlainDictionary* const dictionary_;
    };

    const Node& nodeAt(int position) const { return nodes_.at(static_cast<size_t>(position)); }

    int insert(const std::u32string& text) {
        int position = ROOT;
        for (const char32_t letter : text) {
            const int codePoint = static_cast<int>(letter);
            auto& children = nodes_[static_cast<size_t>(position)].children;
            const auto [child, isNew] = children.try_emplace(codePoint, static_cast<int>(nodes_.size()));
            const int next = child->second;
            if (isNew) {
                nodes_.emplace_back();
                nodes_.back().codePoint = codePoint;
                nodes_.back().parent = position;
            }
            position = next;
        }
        return position;
    }

    std::vector<Node> nodes_{1};
    Shortcuts shortcuts_;
    Chains chains_;
};

}  // namespace wordengine::testing
