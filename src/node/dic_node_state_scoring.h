// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/error_type_utils.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <cstdint>

namespace wordengine {

enum class DoubleLetterLevel : uint8_t { NONE = 0, DOUBLE_LETTER = 1, STRONG_DOUBLE_LETTER = 2 };

/// The costs that a search node has run up, and what for.
class DicNodeStateScoring {
public:
    void init() {
        normalizedCompoundDistance_ = 0.0f;
        spatialDistance_ = 0.0f;
        languageDistance_ = 0.0f;
        rawLength_ = 0.0f;
        normalizedCompoundDistanceAfterFirstWord_ = WEIGHT_CEILING_FLOAT;
        containedErrorTypes_ = ErrorTypeUtils::NOT_AN_ERROR;
        editCorrectionCount_ = 0;
        proximityCorrectionCount_ = 0;
        completionCount_ = 0;
        doubleLetterLevel_ = DoubleLetterLevel::NONE;
        digraphIndex_ = 0;
    }

    /// For the root of a next word: everything is carried on except what belongs to single letters.
    void initAsNextWord(const DicNodeStateScoring& previous) {
        *this = previous;
        digraphIndex_ = 0;
        doubleLetterLevel_ = DoubleLetterLevel::NONE;
    }

    void addCost(float spatialCost, float languageCost, bool doNormalization, [[maybe_unused]] int inputSize,
                 int totalInputIndex, ErrorTypeUtils::ErrorType errorType) {
        spatialDistance_ += spatialCost;
        languageDistance_ += languageCost;
        normalizedCompoundDistance_ = spatialDistance_ + languageDistance_;
        if (doNormalization) {
            normalizedCompoundDistance_ /= static_cast<float>(std::max(1, totalInputIndex));
        }
        containedErrorTypes_ |= errorType;
        if (ErrorTypeUtils::isEditCorrectionError(errorType)) ++editCorrectionCount_;
        if (ErrorTypeUtils::isProximityCorrectionError(errorType)) ++proximityCorrectionCount_;
        if (ErrorTypeUtils::isCompletion(errorType)) ++completionCount_;
    }

    void saveNormalizedCompoundDistanceAfterFirstWordIfNoneYet() {
        if (normalizedCompoundDistanceAfterFirstWord_ >= WEIGHT_CEILING_FLOAT) {
            normalizedCompoundDistanceAfterFirstWord_ = normalizedCompoundDistance_;
        }
    }

    /// None, first half, second half, and none again.
    void advanceDigraphIndex() { digraphIndex_ = static_cast<uint8_t>((digraphIndex_ + 1) % 3); }

    /// A level never falls: a strong double letter stays one.
    void setDoubleLetterLevel(DoubleLetterLevel level) {
        doubleLetterLevel_ = std::max(doubleLetterLevel_, level);
    }

    void addRawLength(float rawLength) { rawLength_ += rawLength; }

    float getCompoundDistance() const { return spatialDistance_ + languageDistance_; }
    float getCompoundDistance(float languageWeight) const {
        return spatialDistance_ + languageDistance_ * languageWeight;
    }
    float getNormalizedCompoundDistance() const { return normalizedCompoundDistance_; }
    float getNormalizedCompoundDistanceAfterFirstWord() const {
        return normalizedCompoundDistanceAfterFirstWord_;
    }
    float getSpatialDistance() const { return spatialDistance_; }
    float getLanguageDistance() const { return languageDistance_; }
    float getRawLength() const { return rawLength_; }
    int getEditCorrectionCount() const { return editCorrectionCount_; }
    int getProximityCorrectionCount() const { return proximityCorrectionCount_; }
    int getCompletionCount() const { return completionCount_; }
    /// 0 outside a digraph, 1 in its first half, 2 in its second.
    int getDigraphIndex() const { return digraphIndex_; }
    DoubleLetterLevel getDoubleLetterLevel() const { return doubleLetterLevel_; }
    ErrorTypeUtils::ErrorType getContainedErrorTypes() const { return containedErrorTypes_; }

private:
    float normalizedCompoundDistance_;
    float spatialDistance_;
    float languageDistance_;
    float rawLength_;
    float normalizedCompoundDistanceAfterFirstWord_;
    ErrorTypeUtils::ErrorType containedErrorTypes_;
    int16_t editCorrectionCount_;
    int16_t proximityCorrectionCount_;
    int16_t completionCount_;
    DoubleLetterLevel doubleLetterLevel_;
    uint8_t digraphIndex_;
};

}  // namespace wordengine
