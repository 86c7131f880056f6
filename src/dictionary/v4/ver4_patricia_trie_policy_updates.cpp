// SPDX-License-Identifier: Apache-2.0
// How a dictionary that learns is changed.
#include "dictionary/prev_words_info.h"
#include "dictionary/v4/forgetting_curve_utils.h"
#include "dictionary/v4/ver4_patricia_trie_policy.h"
#include "dictionary/v4/ver4_patricia_trie_writing_helper.h"
#include "storage/byte_array_utils.h"

#include <algorithm>
#include <array>

namespace wordengine {

namespace {

/// A word as it stands in the trie, with the mark of a sentence's beginning where it has one.
class StoredWord {
public:
    StoredWord(const int* word, int length, bool beginsSentence) {
        if (word == nullptr || length < 0 || length > WORD_LENGTH_LIMIT) return;
        const bool needsMark = beginsSentence && (length == 0 || word[0] != CODE_POINT_BEGINNING_OF_SENTENCE);
        if (length + (needsMark ? 1 : 0) > WORD_LENGTH_LIMIT) return;
        if (needsMark) codePoints_[0] = CODE_POINT_BEGINNING_OF_SENTENCE;
        length_ = length + (needsMark ? 1 : 0);
        std::copy_n(word, length, codePoints_.begin() + (needsMark ? 1 : 0));
    }

