// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node_child.h"
#include "node/dic_node_properties.h"
#include "node/dic_node_state.h"
#include "node/error_type_utils.h"
#include "text/engine_constants.h"

#include <type_traits>

namespace wordengine {

/// One state of the search: a place in the dictionary, the input consumed, the words spelled, the costs.
/// A flat value that owns nothing and refers to nothing; a new one is undefined until an `init`. Copy with
/// `initByCopy`, which moves only the used part of the buffer.
class DicNode {
public:
    DicNode() {}  // Leaves the fields alone: nodes are made in bulk and always initialised later.

    /// `prevWordsPtNodePos` holds one position; null stands for no previous word.
    void initAsRoot(int rootPtNodeArrayPos, const int* prevWordsPtNodePos);
    /// The root for the word after `prevWordLastDicNode`'s; its costs are carried on.
    void initAsRootWithPreviousWord(const DicNode* prevWordLastDicNode, int rootPtNodeArrayPos);
    void initByCopy(const DicNode* other) {
        initByCopyWithoutWords(other);
        takeWordsOf(other);
    }
    /// The next code point of the dictionary node that `parent` is in the middle of.
    void initAsPassingChild(const DicNode* parent) {
        initAsPassingChildWithoutWords(parent);
        takeWordsOf(parent);
    }
    void initAsPassingChildWithoutWords(const DicNode* parent) {
        isCachedForNextSuggestion_ = parent->isCachedForNextSuggestion_;
        properties_.initAsPassingChild(parent->properties_, parent->getPassingCodePoint());
        state_.initByCopyWithoutWords(parent->state_);
    }
    /// The first of the `mergedNodeCodePointCount` code points of a child of `parent`.
    void initAsChild(const DicNode* parent, int ptNodePos, int childrenPtNodeArrayPos, int probability,
                     bool isTerminal, bool hasChildren, bool isBlacklistedOrNotAWord,
                     int mergedNodeCodePointCount, const int* mergedNodeCodePoints) {
        isCachedForNextSuggestion_ = parent->isCachedForNextSuggestion_;
        const int codePoint = mergedNodeCodePoints ? mergedNodeCodePoints[0] : NO_CODE_POINT;
        properties_.initAsChild(parent->properties_, ptNodePos, childrenPtNodeArrayPos, codePoint,
                                probability, isTerminal, hasChildren, isBlacklistedOrNotAWord,
                                mergedNodeCodePointCount);
        state_.initByCopy(parent->state_);
        state_.output_.addMergedNodeCodePoints(mergedNodeCodePointCount, mergedNodeCodePoints);
    }
    void initAsChild(const DicNode* parent, const DicNodeChild& child, const int* codePoints) {
        initAsChildWithoutWords(parent, child);
        takeWordsOf(parent);
        addCodePoints(child.codePointCount, codePoints);
    }
    /// A child that has not been given its words: what reads them needs `takeWordsOf` its parent and
    /// `addCodePoints` first.
    void initAsChildWithoutWords(const DicNode* parent, const DicNodeChild& child) {
        isCachedForNextSuggestion_ = parent->isCachedForNextSuggestion_;
        properties_.initAsChild(parent->properties_, child.ptNodePos, child.childrenPtNodeArrayPos,
                                child.codePoint, child.probability, child.isTerminal, child.hasChildren,
                                child.isBlacklistedOrNotAWord, child.codePointCount);
        state_.initByCopyWithoutWords(parent->state_);
    }
    void addCodePoints(int count, const int* codePoints) {
        state_.output_.addMergedNodeCodePoints(count, codePoints);
    }
    /// A copy that has not been given its words: what reads them needs `takeWordsOf` first.
    void initByCopyWithoutWords(const DicNode* other) {
        isCachedForNextSuggestion_ = other->isCachedForNextSuggestion_;
        properties_ = other->properties_;
        state_.initByCopyWithoutWords(other->state_);
    }
    /// What has been charged to `other`, and how far it has come in the input.
    void takeCostsOf(const DicNode* other) {
        state_.scoring_ = other->state_.scoring_;
        state_.input_ = other->state_.input_;
    }
    void takeWordsOf(const DicNode* other) { state_.output_.copyWords(other->state_.output_); }

    // What the dictionary says.
    int getPtNodePos() const { return properties_.getPtNodePos(); }
    int getChildrenPtNodeArrayPos() const { return properties_.getChildrenPtNodeArrayPos(); }
    int getProbability() const { return properties_.getProbability(); }
    const int* getPrevWordsTerminalPtNodePos() const { return properties_.getPrevWordsTerminalPtNodePos(); }
    bool isBlacklistedOrNotAWord() const { return properties_.isBlacklistedOrNotAWord(); }
    /// The step's own code point, as the dictionary has it.
    int getDicNodeCodePoint() const { return properties_.getDicNodeCodePoint(); }
    /// The same, or the letter that stands for it in the half of a digraph that the node is in.
    int getNodeCodePoint() const {
        return isInDigraph() ? getDigraphNodeCodePoint() : properties_.getDicNodeCodePoint();
    }
    /// The code point behind this step's inside the same dictionary node, NO_CODE_POINT at its end.
    int getPassingCodePoint() const {
        return state_.output_.getCurrentWordCodePointAt(getNodeCodePointCount());
    }
    /// Code points of the current word so far.
    int getNodeCodePointCount() const { return properties_.getDepth(); }
    int getLeavingDepth() const { return properties_.getLeavingDepth(); }
    bool isLeavingNode() const { return properties_.getDepth() == properties_.getLeavingDepth(); }
    /// A word of the dictionary ends here.
    bool isTerminalDicNode() const {
        return properties_.isTerminal() && properties_.getDepth() > 0 && isLeavingNode();
    }
    /// Whether there is a further step, be it inside the same dictionary node.
    bool hasChildren() const { return !isLeavingNode() || properties_.hasChildren(); }

