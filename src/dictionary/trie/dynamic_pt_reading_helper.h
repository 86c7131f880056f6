// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "text/engine_constants.h"

#include <cstdint>
#include <vector>

namespace wordengine {

class PtNodeArrayReader;
class PtNodeParams;
class PtNodeReader;

/// A cursor over the nodes of a trie of any format. Every loop ends on any bytes: chains of arrays, depth
/// and the bytes of a whole walk are limited, and a limit that is hit, like an array or node that can not
/// be read, ends the reading with `isError`. The readers must outlive the helper.
class DynamicPtReadingHelper {
public:
    static constexpr int MAX_CHILD_COUNT_TO_AVOID_INFINITE_LOOP = 100000;
    static constexpr int MAX_PT_NODE_ARRAY_COUNT_TO_AVOID_INFINITE_LOOP = 100000;
    static constexpr int MAX_READING_STATE_STACK_SIZE = 48;

    /// Hears of a walk. An event that returns false stops it.
    class TraversingEventListener {
    public:
        virtual ~TraversingEventListener() = default;
        virtual bool onAscend() = 0;
        virtual bool onDescend(int ptNodeArrayPos) = 0;
        virtual bool onReadingPtNodeArrayTail() = 0;
        virtual bool onVisitingPtNode(const PtNodeParams* ptNodeParams) = 0;
    };

    /// Collects the head positions of all nodes that end a word and are not deleted.
    class TraversePolicyToGetAllTerminalPtNodePositions final : public TraversingEventListener {
    public:
        explicit TraversePolicyToGetAllTerminalPtNodePositions(std::vector<int>* outTerminalPositions)
            : terminalPositions_(outTerminalPositions) {}

        bool onAscend() override { return true; }
        bool onDescend(int) override { return true; }
        bool onReadingPtNodeArrayTail() override { return true; }
        bool onVisitingPtNode(const PtNodeParams* ptNodeParams) override;

    private:
        std::vector<int>* terminalPositions_;
    };

    /// `trieSize` is how many bytes the readers read from.
    DynamicPtReadingHelper(const PtNodeReader* ptNodeReader, const PtNodeArrayReader* ptNodeArrayReader,
                           int trieSize)
        : ptNodeReader_(ptNodeReader), ptNodeArrayReader_(ptNodeArrayReader), trieSize_(trieSize) {}

    void initWithPtNodeArrayPos(int ptNodeArrayPos);
    void initWithPtNodePos(int ptNodePos);

    bool isError() const { return isError_; }
    bool isEnd() const { return readingState_.pos == NO_DICT_POS; }

    /// The node under the cursor; an invalid one is not an error yet.
    PtNodeParams getPtNodeParams() const;

    /// The same, perhaps without its probability.
    PtNodeParams getPtNodeWithoutProbability() const;

    /// Code points of the nodes above the current array.
    int getTotalCodePointCount() const { return readingState_.totalCodePointCount; }
    int getPosOfLastForwardLinkField() const { return readingState_.posOfLastForwardLinkField; }
    int getPosOfLastPtNodeArrayHead() const { return readingState_.posOfLastPtNodeArrayHead; }

    void goToNextSibling(const PtNodeParams& ptNodeParams);
    void goToChildren(const PtNodeParams& ptNodeParams);

    /// Children before their parent. False if an event said so or the trie can not be read to its end.
    bool traverseAllPtNodesInPostorderDepthFirstManner(TraversingEventListener* listener);

    /// All nodes of an array before those below any of them. False as above.
    bool traverseAllPtNodesInPtNodeArrayLevelPreorderDepthFirstManner(TraversingEventListener* listener);

    /// The word that ends at the node under the cursor, found by its parent links; 0 if none does.
    int getCodePointsAndProbabilityAndReturnCodePointCount(int maxCodePointCount, int* outCodePoints,
                                                           int* outUnigramProbability);

    /// The node at which the word ends, from the array under the cursor; or NO_DICT_POS.
    int getTerminalPtNodePositionOfWord(const int* word, int length, bool forceLowerCaseSearch);

private:
    struct PtNodeReadingState {
        int pos = NO_DICT_POS;
        int remainingPtNodeCountInThisArray = 0;
        int totalCodePointCount = 0;
        int totalPtNodeIndexInThisArrayChain = 0;
        int ptNodeArrayIndexInThisArrayChain = 0;
        int posOfLastForwardLinkField = NO_DICT_POS;
        int posOfLastPtNodeArrayHead = NO_DICT_POS;
    };

    void nextPtNodeArray();
    void followForwardLink();
    bool goToLinkedPtNodeArray();
    void endWithError();
    bool descendWithReturnToNextSibling(const PtNodeParams& ptNodeParams);
    bool pushReadingState();
    void popReadingState();
    bool countNodeOfWalk(const PtNodeParams& ptNodeParams);

    bool isError_ = false;
    PtNodeReadingState readingState_;
    const PtNodeReader* ptNodeReader_;
    const PtNodeArrayReader* ptNodeArrayReader_;
    int trieSize_;
    int64_t bytesOfWalk_ = 0;
    std::vector<PtNodeReadingState> readingStateStack_;
};

}  // namespace wordengine
