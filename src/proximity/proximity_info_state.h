// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "proximity/key_float_map.h"
#include "proximity/point_letter.h"
#include "proximity/proximity_info.h"
#include "proximity/proximity_params.h"
#include "proximity/proximity_type.h"
#include "proximity/sampled_input.h"
#include "text/engine_constants.h"

#include <array>
#include <cstddef>
#include <vector>

namespace wordengine {

/// What the search knows of one pointer's input: the points kept, the proximity list of each, and the
/// normalized squared distance from each point to each key. A session keeps it between requests, so that
/// a longer input continues a shorter one; its vectors grow and then allocate no more.
/// The ProximityInfo of the last `initInputParams` must outlive every use. One search at a time.
/// Point indices are the caller's duty: they lie in 0 to size() - 1 except where told.
class ProximityInfoState {
public:
    ProximityInfoState() = default;
    ProximityInfoState(const ProximityInfoState&) = delete;
    ProximityInfoState& operator=(const ProximityInfoState&) = delete;

    /// Rebuilds the state. `maxPointToKeyLength` caps the distances. `isGeometric` selects the sampled
    /// mode, in which a drawn trace of any length is reduced to the points that matter; otherwise every
    /// point is kept, at most WORD_LENGTH_LIMIT of them, each with its code point in `inputCodes`.
    /// `xCoordinates` and `yCoordinates` may be null, which gives an empty state; a negative first
    /// coordinate puts every typed point on the centre of its key.
    void initInputParams(int pointerId, float maxPointToKeyLength, const ProximityInfo* proximityInfo,
                         const int* inputCodes, int inputSize, const int* xCoordinates,
                         const int* yCoordinates, const int* times, const int* pointerIds, bool isGeometric);

    int size() const { return sampledInputSize_; }
    bool isUsed() const { return sampledInputSize_ > 0; }

    /// PROXIMITY_SLOT_COUNT code points; index below WORD_LENGTH_LIMIT.
    const int* getProximityCodePointsAt(int index) const {
        return inputProximities_.data() + index * PROXIMITY_SLOT_COUNT;
    }
    int getPrimaryCodePointAt(int index) const { return getProximityCodePointsAt(index)[0]; }
    /// The code point that the key of the primary code point has in the layout in use, in its own case.
    int getPrimaryOriginalCodePointAt(int index) const;

    int getInputX(int index) const { return points_.sampledInputXs[static_cast<size_t>(index)]; }
    int getInputY(int index) const { return points_.sampledInputYs[static_cast<size_t>(index)]; }
    int getInputIndexOfSampledPoint(int index) const {
        return points_.sampledInputIndice[static_cast<size_t>(index)];
    }
    bool hasSpaceProximity(int index) const;

    bool touchPositionCorrectionEnabled() const { return touchPositionCorrectionEnabled_; }
    bool isContinuousSuggestionPossible() const { return isContinuousSuggestionPossible_; }

    /// Normalized squared distance to the code point's key, at most `maxPointToKeyLength`. Without a key: 0
    /// for the apostrophe and the hyphen, which may be left out for free, else WEIGHT_CEILING_FLOAT.
    float getPointToKeyLength(int index, int codePoint) const;
    float getPointToKeyByIdLength(int index, int keyId) const;

    /// `proximityIndex` may be null and is never written.
    ProximityType getProximityType(int index, int codePoint, bool checkProximityChars,
                                   int* proximityIndex = nullptr) const;

    /// All of this about one letter, of a point below `size()`. Good until the next question.
    const PointLetter& getLetterAt(int index, int codePoint) const {
        PointLetter& letter = letterCache_.placeOf(index, codePoint);
        if (!letterCache_.isKnown(letter, codePoint)) letter = lookAtLetter(index, codePoint);
        return letter;
    }

    /// Whether the word is what the primary code points spell.
    bool sameAsTyped(const int* word, int length) const;

    /// The rest belongs to the sampled mode.

    /// Negative logarithm of the probability that the point means the key, of skipping it for NO_INDEX;
    /// WEIGHT_CEILING_FLOAT for a key that is out of the question.
    float getProbability(int index, int keyId) const;
    /// PROXIMITY_MATCH if the code point may follow the point on the trace, else PROXIMITY_UNRELATED.
    ProximityType getProximityTypeG(int index, int codePoint) const;
    bool isKeyInSerchKeysAfterIndex(int index, int keyId) const;
    /// Radians; 0 for coincident points or an index out of range.
    float getDirection(int index0, int index1) const;
    /// Copies the zero-ended string to `codePointBuf` (WORD_LENGTH_LIMIT places) and returns its cost.
    float getMostProbableString(int* codePointBuf) const;
    float getAverageSpeed() const { return averageSpeed_; }
    const SampledPoints& getSampledPoints() const { return points_; }

private:
    bool checkAndReturnIsContinuousSuggestionPossible(const RawInput& input) const;
    PointLetter lookAtLetter(int index, int codePoint) const;
    void takeProximityInfo(const ProximityInfo* proximityInfo);
    void reserveForTypedWord();
    void buildInputProximities(const int* inputCodes, const RawInput& input);
    int continueOrClear();
    int trimLastTwoTouchPoints();
    void clearSampledData();
    void updateSampledMode(const RawInput& input, int lastSavedInputSize);
    void initPrimaryInputWord(int inputSize);

    const ProximityInfo* proximityInfo_ = nullptr;
    float maxPointToKeyLength_ = 0.0f;
    float averageSpeed_ = 0.0f;
    bool hasTouchPositionCorrectionData_ = false;
    int keyCount_ = 0;
    bool isContinuousSuggestionPossible_ = false;
    bool hasBeenUpdatedByGeometricInput_ = false;
    SampledPoints points_;
    std::vector<int> sampledBeelineSpeedPercentiles_;
    /// Row-wise: sampled point, then key.
    std::vector<float> sampledNormalizedSquaredLengthCache_;
    std::vector<float> sampledSpeedRates_;
    std::vector<float> sampledDirections_;
    std::vector<KeyFloatMap> charProbabilities_;
    std::vector<SearchKeySet> sampledSearchKeySets_;
    std::vector<SearchKeyVector> sampledSearchKeyVectors_;
    bool touchPositionCorrectionEnabled_ = false;
    std::array<int, WORD_LENGTH_LIMIT * PROXIMITY_SLOT_COUNT> inputProximities_{};
    mutable PointLetterCache letterCache_;
    int sampledInputSize_ = 0;
    std::array<int, WORD_LENGTH_LIMIT> primaryInputWord_{};
    float mostProbableStringProbability_ = 0.0f;
    std::array<int, WORD_LENGTH_LIMIT> mostProbableString_{};
};

}  // namespace wordengine
