// SPDX-License-Identifier: Apache-2.0
#include "proximity/bounded_numbers.h"
#include "proximity/proximity_info_params.h"
#include "proximity/proximity_info_state_utils.h"
#include "text/geometry_utils.h"

#include <algorithm>
#include <cstdint>

namespace wordengine {

namespace {

using Params = ProximityInfoParams;

/// A stretch of the raw trace: pixels and milliseconds.
struct Stretch {
    int64_t length = 0;
    int64_t duration = 0;

    void addStep(const RawInput& input, int from) {
        const int to = from + 1;
        length +=
            GeometryUtils::getDistanceInt(input.xAt(from), input.yAt(from), input.xAt(to), input.yAt(to));
        duration += int64_t{input.timeAt(to)} - input.timeAt(from);
    }
};

/// The raw steps around a sampled point, as far as the sampled points on either side of it.
Stretch stretchAround(const RawInput& input, const std::vector<int>& indice, int index) {
    const int center = indice[index];
    const int lastSampled = static_cast<int>(indice.size()) - 1;
    const int first =
        std::max({0, center - Params::NUM_POINTS_FOR_SPEED_CALCULATION, index > 0 ? indice[index - 1] : 0});
    const int last = std::min({input.inputSize - 1, center + Params::NUM_POINTS_FOR_SPEED_CALCULATION,
                               index < lastSampled ? indice[index + 1] : input.inputSize - 1});
    Stretch stretch;
    for (int i = first; i < last; ++i) stretch.addStep(input, i);
    return stretch;
}

float speedRateAt(const RawInput& input, const SampledPoints& points, int index, float averageSpeed) {
    const Stretch stretch = stretchAround(input, points.sampledInputIndice, index);
    if (stretch.duration == 0 || averageSpeed == 0.0f) return 1.0f;
    const float speed = static_cast<float>(stretch.length) / static_cast<float>(stretch.duration);
    return speed / averageSpeed;
}

/// The raw indices between which the trace leaves the circle around a sampled point.
struct Reach {
    int start;
    int end;
};

Reach findReach(const RawInput& input, int center, int x, int y, int radius) {
    const auto distanceFrom = [&](int i) {
        return GeometryUtils::getDistanceInt(x, y, input.xAt(i), input.yAt(i));
    };
    Reach reach{center, center};
    for (int distance = 0; reach.start > 0 && distance < radius;) distance = distanceFrom(--reach.start);
    if (reach.start > 0 && reach.start < center) ++reach.start;
    const int lastIndex = input.inputSize - 1;
    for (int distance = 0; reach.end < lastIndex && distance < radius;) distance = distanceFrom(++reach.end);
    if (reach.end > center && reach.end < lastIndex) --reach.end;
    return reach;
}

/// A finger rests where a trace starts and ends, whether a letter is meant twice or not.
int64_t spanWithoutRests(const RawInput& input, int center, const Reach& reach) {
    int64_t startTime = input.timeAt(reach.start);
    int64_t endTime = input.timeAt(reach.end);
    if (reach.start == 0 && center == 0 && input.inputSize >= 2) {
        startTime += Params::FIRST_POINT_TIME_OFFSET_MILLIS;
    }
    if (reach.end == input.inputSize - 1) endTime -= Params::FIRST_POINT_TIME_OFFSET_MILLIS;
    return endTime - startTime;
}

}  // namespace

float ProximityInfoStateUtils::refreshSpeedRates(const RawInput& input, int lastSavedInputSize,
                                                 const SampledPoints& points, std::vector<float>* speedRates,
                                                 std::vector<float>* directions) {
    const int size = points.size();
    const int64_t length = int64_t{points.sampledLengthCache.back()} - points.sampledLengthCache.front();
    const int64_t duration = int64_t{points.sampledTimes.back()} - points.sampledTimes.front();
    // Without a duration there is no speed to compare with: every rate is then 1.
    const float averageSpeed =
        duration != 0 ? static_cast<float>(length) / static_cast<float>(duration) : 0.0f;
    speedRates->resize(static_cast<size_t>(size));
    for (int i = lastSavedInputSize; i < size; ++i) {
        (*speedRates)[i] = speedRateAt(input, points, i, averageSpeed);
    }
    directions->resize(static_cast<size_t>(size - 1));
    for (int i = std::max(0, lastSavedInputSize - 1); i < size - 1; ++i) {
        (*directions)[i] = getDirection(points, i, i + 1);
    }
    return averageSpeed;
}

void ProximityInfoStateUtils::refreshBeelineSpeedRates(int mostCommonKeyWidth, float averageSpeed,
                                                       const RawInput& input, const SampledPoints& points,
                                                       std::vector<int>* percentiles) {
    percentiles->resize(static_cast<size_t>(points.size()));
    for (int i = 0; i < points.size(); ++i) {
        const float rate = calculateBeelineSpeedRate(mostCommonKeyWidth, averageSpeed, i, input, points);
        (*percentiles)[i] = static_cast<int>(boundedReal(100.0f * rate));
    }
}

float ProximityInfoStateUtils::calculateBeelineSpeedRate(int mostCommonKeyWidth, float averageSpeed, int id,
                                                         const RawInput& input, const SampledPoints& points) {
    constexpr float MIN_AVERAGE_SPEED = 0.001f;
    constexpr float MIN_RATE = 0.01f;
    if (points.size() == 0 || averageSpeed < MIN_AVERAGE_SPEED) return 1.0f;
    const int radius = static_cast<int>(int64_t{mostCommonKeyWidth} * Params::LOOKUP_RADIUS_PERCENTILE / 100);
    const int center = points.sampledInputIndice[id];
    const Reach reach =
        findReach(input, center, points.sampledInputXs[id], points.sampledInputYs[id], radius);
    if (reach.start >= reach.end) return 1.0f;
    const int64_t span = spanWithoutRests(input, center, reach);
    if (span <= 0) return 1.0f;
    if (span >= Params::STRONG_DOUBLE_LETTER_TIME_MILLIS) return 0.0f;
    const int distance = GeometryUtils::getDistanceInt(input.xAt(reach.start), input.yAt(reach.start),
                                                       input.xAt(reach.end), input.yAt(reach.end));
    return MIN_RATE + static_cast<float>(distance) / static_cast<float>(span) / averageSpeed;
}

}  // namespace wordengine
