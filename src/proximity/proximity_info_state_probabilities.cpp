// SPDX-License-Identifier: Apache-2.0
#include "proximity/normal_distribution_2d.h"
#include "proximity/proximity_info_params.h"
#include "proximity/proximity_info_state_utils.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace wordengine {

namespace {

using Params = ProximityInfoParams;
using Utils = ProximityInfoStateUtils;

constexpr float PI = std::numbers::pi_v<float>;

float atMostOne(float value) {
    return std::min(1.0f, value);
}

/// What a point looks like to the formulas below.
struct PointShape {
    int index;
    bool isFirst;
    bool isLast;
    float angle;
    float speedRate;
    /// Normalized squared distance to the nearest key.
    float nearest;
};

PointShape shapeOf(const Utils::Trace& trace, int index, int size) {
    float nearest = WEIGHT_CEILING_FLOAT;
    const int keyCount = trace.proximityInfo.getKeyCount();
    for (int k = 0; k < keyCount; ++k) {
        nearest = std::min(nearest, Utils::getPointToKeyByIdLength(trace.maxPointToKeyLength,
                                                                   trace.distanceCache, keyCount, index, k));
    }
    return {.index = index,
            .isFirst = index == 0,
            .isLast = index == size - 1,
            .angle = Utils::getPointAngle(trace.directions, index),
            .speedRate = trace.speedRates[index],
            .nearest = nearest};
}

/// A point slower than both its neighbours is where the finger hesitated, so it means a letter.
float slownessFactor(const Utils::Trace& trace, const PointShape& point) {
    const float previousRate = trace.speedRates[point.index - 1] - Params::SPEED_MARGIN;
    const float nextRate = trace.speedRates[point.index + 1] - Params::SPEED_MARGIN;
    if (previousRate <= point.speedRate || nextRate <= point.speedRate) return 1.0f;
    if (point.angle < Params::CORNER_ANGLE_THRESHOLD) {
        return atMostOne(point.speedRate * Params::SLOW_STRAIGHT_WEIGHT_FOR_SKIP_PROBABILITY);
    }
    return atMostOne(point.speedRate * Params::SPEED_WEIGHT_FOR_SKIP_PROBABILITY +
                     Params::MIN_SPEED_RATE_FOR_SKIP_PROBABILITY);
}

float skipProbabilityInside(const Utils::Trace& trace, const PointShape& point) {
    float skip = Params::MAX_SKIP_PROBABILITY;
    skip *= slownessFactor(trace, point);
    skip *= atMostOne(point.speedRate * point.nearest * Params::NEAREST_DISTANCE_WEIGHT +
                      Params::NEAREST_DISTANCE_BIAS);
    skip *= (PI - point.angle) / PI * Params::ANGLE_WEIGHT + (1.0f - Params::ANGLE_WEIGHT);
    if (point.angle > Params::DEEP_CORNER_ANGLE_THRESHOLD) skip *= Params::SKIP_DEEP_CORNER_PROBABILITY;
    const int i = point.index;
    const float prevAngle = Utils::getPointsAngle(trace.points, i, i - 2, i - 3);
    if (i >= 3 && prevAngle < Params::STRAIGHT_ANGLE_THRESHOLD &&
        point.angle > Params::CORNER_ANGLE_THRESHOLD) {
        skip *= Params::SKIP_CORNER_PROBABILITY;
    }
    return skip;
}

float skipProbability(const Utils::Trace& trace, const PointShape& point) {
    if (point.isFirst) {
        return Params::MAX_SKIP_PROBABILITY *
               atMostOne(point.nearest * Params::NEAREST_DISTANCE_WEIGHT + Params::NEAREST_DISTANCE_BIAS) *
               Params::SKIP_FIRST_POINT_PROBABILITY;
    }
    if (point.isLast) {
        return Params::MAX_SKIP_PROBABILITY *
               atMostOne(point.nearest * Params::NEAREST_DISTANCE_WEIGHT_FOR_LAST +
                         Params::NEAREST_DISTANCE_BIAS_FOR_LAST) *
               Params::SKIP_LAST_POINT_PROBABILITY;
    }
    // Times that run backwards give negative rates; no probability follows from them.
    return std::max(0.0f, skipProbabilityInside(trace, point));
}

NormalDistribution2D distributionAround(const Utils::Trace& trace, const PointShape& point) {
    const float speedxAngleRate =
        std::min(point.speedRate * point.angle / PI * Params::SPEEDxANGLE_WEIGHT_FOR_STANDARD_DEVIATION,
                 Params::MAX_SPEEDxANGLE_RATE_FOR_STANDARD_DEVIATION);
    const float speedxNearestRate =
        std::min(point.speedRate * point.nearest * Params::SPEEDxNEAREST_WEIGHT_FOR_STANDARD_DEVIATION,
                 Params::MAX_SPEEDxNEAREST_RATE_FOR_STANDARD_DEVIATION);
    const float sigma = (speedxAngleRate + speedxNearestRate + Params::MIN_STANDARD_DEVIATION) *
                        static_cast<float>(trace.proximityInfo.getMostCommonKeyWidth());
    const int i = point.index;
    float weightX = Params::STANDARD_DEVIATION_X_WEIGHT;
    float weightY = Params::STANDARD_DEVIATION_Y_WEIGHT;
    float theta = Utils::getDirection(trace.points, i, i - 1);
    if (point.isFirst && !point.isLast) {
        weightX = Params::STANDARD_DEVIATION_X_WEIGHT_FOR_FIRST;
        weightY = Params::STANDARD_DEVIATION_Y_WEIGHT_FOR_FIRST;
        theta = Utils::getDirection(trace.points, i + 1, i);
    } else if (point.isLast) {
        weightX = Params::STANDARD_DEVIATION_X_WEIGHT_FOR_LAST;
        weightY = Params::STANDARD_DEVIATION_Y_WEIGHT_FOR_LAST;
    }
    return NormalDistribution2D(static_cast<float>(trace.points.sampledInputXs[i]), sigma * weightX,
                                static_cast<float>(trace.points.sampledInputYs[i]), sigma * weightY, theta);
}

void shareOut(const ProximityInfo& proximityInfo, const NormalDistribution2D& distribution,
              float inputProbability, KeyFloatMap* probabilities) {
    std::array<float, KEY_COUNT_LIMIT> densities;
    float sum = 0.0f;
    const int keyCount = proximityInfo.getKeyCount();
    for (int k = 0; k < keyCount; ++k) {
        const int x = proximityInfo.getKeyCenterXOfKeyIdG(k, NO_COORDINATE, true);
        const int y = proximityInfo.getKeyCenterYOfKeyIdG(k, NO_COORDINATE, true);
        densities[k] = distribution.getProbabilityDensity(static_cast<float>(x), static_cast<float>(y));
        sum += densities[k];
    }
    // So far from the keyboard that every density is 0, or on one whose keys have no width.
    if (!(sum > 0.0f)) return;
    for (int k = 0; k < keyCount; ++k) probabilities->set(k, inputProbability * densities[k] / sum);
}

void suppressAround(const Utils::Trace& trace, int index, int start, int size,
                    std::vector<KeyFloatMap>* charProbabilities) {
    const int keyWidth = trace.proximityInfo.getMostCommonKeyWidth();
    const auto suppress = [&](int other) {
        return Utils::suppressCharProbabilities(keyWidth, trace.points.sampledLengthCache, index, other,
                                                charProbabilities);
    };
    for (int j = index + 1; j < size && suppress(j);) ++j;
    for (int j = index - 1; j >= std::max(start, 0) && suppress(j);) --j;
}

void convertToLogarithms(KeyFloatMap* probabilities) {
    const KeyFloatMap plain = *probabilities;
    plain.forEachKey([&](int keyId, float probability) {
        if (probability < Params::MIN_PROBABILITY) {
            probabilities->erase(keyId);
        } else {
            probabilities->set(keyId, -logf(probability));
        }
    });
    probabilities->set(NO_INDEX, -logf(plain.get(NO_INDEX, 0.0f)));
}

}  // namespace