    /// Whether all of it comes back as it was written.
    [[nodiscard]] bool canBeStored() const {
        return length_ > 0 &&
               std::all_of(codePoints_.begin(), codePoints_.begin() + length_, ByteArrayUtils::canBeStored);
    }
    [[nodiscard]] const int* codePoints() const { return codePoints_.data(); }
    [[nodiscard]] int length() const { return length_; }

private:
    std::array<int, WORD_LENGTH_LIMIT> codePoints_{};
    int length_ = 0;
};

bool canTargetBeStored(const std::vector<int>& target) {
    return !target.empty() && target.size() <= WORD_LENGTH_LIMIT &&
           std::ranges::all_of(target, ByteArrayUtils::canBeStored);
}

}  // namespace

bool Ver4PatriciaTriePolicy::canChange() const {
    return buffers_->isUpdatable() && !isCorrupted_ && !isCollected_ &&
           trieBuffer_->getTailPosition() < MIN_DICT_SIZE_TO_REFUSE_DYNAMIC_OPERATIONS;
}

bool Ver4PatriciaTriePolicy::addUnigramEntry(const int* word, int length,
                                             const UnigramProperty* unigramProperty) {
    if (!canChange()) return false;
    const auto canBeStored = [](const UnigramProperty::ShortcutProperty& shortcut) {
        return canTargetBeStored(shortcut.getTargetCodePoints());
    };
    const bool beginsSentence = unigramProperty->representsBeginningOfSentence();
    const StoredWord stored(word, length, beginsSentence);
    // Refused before anything is written.
    if (!stored.canBeStored() || !std::ranges::all_of(unigramProperty->getShortcuts(), canBeStored) ||
        !ProbabilityEntry::canBeStored(unigramProperty->getProbability(),
                                       headerPolicy_->hasHistoricalInfoOfWords())) {
        return false;
    }
    renewIdentity();
    DynamicPtReadingHelper helper = createReadingHelper(getRootPosition());
    bool isNew = false;
    if (!updatingHelper_.addUnigramWord(&helper, stored.codePoints(), stored.length(), unigramProperty,
                                        &isNew)) {
        noteDamage(helper.isError());
        return false;
    }
    if (isNew && !beginsSentence) ++unigramCount_;
    if (unigramProperty->getShortcuts().empty()) return true;
    return addShortcuts(getTerminalPtNodePositionOfWord(stored.codePoints(), stored.length(), false),
                        *unigramProperty);
}

bool Ver4PatriciaTriePolicy::addShortcuts(int wordPos, const UnigramProperty& unigramProperty) {
    if (wordPos == NO_DICT_POS) return false;
    return std::ranges::all_of(
        unigramProperty.getShortcuts(), [&](const UnigramProperty::ShortcutProperty& shortcut) {
            const std::vector<int>& target = shortcut.getTargetCodePoints();
            return updatingHelper_.addShortcutTarget(wordPos, target.data(), static_cast<int>(target.size()),
                                                     shortcut.getProbability());
        });
}

bool Ver4PatriciaTriePolicy::removeUnigramEntry(const int* word, int length) {
    if (!canChange()) return false;
    const PtNodeParams found = fetchLivingWord(getTerminalPtNodePositionOfWord(word, length, false));
    if (!found.isValid()) return false;
    renewIdentity();
    if (!nodeWriter_.markPtNodeAsDeleted(&found)) return false;
    // Asked of the whole word: the mark may stand in a node before this one.
    if (word[0] != CODE_POINT_BEGINNING_OF_SENTENCE) --unigramCount_;
    return true;
}

int Ver4PatriciaTriePolicy::getPositionOfPreviousWord(const PrevWordsInfo& prevWordsInfo) const {
    int pos = NO_DICT_POS;
    prevWordsInfo.getPrevWordsTerminalPtNodePos(this, &pos, /* tryLowerCaseSearch */ false);
    return pos;
}

bool Ver4PatriciaTriePolicy::addBeginningOfSentence(const int* word, int length) {
    constexpr int HIGHEST_PROBABILITY = 255;
    const UnigramProperty property(/* representsBeginningOfSentence */ true, /* isNotAWord */ true,
                                   /* isBlacklisted */ false, HIGHEST_PROBABILITY,
                                   HistoricalInfo::NOT_A_TIMESTAMP, 0, 0);
    return addUnigramEntry(word, length, &property);
}

bool Ver4PatriciaTriePolicy::addNgramEntry(const PrevWordsInfo* prevWordsInfo,
                                           const BigramProperty* bigramProperty) {
    const std::vector<int>& target = bigramProperty->getTargetCodePoints();
    if (!canChange() || !prevWordsInfo->isValid() || target.size() > WORD_LENGTH_LIMIT) return false;
    const int wordPos =
        getTerminalPtNodePositionOfWord(target.data(), static_cast<int>(target.size()), false);
    if (wordPos == NO_DICT_POS) return false;
    int previousPos = getPositionOfPreviousWord(*prevWordsInfo);
    if (previousPos == NO_DICT_POS && prevWordsInfo->isNthPrevWordBeginningOfSentence(1)) {
        if (!addBeginningOfSentence(prevWordsInfo->getNthPrevWordCodePoints(1),
                                    prevWordsInfo->getNthPrevWordCodePointCount(1))) {
            return false;
        }
        previousPos = getPositionOfPreviousWord(*prevWordsInfo);
    }
    if (previousPos == NO_DICT_POS) return false;
    renewIdentity();
    bool isNew = false;
    // Looked up anew: adding the mark may have moved the word.
    const int targetPos =
        getTerminalPtNodePositionOfWord(target.data(), static_cast<int>(target.size()), false);
    if (!updatingHelper_.addNgramEntry(IntArrayView(&previousPos, 1), targetPos, bigramProperty, &isNew)) {
        return false;
    }
    if (isNew) ++bigramCount_;
    return true;
}

bool Ver4PatriciaTriePolicy::removeNgramEntry(const PrevWordsInfo* prevWordsInfo, const int* word,
                                              int length) {
    if (!canChange() || !prevWordsInfo->isValid()) return false;
    const int wordPos = getTerminalPtNodePositionOfWord(word, length, false);
    const int previousPos = getPositionOfPreviousWord(*prevWordsInfo);
    if (wordPos == NO_DICT_POS || previousPos == NO_DICT_POS) return false;
    renewIdentity();
    if (!updatingHelper_.removeNgramEntry(IntArrayView(&previousPos, 1), wordPos)) return false;
    --bigramCount_;
    return true;
}

bool Ver4PatriciaTriePolicy::needsToRunGC(bool mindsBlockByGC) const {
    if (!buffers_->isUpdatable()) return false;
    if (buffers_->isNearSizeLimit()) return true;
    const int64_t extendedRegionSize = static_cast<int64_t>(headerPolicy_->getExtendedRegionSize()) +
                                       trieBuffer_->getUsedAdditionalBufferSize();
    if (extendedRegionSize > Ver4DictConstants::MAX_DICT_EXTENDED_REGION_SIZE) return true;
    if (trieBuffer_->getTailPosition() >= MIN_DICT_SIZE_TO_REFUSE_DYNAMIC_OPERATIONS) return true;
    return headerPolicy_->isDecayingDict() &&
           ForgettingCurveUtils::needsToDecay(mindsBlockByGC, unigramCount_, bigramCount_, headerPolicy_);
}

bool Ver4PatriciaTriePolicy::collectInto(Ver4DictBuffers* buffersToWrite, Counts* outCounts) {
    if (!buffers_->isUpdatable() || isCorrupted_ || isCollected_) return false;
    isCollected_ = true;
    renewIdentity();
    return Ver4PatriciaTrieWritingHelper(buffers_.get())
        .runGC(getRootPosition(), buffersToWrite, &outCounts->unigrams, &outCounts->bigrams);
}

WordProperty Ver4PatriciaTriePolicy::getWordProperty(const int* word, int length) const {
    const PtNodeParams found = fetchLivingWord(getTerminalPtNodePositionOfWord(word, length, false));
    if (!found.isValid()) return WordProperty();
    const int terminalId = found.getTerminalId();
    const ProbabilityEntry entry = buffers_->getProbabilityContent()->getProbabilityEntry(terminalId);
    const HistoricalInfo* const info = entry.getHistoricalInfo();
    const UnigramProperty unigram(word[0] == CODE_POINT_BEGINNING_OF_SENTENCE, found.isNotAWord(),
                                  found.isBlacklisted(), found.getProbability(), info->getTimeStamp(),
                                  info->getLevel(), info->getCount(), readShortcutProperties(terminalId));
    const std::vector<int> codePoints(word, word + length);
    const std::vector<BigramProperty> bigrams = readBigramProperties(terminalId);
    return WordProperty(&codePoints, &unigram, &bigrams);
}

std::vector<BigramProperty> Ver4PatriciaTriePolicy::readBigramProperties(int terminalId) const {
    std::vector<BigramProperty> bigrams;
    const BigramListContent& content = *buffers_->getBigramDictContent();
    int remainingEntryCount = content.getMaxEntryCount();
    int pos = content.getBigramListHeadPos(terminalId);
    while (const auto found = content.readNextEntry(&pos, &remainingEntryCount)) {
        if (!found->entry.isValid()) continue;
        const int targetPos = buffers_->getTerminalPositionLookupTable()->getTerminalPtNodePosition(
            found->entry.getTargetTerminalId());
        if (targetPos == NO_DICT_POS) continue;
        std::array<int, WORD_LENGTH_LIMIT> target;
        int unigramProbability;
        const int count = getCodePointsAndProbabilityAndReturnCodePointCount(
            targetPos, WORD_LENGTH_LIMIT, target.data(), &unigramProbability);
        if (count == 0) continue;
        const HistoricalInfo* const info = found->entry.getHistoricalInfo();
        bigrams.emplace_back(std::vector<int>(target.begin(), target.begin() + count),
                             bigramPolicy_.getProbability(found->entry), info->getTimeStamp(),
                             info->getLevel(), info->getCount());
    }
    noteDamage(remainingEntryCount < 0);
    return bigrams;
}

std::vector<UnigramProperty::ShortcutProperty> Ver4PatriciaTriePolicy::readShortcutProperties(
    int terminalId) const {
    std::vector<UnigramProperty::ShortcutProperty> shortcuts;
    const ShortcutDictContent& content = *buffers_->getShortcutDictContent();
    int pos = content.getShortcutListHeadPos(terminalId);
    bool hasNext = pos != NO_DICT_POS;
    while (hasNext) {
        std::array<int, WORD_LENGTH_LIMIT> target;
        int count = 0;
        int probability = NO_PROBABILITY;
        content.getShortcutEntryAndAdvancePosition(WORD_LENGTH_LIMIT, target.data(), &count, &probability,
                                                   &hasNext, &pos);
        shortcuts.emplace_back(std::vector<int>(target.begin(), target.begin() + count), probability);
    }
    return shortcuts;
}

}  // namespace wordengine
