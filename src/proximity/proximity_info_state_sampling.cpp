// SPDX-License-Identifier: Apache-2.0
#include "proximity/proximity_info_params.h"
#include "proximity/proximity_info_state_utils.h"
#include "text/geometry_utils.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace wordengine {

namespace {

using Params = ProximityInfoParams;

bool turnsSharply(const SampledPoints& points, int x, int y, float sumAngle, int mostCommonKeyWidth) {
    const int last = points.size() - 1;
    const std::vector<int>& xs = points.sampledInputXs;
    const std::vector<int>& ys = points.sampledInputYs;
    const int distance = GeometryUtils::getDistanceInt(xs[last], ys[last], xs[last - 1], ys[last - 1]);
    if (int64_t{distance} * Params::DISTANCE_BASE_SCALE <=
        int64_t{mostCommonKeyWidth} * Params::CORNER_CHECK_DISTANCE_THRESHOLD_SCALE) {
        return false;
    }
    const float toNewPoint = GeometryUtils::getAngle(xs[last], ys[last], x, y);
    const float toLastPoint = GeometryUtils::getAngle(xs[last - 1], ys[last - 1], xs[last], ys[last]);
    const float turn = GeometryUtils::getAngleDiff(toNewPoint, toLastPoint);
    return sumAngle > Params::CORNER_SUM_ANGLE_THRESHOLD ||
           turn > Params::CORNER_ANGLE_THRESHOLD_FOR_POINT_SCORE;
}

}  // namespace

float ProximityInfoStateUtils::updateNearKeysDistances(const ProximityInfo& proximityInfo,
                                                       float maxPointToKeyLength, int x, int y,
                                                       bool isGeometric,
                                                       NearKeysDistanceMap* currentNearKeysDistances) {
    currentNearKeysDistances->clear();
    float nearest = maxPointToKeyLength;
    for (int k = 0; k < proximityInfo.getKeyCount(); ++k) {
        const float distance =
            proximityInfo.getNormalizedSquaredDistanceFromCenterFloatG(k, x, y, isGeometric);
        if (distance < Params::NEAR_KEY_THRESHOLD_FOR_DISTANCE) currentNearKeysDistances->set(k, distance);
        nearest = std::min(nearest, distance);
    }
    return nearest;
}

bool ProximityInfoStateUtils::isPrevLocalMin(const NearKeys& nearKeys) {
    // A key that is not near counts as infinitely far.
    constexpr float FAR = std::numeric_limits<float>::infinity();
    bool isLocalMin = false;
    nearKeys.prev.forEachKey([&](int keyId, float distance) {
        const float limit = distance + Params::MARGIN_FOR_PREV_LOCAL_MIN;
        if (nearKeys.current.get(keyId, FAR) > limit && nearKeys.prevPrev.get(keyId, FAR) > limit) {
            isLocalMin = true;
        }
    });
    return isLocalMin;
}

float ProximityInfoStateUtils::getPointScore(int mostCommonKeyWidth, int x, int y, float nearestKeyDistance,
                                             float sumAngle, const NearKeys& nearKeys,
                                             const SampledPoints& points) {
    if (points.size() < 2 || nearKeys.prev.empty()) return 0.0f;
    float score = 0.0f;
    if (!isPrevLocalMin(nearKeys)) {
        score += Params::NOT_LOCALMIN_DISTANCE_SCORE;
    } else if (nearestKeyDistance < Params::NEAR_KEY_THRESHOLD_FOR_POINT_SCORE) {
        score += Params::LOCALMIN_DISTANCE_AND_NEAR_TO_KEY_SCORE;
    }
    if (turnsSharply(points, x, y, sumAngle, mostCommonKeyWidth)) score += Params::CORNER_SCORE;
    return score;
}

}  // namespace wordengine
