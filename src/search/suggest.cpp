// SPDX-License-Identifier: Apache-2.0
#include "search/suggest.h"

#include "dictionary/dic_node_utils.h"
#include "dictionary/dictionary_header_structure_policy.h"
#include "dictionary/dictionary_structure_with_buffer_policy.h"
#include "node/dic_node.h"
#include "node/dic_node_vector.h"
#include "proximity/proximity_info_state.h"
#include "search/dic_traverse_session.h"
#include "search/results/suggestions_output_utils.h"
#include "search/suggest_policy.h"
#include "search/traversal.h"
#include "search/weighting.h"
#include "text/digraph_utils.h"
#include "text/engine_constants.h"

namespace wordengine {

namespace {

/// Far above what any real dictionary makes a request look at; a forged one, whose nodes all have
/// thousands of fitting children, would keep it busy for hours.
constexpr int MAX_CHILDREN_EXAMINED = 4000000;

/// The same for forged lists, long ones that have to be read over to come to the next child.
constexpr int64_t MAX_BYTES_EXAMINED = int64_t{1} << 25;

/// A letter as seen from one input point, for filters.
struct PointView {
    const ProximityInfoState* state;
    int pointIndex;
};

/// Near enough to the point to have been meant by it.
bool isNearPoint(const void* pointView, int codePoint) {
    const auto* const view = static_cast<const PointView*>(pointView);
    const ProximityType type = view->state->getProximityType(view->pointIndex, codePoint, true);
    return type == PROXIMITY_MATCH || type == PROXIMITY_NEAR || type == PROXIMITY_ADDITIONAL;
}

bool isPrimaryLetterOfPoint(const void* pointView, int codePoint) {
    const auto* const view = static_cast<const PointView*>(pointView);
    return view->state->getPrimaryCodePointAt(view->pointIndex) == codePoint;
}

/// A letter that was left out.
struct OmissionView {
    const Traversal* traversal;
    const DicTraverseSession* session;
    const DicNode* omittedDicNode;
};

bool mayFollowOmission(const void* omissionView, int codePoint) {
    const auto* const view = static_cast<const OmissionView*>(omissionView);
    return view->traversal->isPossibleOmissionCodePoint(view->session, view->omittedDicNode, codePoint);
}

using LetterFilter = bool (*)(const void* view, int codePoint);

/// Fills the vector with the node's children, those that pass the filter if there is one, and returns
/// their number.
int fetchChildren(DicTraverseSession* session, const DicNode* dicNode, DicNodeVector* outChildren,
                  LetterFilter filter = nullptr, const void* view = nullptr) {
    outChildren->clear();
    SearchStatistics* const statistics = session->getMutableStatistics();
    if (statistics->childrenExamined > MAX_CHILDREN_EXAMINED ||
        statistics->bytesExamined > MAX_BYTES_EXAMINED) {
        return 0;
    }
    if (filter) outChildren->setFilter(filter, view);
    DicNodeUtils::getAllChildDicNodes(dicNode, session->getDictionaryStructurePolicy(), outChildren);
    const int count = outChildren->getSizeAndLock();
    statistics->childrenExamined += count + outChildren->getRejectedCount();
    statistics->bytesExamined += outChildren->getBytesRead();
    return count;
}

void pushNextActive(DicTraverseSession* session, const DicNode* dicNode) {
    session->getDicTraverseCache()->copyPushNextActive(dicNode);
    ++session->getMutableStatistics()->nodesPushedActive;
}

}  // namespace

Suggest::Suggest(const SuggestPolicy* suggestPolicy)
    : traversal_(suggestPolicy ? suggestPolicy->getTraversal() : nullptr),
      scoring_(suggestPolicy ? suggestPolicy->getScoring() : nullptr),
      weighting_(suggestPolicy ? suggestPolicy->getWeighting() : nullptr) {}

void Suggest::getSuggestions(const ProximityInfo* proximityInfo, void* traverseSession, const int* inputXs,
                             const int* inputYs, const int* times, const int* pointerIds,
                             const int* inputCodePoints, int inputSize, float weightOfLangModelVsSpatialModel,
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

void Suggest::initializeSearch(DicTraverseSession* session, int inputSize) const {
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

void Suggest::expandCurrentDicNodes(DicTraverseSession* session) const {
    DicNodesCache* const cache = session->getDicTraverseCache();
    SearchStatistics* const statistics = session->getMutableStatistics();
    ++statistics->passes;
    session->getWorkspace()->children.reserve(static_cast<size_t>(traversal_->getDefaultExpandDicNodeSize()));
    const bool shouldDepthLevelCache = traversal_->shouldDepthLevelCache(session);
    if (shouldDepthLevelCache) cache->updateLastCachedInputIndex();
    DicNode* const dicNode = &session->getWorkspace()->poppedNode;
    while (cache->activeSize() > 0) {
        cache->popActive(dicNode);
        // The others are left behind too: the swap of the queues clears them.
        if (dicNode->isTotalInputSizeExceedingLimit()) return;
        ++statistics->nodesExpanded;
        if (shouldDepthLevelCache || traversal_->shouldNodeLevelCache(session, dicNode)) {
            cache->copyPushContinue(dicNode);
            dicNode->setCached();
            ++statistics->nodesCached;
        }
        expandDicNode(session, dicNode);
    }
}

void Suggest::expandDicNode(DicTraverseSession* session, DicNode* dicNode) const {
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

void Suggest::expandChildren(DicTraverseSession* session, const DicNode* dicNode,
                             bool allowsErrorCorrections) const {
    DicNodeVector& children = session->getWorkspace()->children;
    const bool isCompletion = dicNode->isCompletion(session->getInputSize());
    const int childCount = fetchChildren(session, dicNode, &children);
    for (int i = 0; i < childCount; ++i) {
        if (isCompletion) {
            processDicNodeAsMatch(session, children[i]);
        } else {
            tryChild(session, dicNode, children[i], allowsErrorCorrections);
        }
    }
}

void Suggest::tryChild(DicTraverseSession* session, const DicNode* dicNode, DicNode* childDicNode,
                       bool allowsErrorCorrections) const {
    DicNode* const correctionDicNode = &session->getWorkspace()->correctionNode;
    if (DigraphUtils::hasDigraphForCodePoint(
            session->getDictionaryStructurePolicy()->getHeaderStructurePolicy(),
            childDicNode->getNodeCodePoint())) {
        correctionDicNode->initByCopy(childDicNode);
        correctionDicNode->advanceDigraphIndex();
        processDicNodeAsDigraph(session, correctionDicNode);
    }
    if (traversal_->isOmission(session, dicNode, childDicNode, allowsErrorCorrections)) {
        correctionDicNode->initByCopy(childDicNode);
        processDicNodeAsOmission(session, correctionDicNode);
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

void Suggest::processTerminalDicNode(DicTraverseSession* session, const DicNode* dicNode) const {
    if (dicNode->getCompoundDistance() >= WEIGHT_CEILING_FLOAT) return;
    if (!dicNode->isTerminalDicNode()) return;
    if (dicNode->shouldBeFilteredBySafetyNetForBigram()) return;
    if (!dicNode->hasMatchedOrProximityCodePoints()) return;
    DicNode* const terminalDicNode = &session->getWorkspace()->terminalNode;
    terminalDicNode->initByCopy(dicNode);
    if (traversal_->needsToTraverseAllUserInput() && dicNode->getInputIndex(0) < session->getInputSize()) {
        Weighting::addCostAndForwardInputIndex(weighting_, CORRECTION_TERMINAL_INSERTION, session, nullptr,
                                               terminalDicNode, session->getMultiBigramMap());
    }
    Weighting::addCostAndForwardInputIndex(weighting_, CORRECTION_TERMINAL, session, nullptr, terminalDicNode,
                                           session->getMultiBigramMap());
    session->getDicTraverseCache()->copyPushTerminal(terminalDicNode);
    ++session->getMutableStatistics()->terminals;
}

void Suggest::processExpandedDicNode(DicTraverseSession* session, const DicNode* dicNode) const {
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

void Suggest::weightChildNode(DicTraverseSession* session, DicNode* dicNode) const {
    const CorrectionType correctionType =
        dicNode->isCompletion(session->getInputSize()) ? CORRECTION_COMPLETION : CORRECTION_MATCH;
    Weighting::addCostAndForwardInputIndex(weighting_, correctionType, session, nullptr, dicNode, nullptr);
}

void Suggest::createNextWordDicNode(DicTraverseSession* session, const DicNode* dicNode,
                                    bool spaceSubstitution) const {
    if (!traversal_->isGoodToTraverseNextWord(dicNode)) return;
    DicNode* const newDicNode = &session->getWorkspace()->nextWordNode;
    DicNodeUtils::initAsRootWithPreviousWord(session->getDictionaryStructurePolicy(), dicNode, newDicNode);
    const CorrectionType correctionType =
        spaceSubstitution ? CORRECTION_NEW_WORD_SPACE_SUBSTITUTION : CORRECTION_NEW_WORD_SPACE_OMISSION;
    Weighting::addCostAndForwardInputIndex(weighting_, correctionType, session, dicNode, newDicNode,
                                           session->getMultiBigramMap());
    if (newDicNode->getCompoundDistance() < WEIGHT_CEILING_FLOAT) pushNextActive(session, newDicNode);
}

void Suggest::processDicNodeAsMatch(DicTraverseSession* session, DicNode* childDicNode) const {
    weightChildNode(session, childDicNode);
    processExpandedDicNode(session, childDicNode);
}

void Suggest::processDicNodeAsDigraph(DicTraverseSession* session, DicNode* childDicNode) const {
    weightChildNode(session, childDicNode);
    childDicNode->advanceDigraphIndex();
    processExpandedDicNode(session, childDicNode);
}

/// `dicNode` is the letter that was left out; the letters behind it are tried at its point. Those that do
/// not fit are left out before they are charged: nobody sees what they would have cost.
void Suggest::processDicNodeAsOmission(DicTraverseSession* session, const DicNode* dicNode) const {
    DicNodeVector& children = session->getWorkspace()->omissionChildren;
    const OmissionView omission{traversal_, session, dicNode};
    const int childCount = fetchChildren(session, dicNode, &children, mayFollowOmission, &omission);
    for (int i = 0; i < childCount; ++i) {
        Weighting::addCostAndForwardInputIndex(weighting_, CORRECTION_OMISSION, session, dicNode, children[i],
                                               nullptr);
        weightChildNode(session, children[i]);
        processExpandedDicNode(session, children[i]);
    }
}

void Suggest::processDicNodeAsInsertion(DicTraverseSession* session, const DicNode* dicNode) const {
    const PointView nextPoint{session->getProximityInfoState(0), dicNode->getInputIndex(0) + 1};
    DicNodeVector& children = session->getWorkspace()->insertionChildren;
    const int childCount = fetchChildren(session, dicNode, &children, isPrimaryLetterOfPoint, &nextPoint);
    for (int i = 0; i < childCount; ++i) {
        Weighting::addCostAndForwardInputIndex(weighting_, CORRECTION_INSERTION, session, dicNode,
                                               children[i], nullptr);
        processExpandedDicNode(session, children[i]);
    }
}

void Suggest::processDicNodeAsTransposition(DicTraverseSession* session, const DicNode* dicNode) const {
    const PointView point{session->getProximityInfoState(0), dicNode->getInputIndex(0)};
    const PointView nextPoint{point.state, point.pointIndex + 1};
    DicNodeVector& firstChildren = session->getWorkspace()->transpositionFirstChildren;
    DicNodeVector& secondChildren = session->getWorkspace()->transpositionSecondChildren;
    const int firstCount = fetchChildren(session, dicNode, &firstChildren, isNearPoint, &nextPoint);
    for (int i = 0; i < firstCount; ++i) {
        const DicNode* const first = firstChildren[i];
        if (!first->hasChildren()) continue;
        const int secondCount = fetchChildren(session, first, &secondChildren, isNearPoint, &point);
        for (int j = 0; j < secondCount; ++j) {
            Weighting::addCostAndForwardInputIndex(weighting_, CORRECTION_TRANSPOSITION, session, first,
                                                   secondChildren[j], nullptr);
            processExpandedDicNode(session, secondChildren[j]);
        }
    }
}

void Suggest::processDicNodeAsAdditionalProximityChar(DicTraverseSession* session, const DicNode* dicNode,
                                                      DicNode* childDicNode) const {
    Weighting::addCostAndForwardInputIndex(weighting_, CORRECTION_ADDITIONAL_PROXIMITY, session, dicNode,
                                           childDicNode, nullptr);
    weightChildNode(session, childDicNode);
    processExpandedDicNode(session, childDicNode);
}

void Suggest::processDicNodeAsSubstitution(DicTraverseSession* session, const DicNode* dicNode,
                                           DicNode* childDicNode) const {
    Weighting::addCostAndForwardInputIndex(weighting_, CORRECTION_SUBSTITUTION, session, dicNode,
                                           childDicNode, nullptr);
    weightChildNode(session, childDicNode);
    processExpandedDicNode(session, childDicNode);
}

}  // namespace wordengine
