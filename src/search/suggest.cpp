// SPDX-License-Identifier: Apache-2.0
#include "search/suggest.h"

#include "dictionary/dic_node_utils.h"
#include "dictionary/dictionary_header_structure_policy.h"
#include "dictionary/dictionary_structure_with_buffer_policy.h"
#include "node/dic_node.h"
#include "proximity/proximity_info_state.h"
#include "search/dic_traverse_session.h"
#include "search/next_letters.h"
#include "search/results/suggestions_output_utils.h"
#include "search/suggest_policy.h"
#include "search/traversal.h"
#include "search/typing/typing_suggest_policy.h"
#include "search/weighting.h"
#include "search/weighting_charge.h"
#include "text/digraph_utils.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <span>

namespace wordengine {

namespace {

/// Far above what any real dictionary makes a request look at; a forged one, whose nodes all have
/// thousands of fitting children, would keep it busy for hours.
constexpr int MAX_CHILDREN_EXAMINED = 4000000;

/// The same for forged lists, long ones that have to be read over to come to the next child.
constexpr int64_t MAX_BYTES_READ = int64_t{1} << 25;

/// The letters behind the node; none for a request that has looked at more than any honest one.
NextLetters nextLettersOf(DicTraverseSession* session, const DicNode* dicNode) {
    ChildrenCache* const cache = &session->getWorkspace()->children;
    int* const childrenExamined = &session->getMutableStatistics()->childrenExamined;
    if (*childrenExamined > MAX_CHILDREN_EXAMINED || cache->getBytesRead() > MAX_BYTES_READ) {
        return NextLetters();
    }
    return NextLetters(dicNode, cache, childrenExamined);
}

bool isNearPoint(const DicTraverseSession* session, int pointIndex, int codePoint) {
    return session->getProximityInfoState(0)->getLetterAt(pointIndex, codePoint).isNear();
}

/// The nodes of a pass, the best first. One over the length limit ends the pass for all that are better.
std::span<const RankedDicNode> activeWithinLimit(DicNodesCache* cache) {
    const std::span<const RankedDicNode> nodes = cache->activeInOrder();
    const auto tooLong = std::find_if(nodes.rbegin(), nodes.rend(), [](const RankedDicNode& node) {
        return node.dicNode->isTotalInputSizeExceedingLimit();
    });
    return nodes.subspan(static_cast<size_t>(nodes.rend() - tooLong));
}

void pushNextActive(DicTraverseSession* session, const DicNode* dicNode) {
    session->getDicTraverseCache()->copyPushNextActive(dicNode);
    ++session->getMutableStatistics()->nodesPushedActive;
}

}  // namespace

template <class PolicyType>
Suggest<PolicyType>::Suggest(const PolicyType* suggestPolicy)
    : traversal_(suggestPolicy ? suggestPolicy->getTraversal() : nullptr),
      scoring_(suggestPolicy ? suggestPolicy->getScoring() : nullptr),
      weighting_(suggestPolicy ? suggestPolicy->getWeighting() : nullptr) {}

template <class PolicyType>
void Suggest<PolicyType>::getSuggestions(const ProximityInfo* proximityInfo, void* traverseSession,
                                         const int* inputXs, const int* inputYs, const int* times,
                                         const int* pointerIds, const int* inputCodePoints, int inputSize,
                                         float weightOfLangModelVsSpatialModel,
                                         SuggestionResults* outSuggestionResults) const {
    if (!traversal_ || !proximityInfo || inputSize < 0 || inputSize > WORD_LENGTH_LIMIT) return;
    auto* const session = static_cast<DicTraverseSession*>(traverseSession);
    const float maxSpatialDistance = traversal_->getMaxSpatialDistance();
    session->setupForGetSuggestions(proximityInfo, inputCodePoints, inputSize, inputXs, inputYs, times,
                                    pointerIds, maxSpatialDistance, traversal_->getMaxPointerCount());
    initializeSearch(session, inputSize);
    DicNodesCache* const cache = session->getDicTraverseCache();
    while (cache->activeSize() > 0) {
        expandCurrentDicNodes(session);
        cache->advanceActiveDicNodes();
        cache->advanceInputIndex(inputSize);
    }
    SuggestionsOutputUtils::outputSuggestions(scoring_, session, weightOfLangModelVsSpatialModel,
                                              outSuggestionResults);
}

template <class PolicyType>
void Suggest<PolicyType>::initializeSearch(DicTraverseSession* session, int inputSize) const {
    if (session->getInputSize() > MIN_CONTINUOUS_SUGGESTION_INPUT_SIZE &&
        session->isContinuousSuggestionPossible()) {
        session->getDicTraverseCache()->continueSearch();
        session->getMutableStatistics()->continuedCachedSearch = true;
        return;
    }
    session->resetCache(traversal_->getMaxCacheSize(inputSize), traversal_->getTerminalCacheSize());
    DicNode* const root = &session->getWorkspace()->nextWordNode;
    DicNodeUtils::initAsRoot(session->getDictionaryStructurePolicy(), session->getPrevWordsPtNodePos(), root);
    session->getDicTraverseCache()->copyPushActive(root);
}

template <class PolicyType>
void Suggest<PolicyType>::expandCurrentDicNodes(DicTraverseSession* session) const {
    DicNodesCache* const cache = session->getDicTraverseCache();
    SearchStatistics* const statistics = session->getMutableStatistics();
    ++statistics->passes;
    const bool shouldDepthLevelCache = traversal_->shouldDepthLevelCache(session);
    if (shouldDepthLevelCache) cache->updateLastCachedInputIndex();
    for (const RankedDicNode& active : activeWithinLimit(cache)) {
        DicNode* const dicNode = active.dicNode;
        ++statistics->nodesExpanded;
        if (shouldDepthLevelCache || traversal_->shouldNodeLevelCache(session, dicNode)) {
            cache->copyPushContinue(dicNode);
            dicNode->setCached();
            ++statistics->nodesCached;
        }
        expandDicNode(session, dicNode);
    }
}

template <class PolicyType>
void Suggest<PolicyType>::expandDicNode(DicTraverseSession* session, DicNode* dicNode) const {
    if (dicNode->isInDigraph()) {
        processDicNodeAsDigraph(session, dicNode);
        return;
    }
    const bool canDoLookAheadCorrection = traversal_->canDoLookAheadCorrection(session, dicNode);
    if (canDoLookAheadCorrection &&
        session->getDicTraverseCache()->isLookAheadCorrectionInputIndex(dicNode->getInputIndex(0))) {
        processDicNodeAsTransposition(session, dicNode);
        processDicNodeAsInsertion(session, dicNode);
        return;
    }
    const bool allowsErrorCorrections = traversal_->allowsErrorCorrections(dicNode);
    if (allowsErrorCorrections && traversal_->isSpaceSubstitutionTerminal(session, dicNode)) {
        createNextWordDicNode(session, dicNode, true);
    }
    expandChildren(session, dicNode, allowsErrorCorrections);
    if (allowsErrorCorrections && canDoLookAheadCorrection) {
        // Comes back one pass later, unadvanced, when the point after its own can be looked at.
        pushNextActive(session, dicNode);
    }
}

template <class PolicyType>
void Suggest<PolicyType>::expandChildren(DicTraverseSession* session, const DicNode* dicNode,
                                         bool allowsErrorCorrections) const {
    if (dicNode->isCompletion(session->getInputSize())) {
        expandCompletions(session, dicNode);
        return;
    }
    DicNode* const childDicNode = &session->getWorkspace()->childNode;
    const bool mayBeAnyLetter = allowsErrorCorrections || session->hasDigraphs();
    const NextLetters letters = nextLettersOf(session, dicNode);
    for (int i = letters.begin(); i < letters.end(); ++i) {
        if (!mayBeAnyLetter &&
            !traversal_->isGoodWithoutCorrection(session, dicNode, letters.codePointAt(i))) {
            continue;
        }
        letters.initNode(i, childDicNode);
        tryChild(session, dicNode, childDicNode, allowsErrorCorrections);
    }
}

/// Whatever the letter, a completion costs the same: it is charged once, before the children are made, and
/// most of them turn out to be of no use before they are given their words.
template <class PolicyType>
void Suggest<PolicyType>::expandCompletions(DicTraverseSession* session, const DicNode* dicNode) const {
    DicNode* const charged = &session->getWorkspace()->completedNode;
    charged->initByCopyWithoutWords(dicNode);
    weightChildNode(session, charged);
    if (charged->getCompoundDistance() >= WEIGHT_CEILING_FLOAT) return;
    DicNodesCache* const cache = session->getDicTraverseCache();
    // Several words end with the input: completing the last of them would be guessing. What is worse than
    // every word found will not become better.
    const bool goesOn = !dicNode->hasMultipleWords() && cache->mayBecomeTerminal(charged);
    DicNode* place = goesOn ? cache->lendPlaceInNextActive() : nullptr;
    const NextLetters letters = nextLettersOf(session, dicNode);
    for (int i = letters.begin(); i < letters.end(); ++i) {
        DicNode* const child = place ? place : &session->getWorkspace()->childNode;
        letters.initNodeWithoutWords(i, child);
        child->takeCostsOf(charged);
        DicNode* const terminal = makeTerminalDicNode(session, child);
        const bool mayBeTaken = goesOn && child->hasChildren() && cache->mayTakeNextActive(child);
        if (terminal) {
            letters.giveWords(i, terminal);
            cache->copyPushTerminal(terminal);
        }
        if (!mayBeTaken) continue;
        letters.giveWords(i, child);
        ++session->getMutableStatistics()->nodesPushedActive;
        if (place) {
            cache->pushNextActiveInPlace(place);
            place = cache->lendPlaceInNextActive();
        } else {
            cache->copyPushNextActive(child);
        }
    }
    if (place) cache->giveBackPlaceInNextActive(place);
}

template <class PolicyType>
void Suggest<PolicyType>::tryChild(DicTraverseSession* session, const DicNode* dicNode, DicNode* childDicNode,
                                   bool allowsErrorCorrections) const {
    if (session->hasDigraphs() && DigraphUtils::hasDigraphForCodePoint(
                                      session->getDictionaryStructurePolicy()->getHeaderStructurePolicy(),
                                      childDicNode->getNodeCodePoint())) {
        DicNode* const digraphDicNode = &session->getWorkspace()->digraphNode;
        digraphDicNode->initByCopy(childDicNode);
        digraphDicNode->advanceDigraphIndex();
        processDicNodeAsDigraph(session, digraphDicNode);
    }
    if (traversal_->isOmission(session, dicNode, childDicNode, allowsErrorCorrections)) {
        processDicNodeAsOmission(session, childDicNode);
    }
    switch (traversal_->getProximityType(session, dicNode, childDicNode)) {
        case PROXIMITY_MATCH:
        case PROXIMITY_NEAR:
            processDicNodeAsMatch(session, childDicNode);
            break;
        case PROXIMITY_ADDITIONAL:
            if (allowsErrorCorrections) {
                processDicNodeAsAdditionalProximityChar(session, dicNode, childDicNode);
            }
            break;
        case PROXIMITY_SUBSTITUTION:
            if (allowsErrorCorrections) processDicNodeAsSubstitution(session, dicNode, childDicNode);
            break;
        default:
            break;
    }
}

template <class PolicyType>
void Suggest<PolicyType>::processTerminalDicNode(DicTraverseSession* session, const DicNode* dicNode) const {
    DicNode* const terminalDicNode = makeTerminalDicNode(session, dicNode);
    if (!terminalDicNode) return;
    terminalDicNode->takeWordsOf(dicNode);
    session->getDicTraverseCache()->copyPushTerminal(terminalDicNode);
}

template <class PolicyType>
DicNode* Suggest<PolicyType>::makeTerminalDicNode(DicTraverseSession* session, const DicNode* dicNode) const {
    if (dicNode->getCompoundDistance() >= WEIGHT_CEILING_FLOAT) return nullptr;
    if (!dicNode->isTerminalDicNode()) return nullptr;
    if (dicNode->shouldBeFilteredBySafetyNetForBigram()) return nullptr;
    if (!dicNode->hasMatchedOrProximityCodePoints()) return nullptr;
    DicNode* const terminalDicNode = &session->getWorkspace()->terminalNode;
    terminalDicNode->initByCopyWithoutWords(dicNode);
    if (traversal_->needsToTraverseAllUserInput() && dicNode->getInputIndex(0) < session->getInputSize()) {
        charge(CORRECTION_TERMINAL_INSERTION, session, nullptr, terminalDicNode);
    }
    charge(CORRECTION_TERMINAL, session, nullptr, terminalDicNode);
    ++session->getMutableStatistics()->terminals;
    return session->getDicTraverseCache()->mayTakeTerminal(terminalDicNode) ? terminalDicNode : nullptr;
}

template <class PolicyType>
void Suggest<PolicyType>::processExpandedDicNode(DicTraverseSession* session, const DicNode* dicNode) const {
    processTerminalDicNode(session, dicNode);
    if (dicNode->getCompoundDistance() >= WEIGHT_CEILING_FLOAT) return;
    if (traversal_->isSpaceOmissionTerminal(session, dicNode)) {
        createNextWordDicNode(session, dicNode, false);
    }
    // Several words end with the input: completing the last of them would be guessing.
    const bool allowsLookAhead =
        !(dicNode->hasMultipleWords() && dicNode->isCompletion(session->getInputSize()));
    if (dicNode->hasChildren() && allowsLookAhead) pushNextActive(session, dicNode);
}

template <class PolicyType>
inline void Suggest<PolicyType>::charge(CorrectionType correctionType, DicTraverseSession* session,
                                        const DicNode* parentDicNode, DicNode* dicNode) const {
    WeightingCharge<std::remove_const_t<WeightingType>>::addCostAndForwardInputIndex(
        weighting_, correctionType, session, parentDicNode, dicNode, session->getMultiBigramMap());
}

template <class PolicyType>
void Suggest<PolicyType>::weightChildNode(DicTraverseSession* session, DicNode* dicNode) const {
    if (dicNode->isCompletion(session->getInputSize())) {
        charge(CORRECTION_COMPLETION, session, nullptr, dicNode);
    } else {
        charge(CORRECTION_MATCH, session, nullptr, dicNode);
    }
}

template <class PolicyType>
void Suggest<PolicyType>::createNextWordDicNode(DicTraverseSession* session, const DicNode* dicNode,
                                                bool spaceSubstitution) const {
    if (!traversal_->isGoodToTraverseNextWord(dicNode)) return;
    DicNode* const newDicNode = &session->getWorkspace()->nextWordNode;
    DicNodeUtils::initAsRootWithPreviousWord(session->getDictionaryStructurePolicy(), dicNode, newDicNode);
    if (spaceSubstitution) {
        charge(CORRECTION_NEW_WORD_SPACE_SUBSTITUTION, session, dicNode, newDicNode);
    } else {
        charge(CORRECTION_NEW_WORD_SPACE_OMISSION, session, dicNode, newDicNode);
    }
    if (newDicNode->getCompoundDistance() < WEIGHT_CEILING_FLOAT) pushNextActive(session, newDicNode);
}

template <class PolicyType>
void Suggest<PolicyType>::processDicNodeAsMatch(DicTraverseSession* session, DicNode* childDicNode) const {
    weightChildNode(session, childDicNode);
    processExpandedDicNode(session, childDicNode);
}

template <class PolicyType>
void Suggest<PolicyType>::processDicNodeAsDigraph(DicTraverseSession* session, DicNode* childDicNode) const {
    weightChildNode(session, childDicNode);
    childDicNode->advanceDigraphIndex();
    processExpandedDicNode(session, childDicNode);
}

/// `dicNode` is the letter that was left out; the letters behind it are tried at its point.
template <class PolicyType>
void Suggest<PolicyType>::processDicNodeAsOmission(DicTraverseSession* session,
                                                   const DicNode* dicNode) const {
    DicNode* const childDicNode = &session->getWorkspace()->grandchildNode;
    const NextLetters letters = nextLettersOf(session, dicNode);
    for (int i = letters.begin(); i < letters.end(); ++i) {
        if (!traversal_->isPossibleOmissionCodePoint(session, dicNode, letters.codePointAt(i))) continue;
        letters.initNode(i, childDicNode);
        charge(CORRECTION_OMISSION, session, dicNode, childDicNode);
        weightChildNode(session, childDicNode);
        processExpandedDicNode(session, childDicNode);
    }
}

template <class PolicyType>
void Suggest<PolicyType>::processDicNodeAsInsertion(DicTraverseSession* session,
                                                    const DicNode* dicNode) const {
    DicNode* const childDicNode = &session->getWorkspace()->childNode;
    const int nextCodePoint =
        session->getProximityInfoState(0)->getPrimaryCodePointAt(dicNode->getInputIndex(0) + 1);
    const NextLetters letters = nextLettersOf(session, dicNode);
    for (int i = letters.begin(); i < letters.end(); ++i) {
        if (letters.codePointAt(i) != nextCodePoint) continue;
        letters.initNode(i, childDicNode);
        charge(CORRECTION_INSERTION, session, dicNode, childDicNode);
        processExpandedDicNode(session, childDicNode);
    }
}

template <class PolicyType>
void Suggest<PolicyType>::processDicNodeAsTransposition(DicTraverseSession* session,
                                                        const DicNode* dicNode) const {
    const int pointIndex = dicNode->getInputIndex(0);
    DicNode* const first = &session->getWorkspace()->childNode;
    DicNode* const second = &session->getWorkspace()->grandchildNode;
    const NextLetters firstLetters = nextLettersOf(session, dicNode);
    for (int i = firstLetters.begin(); i < firstLetters.end(); ++i) {
        if (!isNearPoint(session, pointIndex + 1, firstLetters.codePointAt(i))) continue;
        firstLetters.initNode(i, first);
        if (!first->hasChildren()) continue;
        const NextLetters secondLetters = nextLettersOf(session, first);
        for (int j = secondLetters.begin(); j < secondLetters.end(); ++j) {
            if (!isNearPoint(session, pointIndex, secondLetters.codePointAt(j))) continue;
            secondLetters.initNode(j, second);
            charge(CORRECTION_TRANSPOSITION, session, first, second);
            processExpandedDicNode(session, second);
        }
    }
}

template <class PolicyType>
void Suggest<PolicyType>::processDicNodeAsAdditionalProximityChar(DicTraverseSession* session,
                                                                  const DicNode* dicNode,
                                                                  DicNode* childDicNode) const {
    charge(CORRECTION_ADDITIONAL_PROXIMITY, session, dicNode, childDicNode);
    weightChildNode(session, childDicNode);
    processExpandedDicNode(session, childDicNode);
}

template <class PolicyType>
void Suggest<PolicyType>::processDicNodeAsSubstitution(DicTraverseSession* session, const DicNode* dicNode,
                                                       DicNode* childDicNode) const {
    charge(CORRECTION_SUBSTITUTION, session, dicNode, childDicNode);
    weightChildNode(session, childDicNode);
    processExpandedDicNode(session, childDicNode);
}

template class Suggest<SuggestPolicy>;
template class Suggest<TypingSuggestPolicy>;

}  // namespace wordengine
