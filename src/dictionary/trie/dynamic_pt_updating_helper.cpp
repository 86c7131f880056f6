// SPDX-License-Identifier: Apache-2.0
#include "dictionary/trie/dynamic_pt_updating_helper.h"

#include "dictionary/trie/dynamic_pt_reading_helper.h"
#include "dictionary/trie/dynamic_pt_writing_utils.h"
#include "dictionary/trie/pt_node_reader.h"
#include "dictionary/trie/pt_node_writer.h"
#include "dictionary/word_property.h"

#include <algorithm>

namespace wordengine {

namespace {

/// How many of the node's letters the word has.
int countOverlap(const PtNodeParams& ptNodeParams, const int* word, int length) {
    const int limit = std::min(ptNodeParams.getCodePointCount(), length);
    const int* const codePoints = ptNodeParams.getCodePoints();
    return static_cast<int>(std::mismatch(codePoints, codePoints + limit, word).first - codePoints);
}

NodeFlags flagsOfNewWord(const UnigramProperty& property, int codePointCount) {
    return DynamicPtWritingUtils::createFlags(property.isBlacklisted(), property.isNotAWord(),
                                              /* isTerminal */ true, codePointCount > 1);
}

}  // namespace

bool DynamicPtUpdatingHelper::addUnigramWord(DynamicPtReadingHelper* readingHelper, const int* word,
                                             int length, const UnigramProperty* unigramProperty,
                                             bool* outAddedNewUnigram) {
    *outAddedNewUnigram = false;
    if (length < 1 || length > WORD_LENGTH_LIMIT) return false;
    int parentPos = NO_DICT_POS;
    while (!readingHelper->isEnd()) {
        const PtNodeParams ptNodeParams = readingHelper->getPtNodeWithoutProbability();
        if (!ptNodeParams.isValid()) return false;
        const int matched = readingHelper->getTotalCodePointCount();
        if (matched >= length) return false;
        const int overlap = countOverlap(ptNodeParams, word + matched, length - matched);
        if (overlap == 0) {
            readingHelper->goToNextSibling(ptNodeParams);
            continue;
        }
        const Rest rest{word + matched + overlap, length - matched - overlap};
        if (overlap < ptNodeParams.getCodePointCount()) {
            *outAddedNewUnigram = true;
            return reallocatePtNodeAndAddNewPtNodes(ptNodeParams, overlap, rest, unigramProperty);
        }
        if (rest.count == 0) return setPtNodeProbability(ptNodeParams, unigramProperty, outAddedNewUnigram);
        if (!ptNodeParams.hasChildren()) {
            *outAddedNewUnigram = true;
            return createChildrenPtNodeArrayAndAChildPtNode(ptNodeParams, rest, unigramProperty);
        }
        parentPos = ptNodeParams.getHeadPos();
        readingHelper->goToChildren(ptNodeParams);
    }
    const int matched = readingHelper->getTotalCodePointCount();
    if (readingHelper->isError() || matched >= length) return false;
    *outAddedNewUnigram = true;
    return createAndInsertNodeIntoPtNodeArray(parentPos, {word + matched, length - matched}, unigramProperty,
                                              readingHelper->getPosOfLastForwardLinkField());
}

bool DynamicPtUpdatingHelper::setPtNodeProbability(const PtNodeParams& ptNodeParams,
                                                   const UnigramProperty* unigramProperty,
                                                   bool* outAddedNewUnigram) {
    if (ptNodeParams.isTerminal() && !ptNodeParams.isDeleted()) {
        return ptNodeWriter_->updatePtNodeUnigramProperty(&ptNodeParams, unigramProperty);
    }
    *outAddedNewUnigram = true;
    const int movedPos = buffer_->getTailPosition();
    const PtNodeParams asWord(&ptNodeParams,
                              flagsOfNewWord(*unigramProperty, ptNodeParams.getCodePointCount()),
                              ptNodeParams.getParentPos(), ptNodeParams.getCodePointCount(),
                              ptNodeParams.getCodePoints(), unigramProperty->getProbability());
    int pos = movedPos;
    return ptNodeWriter_->writeNewTerminalPtNodeAndAdvancePosition(&asWord, unigramProperty, &pos) &&
           ptNodeWriter_->markPtNodeAsMoved(&ptNodeParams, movedPos, movedPos);
}

bool DynamicPtUpdatingHelper::createAndInsertNodeIntoPtNodeArray(int parentPos, Rest rest,
                                                                 const UnigramProperty* unigramProperty,
                                                                 int forwardLinkFieldPos) {
    if (forwardLinkFieldPos == NO_DICT_POS) return false;
    const int newArrayPos = buffer_->getTailPosition();
    int pos = newArrayPos;
    int linkPos = forwardLinkFieldPos;
    return createNewPtNodeArrayWithAChildPtNode(parentPos, rest, unigramProperty, &pos) &&
           DynamicPtWritingUtils::writeForwardLinkPositionAndAdvancePosition(buffer_, newArrayPos, &linkPos);
}

bool DynamicPtUpdatingHelper::createChildrenPtNodeArrayAndAChildPtNode(
    const PtNodeParams& parent, Rest rest, const UnigramProperty* unigramProperty) {
    const int newArrayPos = buffer_->getTailPosition();
    int pos = newArrayPos;
    return createNewPtNodeArrayWithAChildPtNode(parent.getHeadPos(), rest, unigramProperty, &pos) &&
           ptNodeWriter_->updateChildrenPosition(&parent, newArrayPos);
}

bool DynamicPtUpdatingHelper::createNewPtNodeArrayWithAChildPtNode(int parentPos, Rest rest,
                                                                   const UnigramProperty* unigramProperty,
                                                                   int* pos) {
    return DynamicPtWritingUtils::writePtNodeArraySizeAndAdvancePosition(buffer_, 1, pos) &&
           writeNewTerminal(parentPos, rest, unigramProperty, pos) &&
           DynamicPtWritingUtils::writeForwardLinkPositionAndAdvancePosition(buffer_, NO_DICT_POS, pos);
}

bool DynamicPtUpdatingHelper::writeNewTerminal(int parentPos, Rest rest,
                                               const UnigramProperty* unigramProperty, int* pos) {
    const PtNodeParams word(flagsOfNewWord(*unigramProperty, rest.count), parentPos, rest.count,
                            rest.codePoints, unigramProperty->getProbability());
    return ptNodeWriter_->writeNewTerminalPtNodeAndAdvancePosition(&word, unigramProperty, pos);
}

/// The old node goes on as two: its first letters, which the new word shares, and what follows them.
bool DynamicPtUpdatingHelper::reallocatePtNodeAndAddNewPtNodes(const PtNodeParams& ptNodeParams,
                                                               int overlappingCodePointCount, Rest rest,
                                                               const UnigramProperty* unigramProperty) {
    int prefixPos = NO_DICT_POS;
    int oldPartPos = NO_DICT_POS;
    if (!writePrefix(ptNodeParams, overlappingCodePointCount, rest.count == 0, unigramProperty, &prefixPos)) {
        return false;
    }
    const int partsPos = buffer_->getTailPosition();
    if (!writePartsBelowPrefix(ptNodeParams, overlappingCodePointCount, prefixPos, rest, unigramProperty,
                               &oldPartPos)) {
        return false;
    }
    const PtNodeParams prefix = ptNodeReader_->fetchPtNodeParamsInBufferFromPtNodePos(prefixPos);
    // The children that the old node has go on below its last letters.
    return prefix.isValid() && ptNodeWriter_->updateChildrenPosition(&prefix, partsPos) &&
           ptNodeWriter_->markPtNodeAsMoved(&ptNodeParams, prefixPos, oldPartPos);
}

/// In an array of its own; without children yet.
bool DynamicPtUpdatingHelper::writePrefix(const PtNodeParams& ptNodeParams, int overlappingCodePointCount,
                                          bool isWord, const UnigramProperty* unigramProperty,
                                          int* outPrefixPos) {
    int pos = buffer_->getTailPosition();
    if (!DynamicPtWritingUtils::writePtNodeArraySizeAndAdvancePosition(buffer_, 1, &pos)) return false;
    *outPrefixPos = pos;
    const int parentPos = ptNodeParams.getParentPos();
    if (isWord) {
        const Rest letters{ptNodeParams.getCodePoints(), overlappingCodePointCount};
        if (!writeNewTerminal(parentPos, letters, unigramProperty, &pos)) return false;
    } else {
        const NodeFlags flags =
            DynamicPtWritingUtils::createFlags(false, false, false, overlappingCodePointCount > 1);
        const PtNodeParams prefix(flags, parentPos, overlappingCodePointCount, ptNodeParams.getCodePoints(),
                                  NO_PROBABILITY);
        if (!ptNodeWriter_->writePtNodeAndAdvancePosition(&prefix, &pos)) return false;
    }
    return DynamicPtWritingUtils::writeForwardLinkPositionAndAdvancePosition(buffer_, NO_DICT_POS, &pos);
}

bool DynamicPtUpdatingHelper::writePartsBelowPrefix(const PtNodeParams& ptNodeParams,
                                                    int overlappingCodePointCount, int prefixPos, Rest rest,
                                                    const UnigramProperty* unigramProperty,
                                                    int* outOldPartPos) {
    int pos = buffer_->getTailPosition();
    if (!DynamicPtWritingUtils::writePtNodeArraySizeAndAdvancePosition(buffer_, rest.count > 0 ? 2 : 1,
                                                                       &pos)) {
        return false;
    }
    *outOldPartPos = pos;
    const int count = ptNodeParams.getCodePointCount() - overlappingCodePointCount;
    const NodeFlags flags = DynamicPtWritingUtils::createFlags(
        ptNodeParams.isBlacklisted(), ptNodeParams.isNotAWord(), ptNodeParams.isTerminal(), count > 1);
    const PtNodeParams oldPart(&ptNodeParams, flags, prefixPos, count,
                               ptNodeParams.getCodePoints() + overlappingCodePointCount,
                               ptNodeParams.getProbability());
    if (!ptNodeWriter_->writePtNodeAndAdvancePosition(&oldPart, &pos)) return false;
    if (ptNodeParams.isDeleted()) {
        // It is written as a living node, and must not bring a removed word back.
        const PtNodeParams written = ptNodeReader_->fetchPtNodeParamsInBufferFromPtNodePos(*outOldPartPos);
        if (!written.isValid() || !ptNodeWriter_->markPtNodeAsDeleted(&written)) return false;
    }
    if (rest.count > 0 && !writeNewTerminal(prefixPos, rest, unigramProperty, &pos)) return false;
    return DynamicPtWritingUtils::writeForwardLinkPositionAndAdvancePosition(buffer_, NO_DICT_POS, &pos);
}

std::optional<DynamicPtUpdatingHelper::PairIds> DynamicPtUpdatingHelper::terminalIdsOf(
    IntArrayView prevWordsPtNodePos, int wordPos) const {
    if (prevWordsPtNodePos.empty()) return std::nullopt;
    const PtNodeParams word = ptNodeReader_->fetchPtNodeWithoutProbability(wordPos);
    const PtNodeParams previous = ptNodeReader_->fetchPtNodeWithoutProbability(prevWordsPtNodePos[0]);
    if (!word.isValid() || !previous.isValid()) return std::nullopt;
    return PairIds{previous.getTerminalId(), word.getTerminalId()};
}

bool DynamicPtUpdatingHelper::addNgramEntry(IntArrayView prevWordsPtNodePos, int wordPos,
                                            const BigramProperty* bigramProperty, bool* outAddedNewEntry) {
    const auto ids = terminalIdsOf(prevWordsPtNodePos, wordPos);
    return ids && ptNodeWriter_->addNgramEntry(IntArrayView(&ids->previous, 1), ids->word, bigramProperty,
                                               outAddedNewEntry);
}

bool DynamicPtUpdatingHelper::removeNgramEntry(IntArrayView prevWordsPtNodePos, int wordPos) {
    const auto ids = terminalIdsOf(prevWordsPtNodePos, wordPos);
    return ids && ptNodeWriter_->removeNgramEntry(IntArrayView(&ids->previous, 1), ids->word);
}

bool DynamicPtUpdatingHelper::addShortcutTarget(int wordPos, const int* targetCodePoints,
                                                int targetCodePointCount, int shortcutProbability) {
    const PtNodeParams word = ptNodeReader_->fetchPtNodeParamsInBufferFromPtNodePos(wordPos);
    return word.isValid() && ptNodeWriter_->addShortcutTarget(&word, targetCodePoints, targetCodePointCount,
                                                              shortcutProbability);
}

}  // namespace wordengine