void ProximityInfoStateUtils::updateAlignPointProbabilities(const Trace& trace, int start,
                                                            int sampledInputSize,
                                                            std::vector<KeyFloatMap>* charProbabilities) {
    charProbabilities->resize(static_cast<size_t>(sampledInputSize));
    for (int i = start; i < sampledInputSize; ++i) {
        calculatePointProbabilities(trace, i, sampledInputSize, &(*charProbabilities)[i]);
    }
    for (int i = std::max(start, 1); i < sampledInputSize; ++i) {
        suppressAround(trace, i, start, sampledInputSize, charProbabilities);
    }
    for (int i = start; i < sampledInputSize; ++i) convertToLogarithms(&(*charProbabilities)[i]);
}

void ProximityInfoStateUtils::calculatePointProbabilities(const Trace& trace, int index, int sampledInputSize,
                                                          KeyFloatMap* probabilities) {
    probabilities->clear();
    const PointShape point = shapeOf(trace, index, sampledInputSize);
    const float skip = skipProbability(trace, point);
    probabilities->set(NO_INDEX, skip);
    shareOut(trace.proximityInfo, distributionAround(trace, point), 1.0f - skip, probabilities);
}

bool ProximityInfoStateUtils::suppressCharProbabilities(int mostCommonKeyWidth,
                                                        const std::vector<int>& lengthCache, int index0,
                                                        int index1,
                                                        std::vector<KeyFloatMap>* charProbabilities) {
    const float keyWidth = static_cast<float>(mostCommonKeyWidth);
    const float diff = static_cast<float>(std::abs(lengthCache[index0] - lengthCache[index1]));
    if (keyWidth <= 0.0f || diff > keyWidth * Params::SUPPRESSION_LENGTH_WEIGHT) return false;
    const float rate = Params::MIN_SUPPRESSION_RATE +
                       diff / keyWidth / Params::SUPPRESSION_LENGTH_WEIGHT * Params::SUPPRESSION_WEIGHT;
    KeyFloatMap& suppressed = (*charProbabilities)[index0];
    KeyFloatMap& gaining = (*charProbabilities)[index1];
    float suppressedSkip = suppressed.get(NO_INDEX, 0.0f);
    float gainingSkip = gaining.get(NO_INDEX, 0.0f);
    // The skip entries themselves are left out: what they lost they would get back at once.
    suppressed.forEachKey([&](int keyId, float probability) {
        const float rival = gaining.get(keyId, probability);
        if (rival <= probability) return;
        const float newProbability = probability * rate;
        const float suppression = probability - newProbability;
        suppressed.set(keyId, newProbability);
        suppressedSkip += suppression;
        const float gain = std::min(suppression * Params::SUPPRESSION_WEIGHT_FOR_PROBABILITY_GAIN,
                                    gainingSkip * Params::SKIP_PROBABALITY_WEIGHT_FOR_PROBABILITY_GAIN);
        gaining.set(keyId, rival + gain);
        gainingSkip -= gain;
    });
    suppressed.set(NO_INDEX, suppressedSkip);
    gaining.set(NO_INDEX, gainingSkip);
    return true;
}

}  // namespace wordengine
