// SPDX-License-Identifier: Apache-2.0
#include "search/results/suggestions_output_utils.h"

#include "dictionary/binary_dictionary_shortcut_iterator.h"
#include "dictionary/dictionary_header_structure_policy.h"
#include "dictionary/dictionary_structure_with_buffer_policy.h"
#include "node/dic_node.h"
#include "search/dic_traverse_session.h"
#include "search/results/suggested_word.h"
#include "search/results/suggestion_results.h"
#include "search/scoring.h"
#include "search/suggest_options.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace wordengine {

namespace {

/// The finished words, best first.
const std::vector<DicNode>& takeTerminals(DicTraverseSession* session, size_t* outCount) {
    std::vector<DicNode>& terminals = session->getWorkspace()->terminals;
    DicNodesCache* const cache = session->getDicTraverseCache();
    *outCount = static_cast<size_t>(cache->terminalSize());
    constexpr size_t USUAL_COUNT = 32;
    if (terminals.size() < *outCount) terminals.resize(std::max(*outCount, USUAL_COUNT));
    for (size_t i = *outCount; i > 0; --i) cache->popTerminal(&terminals[i - 1]);
    return terminals;
}

int flagsOf(const DicNode* terminalDicNode, bool isPossiblyOffensive, bool isSafeExactMatch) {
    int flags = 0;
    if (isPossiblyOffensive) flags |= SuggestedWord::KIND_FLAG_POSSIBLY_OFFENSIVE;
    if (isSafeExactMatch) flags |= SuggestedWord::KIND_FLAG_EXACT_MATCH;
    if (ErrorTypeUtils::isExactMatchWithIntentionalOmission(terminalDicNode->getContainedErrorTypes())) {
        flags |= SuggestedWord::KIND_FLAG_EXACT_MATCH_WITH_INTENTIONAL_OMISSION;
    }
    return flags;
}

void outputWord(const DicTraverseSession* session, const DicNode* terminalDicNode, int finalScore, int flags,
                bool outputSecondWordFirstLetterInputIndex, SuggestionResults* outSuggestionResults) {
    int codePoints[WORD_LENGTH_LIMIT];
    terminalDicNode->outputResult(codePoints);
    const int indexToPartialCommit =
        outputSecondWordFirstLetterInputIndex
            ? terminalDicNode->getSecondWordFirstInputIndex(session->getProximityInfoState(0))
            : NO_INDEX;
    outSuggestionResults->addSuggestion(codePoints, terminalDicNode->getTotalNodeCodePointCount(), finalScore,
                                        SuggestedWord::KIND_CORRECTION | flags, indexToPartialCommit,
                                        SuggestionsOutputUtils::computeFirstWordConfidence(terminalDicNode));
}

}  // namespace

void SuggestionsOutputUtils::outputSuggestions(const Scoring* scoringPolicy,
                                               DicTraverseSession* traverseSession, float languageWeight,
                                               SuggestionResults* outSuggestionResults) {
    size_t terminalCount = 0;
    const std::vector<DicNode>& terminals = takeTerminals(traverseSession, &terminalCount);
    const float weight = languageWeight < 0.0f ? scoringPolicy->getAdjustedLanguageWeight(
                                                     traverseSession, terminals.data(), terminalCount)
                                               : languageWeight;
    outSuggestionResults->setLanguageWeight(weight);
    // Obvious long inputs of several words are committed as such.
    const bool forceCommitMultiWords =
        scoringPolicy->autoCorrectsToMultiWordSuggestionIfTop() &&
        traverseSession->getInputSize() >= MIN_LEN_FOR_MULTI_WORD_AUTOCORRECT && terminalCount > 0 &&
        terminals[0].hasMultipleWords();
    const bool outputSecondWordFirstLetterInputIndex = traverseSession->isOnlyOnePointerUsed(nullptr);
    const bool boostExactMatches = traverseSession->getDictionaryStructurePolicy()
                                       ->getHeaderStructurePolicy()
                                       ->shouldBoostExactMatches();
    for (size_t i = 0; i < terminalCount; ++i) {
        outputSuggestionsOfDicNode(scoringPolicy, traverseSession, &terminals[i], weight, boostExactMatches,
                                   forceCommitMultiWords, outputSecondWordFirstLetterInputIndex,
                                   outSuggestionResults);
    }
    scoringPolicy->getMostProbableString(traverseSession, weight, outSuggestionResults);
}

