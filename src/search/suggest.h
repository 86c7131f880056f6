// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/correction_type.h"
#include "search/suggest_interface.h"

#include <type_traits>
#include <utility>

namespace wordengine {

class DicNode;
class DicTraverseSession;
class Scoring;

/// The search: best first over the dictionary, one input point a pass, with branches for slips. It holds
/// no state of its own, all of it is in the session, so one object may serve any number of sessions.
///
/// `PolicyType` is SuggestPolicy, for any policy, or a class of policies by name, whose rules the compiler
/// can then work into the search.
template <class PolicyType>
class Suggest final : public SuggestInterface {
public:
    /// A null policy gives a search that finds nothing.
    explicit Suggest(const PolicyType* suggestPolicy);

    void getSuggestions(const ProximityInfo* proximityInfo, void* traverseSession, const int* inputXs,
                        const int* inputYs, const int* times, const int* pointerIds,
                        const int* inputCodePoints, int inputSize, float weightOfLangModelVsSpatialModel,
                        SuggestionResults* outSuggestionResults) const override;

private:
    using TraversalType = std::remove_pointer_t<decltype(std::declval<PolicyType>().getTraversal())>;
    using WeightingType = std::remove_pointer_t<decltype(std::declval<PolicyType>().getWeighting())>;

    /// Shorter inputs are searched from the start each time.
    static constexpr int MIN_CONTINUOUS_SUGGESTION_INPUT_SIZE = 2;

    void initializeSearch(DicTraverseSession* session, int inputSize) const;
    void expandCurrentDicNodes(DicTraverseSession* session) const;
    void expandDicNode(DicTraverseSession* session, DicNode* dicNode) const;
    void expandChildren(DicTraverseSession* session, const DicNode* dicNode,
                        bool allowsErrorCorrections) const;
    void expandCompletions(DicTraverseSession* session, const DicNode* dicNode) const;
    void tryChild(DicTraverseSession* session, const DicNode* dicNode, DicNode* childDicNode,
                  bool allowsErrorCorrections) const;
    void processTerminalDicNode(DicTraverseSession* session, const DicNode* dicNode) const;
    /// Charges a copy, without its words, for ending here; null if it can not be among the results.
    DicNode* makeTerminalDicNode(DicTraverseSession* session, const DicNode* dicNode) const;
    void processExpandedDicNode(DicTraverseSession* session, const DicNode* dicNode) const;
    void charge(CorrectionType correctionType, DicTraverseSession* session, const DicNode* parentDicNode,
                DicNode* dicNode) const;
    void weightChildNode(DicTraverseSession* session, DicNode* dicNode) const;
    void createNextWordDicNode(DicTraverseSession* session, const DicNode* dicNode,
                               bool spaceSubstitution) const;
    void processDicNodeAsMatch(DicTraverseSession* session, DicNode* childDicNode) const;
    void processDicNodeAsDigraph(DicTraverseSession* session, DicNode* childDicNode) const;
    void processDicNodeAsOmission(DicTraverseSession* session, const DicNode* dicNode) const;
    void processDicNodeAsInsertion(DicTraverseSession* session, const DicNode* dicNode) const;
    void processDicNodeAsTransposition(DicTraverseSession* session, const DicNode* dicNode) const;
    void processDicNodeAsAdditionalProximityChar(DicTraverseSession* session, const DicNode* dicNode,
                                                 DicNode* childDicNode) const;
    void processDicNodeAsSubstitution(DicTraverseSession* session, const DicNode* dicNode,
                                      DicNode* childDicNode) const;

    TraversalType* const traversal_;
    const Scoring* const scoring_;
    WeightingType* const weighting_;
};

}  // namespace wordengine
