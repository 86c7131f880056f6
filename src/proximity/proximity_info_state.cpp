// SPDX-License-Identifier: Apache-2.0
#include "proximity/proximity_info_state.h"

#include "proximity/bounded_numbers.h"
#include "proximity/proximity_info_state_utils.h"
#include "proximity/proximity_info_utils.h"
#include "text/char_utils.h"

#include <algorithm>

namespace wordengine {

namespace {

using Utils = ProximityInfoStateUtils;

/// A typed word has a proximity list a letter; a drawn trace may have any number of points.
int usableInputSize(const ProximityInfo* proximityInfo, const int* inputCodes, int inputSize,
                    bool isGeometric) {
    if (proximityInfo == nullptr) return 0;
    if (isGeometric) return std::max(inputSize, 0);
    return inputCodes != nullptr ? std::clamp(inputSize, 0, WORD_LENGTH_LIMIT) : 0;
}

}  // namespace

void ProximityInfoState::initInputParams(int pointerId, float maxPointToKeyLength,
                                         const ProximityInfo* proximityInfo, const int* inputCodes,
                                         int inputSize, const int* xCoordinates, const int* yCoordinates,
                                         const int* times, const int* pointerIds, bool isGeometric) {
    const RawInput input{.pointerId = pointerId,
                         .inputSize = usableInputSize(proximityInfo, inputCodes, inputSize, isGeometric),
                         .xs = xCoordinates,
                         .ys = yCoordinates,
                         .times = times,
                         .pointerIds = pointerIds};
    isContinuousSuggestionPossible_ = proximityInfo != nullptr &&
                                      hasBeenUpdatedByGeometricInput_ == isGeometric &&
                                      checkAndReturnIsContinuousSuggestionPossible(input);
    takeProximityInfo(proximityInfo);
    const bool isTypedWord = !isGeometric && pointerId == 0;
    inputProximities_.fill(0);
    if (isTypedWord) {
        reserveForTypedWord();
        letterCache_.clear();
        buildInputProximities(inputCodes, input);
    }

    maxPointToKeyLength_ = maxPointToKeyLength;
    sampledInputSize_ = 0;
    mostProbableStringProbability_ = 0.0f;
    const int pushTouchPointStartIndex = continueOrClear();
    const int lastSavedInputSize = points_.size();
    if (proximityInfo != nullptr && input.hasCoordinates()) {
        sampledInputSize_ =
            Utils::updateTouchPoints(*proximityInfo, maxPointToKeyLength, inputProximities_.data(), input,
                                     isGeometric, pushTouchPointStartIndex, &points_);
    }
    if (sampledInputSize_ > 0) {
        Utils::initGeometricDistanceInfos(*proximityInfo, sampledInputSize_, lastSavedInputSize, isGeometric,
                                          points_.sampledInputXs, points_.sampledInputYs,
                                          &sampledNormalizedSquaredLengthCache_);
        if (isGeometric) updateSampledMode(input, lastSavedInputSize);
    }
    touchPositionCorrectionEnabled_ =
        sampledInputSize_ > 0 && hasTouchPositionCorrectionData_ && input.hasCoordinates();
    if (isTypedWord) initPrimaryInputWord(input.inputSize);
    hasBeenUpdatedByGeometricInput_ = isGeometric;
}

bool ProximityInfoState::checkAndReturnIsContinuousSuggestionPossible(const RawInput& input) const {
    if (input.inputSize < sampledInputSize_) return false;
    if (sampledInputSize_ > 0 && !input.hasCoordinates()) return false;
    for (int i = 0; i < sampledInputSize_; ++i) {
        const int j = points_.sampledInputIndice[i];
        if (j >= input.inputSize) return false;
        if (input.xAt(j) != points_.sampledInputXs[i] || input.yAt(j) != points_.sampledInputYs[i]) {
            return false;
        }
        if (input.times != nullptr && input.timeAt(j) != points_.sampledTimes[i]) return false;
    }
    return true;
}

void ProximityInfoState::takeProximityInfo(const ProximityInfo* proximityInfo) {
    proximityInfo_ = proximityInfo;
    if (proximityInfo == nullptr) return;
    hasTouchPositionCorrectionData_ = proximityInfo->hasTouchPositionCorrectionData();
    keyCount_ = proximityInfo->getKeyCount();
}

/// At once for the longest word, so that no later letter has to wait for room.
void ProximityInfoState::reserveForTypedWord() {
    constexpr size_t limit = WORD_LENGTH_LIMIT;
    points_.reserve(limit);
    sampledNormalizedSquaredLengthCache_.reserve(limit * static_cast<size_t>(std::max(keyCount_, 0)));
}

void ProximityInfoState::buildInputProximities(const int* inputCodes, const RawInput& input) {
    for (int i = 0; i < input.inputSize; ++i) {
        ProximityInfoUtils::buildProximityCodePoints(*proximityInfo_, inputCodes[i],
                                                     input.xs != nullptr ? input.xAt(i) : NO_COORDINATE,
                                                     input.ys != nullptr ? input.yAt(i) : NO_COORDINATE,
                                                     inputProximities_.data() + i * PROXIMITY_SLOT_COUNT);
    }
}

/// Returns the raw index from which on touch points have to be pushed.
int ProximityInfoState::continueOrClear() {
    if (isContinuousSuggestionPossible_ && points_.size() > 1) return trimLastTwoTouchPoints();
    clearSampledData();
    return 0;
}

int ProximityInfoState::trimLastTwoTouchPoints() {
    const int nextPushIndex = points_.sampledInputIndice[points_.sampledInputIndice.size() - 2];
    points_.popInputData();
    points_.popInputData();
    return nextPushIndex;
}

void ProximityInfoState::clearSampledData() {
    points_.clear();
    sampledBeelineSpeedPercentiles_.clear();
    sampledNormalizedSquaredLengthCache_.clear();
    sampledSpeedRates_.clear();
    sampledDirections_.clear();
    charProbabilities_.clear();
    sampledSearchKeySets_.clear();
    sampledSearchKeyVectors_.clear();
}

void ProximityInfoState::updateSampledMode(const RawInput& input, int lastSavedInputSize) {
    averageSpeed_ = Utils::refreshSpeedRates(input, lastSavedInputSize, points_, &sampledSpeedRates_,
                                             &sampledDirections_);
    Utils::refreshBeelineSpeedRates(proximityInfo_->getMostCommonKeyWidth(), averageSpeed_, input, points_,
                                    &sampledBeelineSpeedPercentiles_);
    const Utils::Trace trace{.proximityInfo = *proximityInfo_,
                             .maxPointToKeyLength = maxPointToKeyLength_,
                             .points = points_,
                             .speedRates = sampledSpeedRates_,
                             .directions = sampledDirections_,
                             .distanceCache = sampledNormalizedSquaredLengthCache_};
    Utils::updateAlignPointProbabilities(trace, lastSavedInputSize, sampledInputSize_, &charProbabilities_);
    Utils::updateSampledSearchKeySets(*proximityInfo_, sampledInputSize_, lastSavedInputSize,
                                      points_.sampledLengthCache, charProbabilities_, &sampledSearchKeySets_,
                                      &sampledSearchKeyVectors_);
    mostProbableStringProbability_ = Utils::getMostProbableString(
        *proximityInfo_, sampledInputSize_, charProbabilities_, mostProbableString_.data());
}

void ProximityInfoState::initPrimaryInputWord(int inputSize) {
    primaryInputWord_.fill(0);
    for (int i = 0; i < inputSize; ++i) primaryInputWord_[i] = getPrimaryCodePointAt(i);
}

int ProximityInfoState::getPrimaryOriginalCodePointAt(int index) const {
    return proximityInfo_->getOriginalCodePointOf(
        proximityInfo_->getKeyIndexOf(getPrimaryCodePointAt(index)));
}

bool ProximityInfoState::hasSpaceProximity(int index) const {
    return proximityInfo_->hasSpaceProximity(getInputX(index), getInputY(index));
}

float ProximityInfoState::getPointToKeyLength(int index, int codePoint) const {
    const int keyId = proximityInfo_->getKeyIndexOf(codePoint);
    if (keyId != NO_INDEX) return getPointToKeyByIdLength(index, keyId);
    return CharUtils::isIntentionalOmissionCodePoint(codePoint) ? 0.0f : WEIGHT_CEILING_FLOAT;
}

float ProximityInfoState::getPointToKeyByIdLength(int index, int keyId) const {
    return Utils::getPointToKeyByIdLength(maxPointToKeyLength_, sampledNormalizedSquaredLengthCache_,
                                          keyCount_, index, keyId);
}

ProximityType ProximityInfoState::getProximityType(int index, int codePoint, bool checkProximityChars,
                                                   int*) const {
    const int* const slots = getProximityCodePointsAt(index);
    const int first = slots[0];
    const int base = CharUtils::toBaseLowerCase(codePoint);
    if (first == base || first == codePoint) return PROXIMITY_MATCH;
    if (!checkProximityChars) return PROXIMITY_SUBSTITUTION;
    // An accented form of what was typed.
    if (CharUtils::toBaseLowerCase(first) == base) return PROXIMITY_NEAR;
    int j = 1;
    for (; j < PROXIMITY_SLOT_COUNT && slots[j] > ADDITIONAL_CHARS_DELIMITER; ++j) {
        if (slots[j] == base || slots[j] == codePoint) return PROXIMITY_NEAR;
    }
    if (j < PROXIMITY_SLOT_COUNT && slots[j] == ADDITIONAL_CHARS_DELIMITER) {
        for (++j; j < PROXIMITY_SLOT_COUNT && slots[j] > ADDITIONAL_CHARS_DELIMITER; ++j) {
            if (slots[j] == base || slots[j] == codePoint) return PROXIMITY_ADDITIONAL;
        }
    }
    return PROXIMITY_SUBSTITUTION;
}

PointLetter ProximityInfoState::lookAtLetter(int index, int codePoint) const {
    const int base = CharUtils::toBaseLowerCase(codePoint);
    return {.codePoint = codePoint,
            .length = getPointToKeyLength(index, base),
            .generation = letterCache_.generation(),
            .type = getProximityType(index, codePoint, true),
            .isPrimaryLetter = CharUtils::toBaseLowerCase(getPrimaryCodePointAt(index)) == base};
}

bool ProximityInfoState::sameAsTyped(const int* word, int length) const {
    return length == sampledInputSize_ && length <= WORD_LENGTH_LIMIT &&
           std::equal(word, word + length, primaryInputWord_.begin());
}

float ProximityInfoState::getProbability(int index, int keyId) const {
    return charProbabilities_[index].get(keyId, WEIGHT_CEILING_FLOAT);
}

ProximityType ProximityInfoState::getProximityTypeG(int index, int codePoint) const {
    if (!isUsed()) return PROXIMITY_UNRELATED;
    const int lower = CharUtils::toLowerCase(codePoint);
    const int baseLower = CharUtils::toBaseLowerCase(codePoint);
    const SearchKeyVector& candidates = sampledSearchKeyVectors_[index];
    const bool isCandidate = std::any_of(candidates.begin(), candidates.end(), [&](int candidate) {
        return candidate == lower || candidate == baseLower;
    });
    return isCandidate ? PROXIMITY_MATCH : PROXIMITY_UNRELATED;
}

bool ProximityInfoState::isKeyInSerchKeysAfterIndex(int index, int keyId) const {
    return keyId >= 0 && keyId < keyCount_ && sampledSearchKeySets_[index].test(static_cast<size_t>(keyId));
}

float ProximityInfoState::getDirection(int index0, int index1) const {
    return Utils::getDirection(points_, index0, index1);
}

float ProximityInfoState::getMostProbableString(int* codePointBuf) const {
    std::copy(mostProbableString_.begin(), mostProbableString_.end(), codePointBuf);
    return mostProbableStringProbability_;
}

}  // namespace wordengine