    // How much of the input has been consumed.
    int getInputIndex(int pointerId) const { return state_.input_.getInputIndex(pointerId); }
    int getTotalInputIndex() const { return state_.input_.getTotalInputIndex(); }
    int getPrevCodePoint(int pointerId) const { return state_.input_.getPrevCodePoint(pointerId); }
    bool isCompletion(int inputSize) const { return getInputIndex(0) >= inputSize; }
    bool canDoLookAheadCorrection(int inputSize) const { return getInputIndex(0) < inputSize - 1; }
    void forwardInputIndex(int pointerId, int count) { state_.input_.forwardInputIndex(pointerId, count); }
    void setPrevCodePoint(int pointerId, int codePoint) {
        state_.input_.setPrevCodePoint(pointerId, codePoint);
    }

    // What has been spelled.
    const int* getOutputWordBuf() const { return state_.output_.getCodePointBuf(); }
    const int* getCurrentWord() const { return state_.output_.getCurrentWord(); }
    int getTotalNodeCodePointCount() const {
        return getNodeCodePointCount() + state_.output_.getPrevWordsLength();
    }
    bool isTotalInputSizeExceedingLimit() const {
        // A node may still grow by a letter, and a space and a 0 follow.
        return getTotalNodeCodePointCount() > WORD_LENGTH_LIMIT - 3;
    }
    bool hasMultipleWords() const { return state_.output_.getPrevWordCount() > 0; }
    int getPrevWordCount() const { return state_.output_.getPrevWordCount(); }
    bool isFirstCharUppercase() const {
        const int codePoint = state_.output_.getCurrentWordCodePointAt(0);
        return codePoint >= 'A' && codePoint <= 'Z';
    }
    /// A letter that people leave out on purpose.
    bool canBeIntentionalOmission() const {
        const int codePoint = getNodeCodePoint();
        return codePoint == CODE_POINT_APOSTROPHE || codePoint == CODE_POINT_HYPHEN;
    }
    bool isZeroCostOmission() const { return getNodeCodePoint() == CODE_POINT_APOSTROPHE; }
    /// Two words of one letter in a row are more likely a slip than meant.
    bool isValidMultipleWordSuggestion() const;
    bool shouldBeFilteredBySafetyNetForBigram() const;
    /// Whether at least one letter was typed as it is, a near key at worst.
    bool hasMatchedOrProximityCodePoints() const {
        return state_.scoring_.getEditCorrectionCount() + state_.scoring_.getCompletionCount() <
               getNodeCodePointCount();
    }
    /// Spaces between the words so far.
    int getTotalNodeSpaceCount() const;
    /// Copies all that has been spelled; `dest` holds WORD_LENGTH_LIMIT code points.
    void outputResult(int* dest) const;
    /// The sampled point at which the second word began, translated to the raw input; NO_INDEX if unset.
    template <class InputState>
    int getSecondWordFirstInputIndex(const InputState* inputState) const {
        const int inputIndex = state_.output_.getSecondWordFirstInputIndex();
        return inputIndex == NO_INDEX ? NO_INDEX : inputState->getInputIndexOfSampledPoint(inputIndex);
    }

    // Digraphs: one letter of the dictionary typed as two.
    bool isInDigraph() const { return state_.scoring_.getDigraphIndex() != 0; }
    void advanceDigraphIndex() { state_.scoring_.advanceDigraphIndex(); }

    // Costs.
    void addCost(float spatialCost, float languageCost, bool doNormalization, int inputSize,
                 int totalInputIndex, ErrorTypeUtils::ErrorType errorType) {
        state_.scoring_.addCost(spatialCost, languageCost, doNormalization, inputSize, totalInputIndex,
                                errorType);
    }
    void saveNormalizedCompoundDistanceAfterFirstWordIfNoneYet() {
        state_.scoring_.saveNormalizedCompoundDistanceAfterFirstWordIfNoneYet();
    }
    float getCompoundDistance() const { return state_.scoring_.getCompoundDistance(); }
    float getCompoundDistance(float languageWeight) const {
        return state_.scoring_.getCompoundDistance(languageWeight);
    }
    float getNormalizedCompoundDistance() const { return state_.scoring_.getNormalizedCompoundDistance(); }
    float getNormalizedCompoundDistanceAfterFirstWord() const {
        return state_.scoring_.getNormalizedCompoundDistanceAfterFirstWord();
    }
    float getNormalizedSpatialDistance() const {
        return state_.scoring_.getSpatialDistance() / static_cast<float>(getInputIndex(0) + 1);
    }
    int getEditCorrectionCount() const { return state_.scoring_.getEditCorrectionCount(); }
    int getProximityCorrectionCount() const { return state_.scoring_.getProximityCorrectionCount(); }
    ErrorTypeUtils::ErrorType getContainedErrorTypes() const {
        return state_.scoring_.getContainedErrorTypes();
    }

    // Kept for a following, longer input.
    bool isCached() const { return isCachedForNextSuggestion_; }
    void setCached() { isCachedForNextSuggestion_ = true; }

private:
    int getDigraphNodeCodePoint() const;

    DicNodeProperties properties_;
    bool isCachedForNextSuggestion_;
    DicNodeState state_;
};

static_assert(std::is_trivially_copyable_v<DicNode>, "nodes are moved as plain bytes");

}  // namespace wordengine