void SuggestionsOutputUtils::outputSuggestionsOfDicNode(const Scoring* scoringPolicy,
                                                        DicTraverseSession* traverseSession,
                                                        const DicNode* terminalDicNode, float languageWeight,
                                                        bool boostExactMatches, bool forceCommitMultiWords,
                                                        bool outputSecondWordFirstLetterInputIndex,
                                                        SuggestionResults* outSuggestionResults) {
    const float doubleLetterCost = scoringPolicy->getDoubleLetterDemotionDistanceCost(terminalDicNode);
    const float compoundDistance = terminalDicNode->getCompoundDistance(languageWeight) + doubleLetterCost;
    const DictionaryStructureWithBufferPolicy* const policy = traverseSession->getDictionaryStructurePolicy();
    const ErrorTypeUtils::ErrorType errorTypes = terminalDicNode->getContainedErrorTypes();
    const bool isPossiblyOffensive =
        policy->getProbability(terminalDicNode->getProbability(), NO_PROBABILITY) <= 0;
    // A capitalised offensive word may be typed by accident at the start of a sentence.
    const bool isSafeExactMatch = ErrorTypeUtils::isExactMatch(errorTypes) &&
                                  !(isPossiblyOffensive && terminalDicNode->isFirstCharUppercase());
    const SuggestOptions* const options = traverseSession->getSuggestOptions();
    const bool isBlockedOffensive =
        options && options->blockOffensiveWords() && isPossiblyOffensive && !isSafeExactMatch;
    const int finalScore = scoringPolicy->calculateFinalScore(
        compoundDistance, traverseSession->getInputSize(), errorTypes,
        forceCommitMultiWords && terminalDicNode->hasMultipleWords(), boostExactMatches);
    if (!terminalDicNode->isBlacklistedOrNotAWord() && !isBlockedOffensive) {
        outputWord(traverseSession, terminalDicNode, finalScore,
                   flagsOf(terminalDicNode, isPossiblyOffensive, isSafeExactMatch),
                   outputSecondWordFirstLetterInputIndex, outSuggestionResults);
    }
    // What a word stands for is shown even where the word itself is not.
    if (terminalDicNode->hasMultipleWords()) return;
    BinaryDictionaryShortcutIterator shortcutIterator(
        policy->getShortcutsStructurePolicy(),
        policy->getShortcutPositionOfPtNode(terminalDicNode->getPtNodePos()));
    if (!shortcutIterator.hasNext()) return;
    outputShortcuts(&shortcutIterator, finalScore,
                    scoringPolicy->sameAsTyped(traverseSession, terminalDicNode), outSuggestionResults);
}

int SuggestionsOutputUtils::computeFirstWordConfidence(const DicNode* terminalDicNode) {
    constexpr float DISTANCE_WEIGHT = 800000.0f;
    constexpr float MAX_DISTANCE = 2.0f;
    constexpr int LENGTH_WEIGHT = 1000000;
    constexpr int SHORTEST_LENGTH = 4;
    constexpr int LONGEST_LENGTH = 30;
    constexpr int SPACE_COUNT_WEIGHT = 800000;
    constexpr int MAX_SPACE_COUNT = 5;
    const int spaceCount = terminalDicNode->getTotalNodeSpaceCount();
    if (spaceCount == 0) return NO_FIRST_WORD_CONFIDENCE;
    const int length = terminalDicNode->getTotalNodeCodePointCount();
    const float distance =
        std::clamp(terminalDicNode->getNormalizedCompoundDistanceAfterFirstWord(), 0.0f, MAX_DISTANCE);
    const int distancePart = static_cast<int>(DISTANCE_WEIGHT * (MAX_DISTANCE - distance) / MAX_DISTANCE);
    const int lengthPart = (length - SHORTEST_LENGTH) * LENGTH_WEIGHT / (LONGEST_LENGTH - SHORTEST_LENGTH);
    const int spacePart = (spaceCount - 1) * SPACE_COUNT_WEIGHT / (MAX_SPACE_COUNT - 1);
    return distancePart + lengthPart + spacePart;
}

void SuggestionsOutputUtils::outputShortcuts(BinaryDictionaryShortcutIterator* shortcutIterator,
                                             int finalScore, bool sameAsTyped,
                                             SuggestionResults* outSuggestionResults) {
    constexpr int HIGHEST_SCORE = std::numeric_limits<int>::max();
    constexpr int LOWEST_SCORE = -HIGHEST_SCORE;
    int target[WORD_LENGTH_LIMIT];
    while (shortcutIterator->hasNext()) {
        bool isWhitelist = false;
        int targetLength = 0;
        shortcutIterator->next(target, &targetLength, &isWhitelist);
        const bool isWhitelisted = isWhitelist && sameAsTyped;
        const int score = isWhitelisted ? HIGHEST_SCORE : std::max(LOWEST_SCORE, finalScore) - 1;
        const int kind = isWhitelisted ? SuggestedWord::KIND_WHITELIST : SuggestedWord::KIND_SHORTCUT;
        // Decremented once more for both: shown words compare these very numbers.
        outSuggestionResults->addSuggestion(target, targetLength, std::max(LOWEST_SCORE, score) - 1, kind,
                                            NO_INDEX, NO_FIRST_WORD_CONFIDENCE);
    }
}

}  // namespace wordengine
