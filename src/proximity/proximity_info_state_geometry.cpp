// SPDX-License-Identifier: Apache-2.0
#include "proximity/proximity_info_state_utils.h"
#include "text/engine_constants.h"
#include "text/geometry_utils.h"

#include <algorithm>

namespace wordengine {

void ProximityInfoStateUtils::initGeometricDistanceInfos(const ProximityInfo& proximityInfo,
                                                         int sampledInputSize, int lastSavedInputSize,
                                                         bool isGeometric, const std::vector<int>& xs,
                                                         const std::vector<int>& ys,
                                                         std::vector<float>* cache) {
    const int keyCount = proximityInfo.getKeyCount();
    cache->resize(static_cast<size_t>(sampledInputSize) * static_cast<size_t>(keyCount));
    for (int i = lastSavedInputSize; i < sampledInputSize; ++i) {
        float* const row = cache->data() + i * keyCount;
        for (int k = 0; k < keyCount; ++k) {
            row[k] = proximityInfo.getNormalizedSquaredDistanceFromCenterFloatG(k, xs[i], ys[i], isGeometric);
        }
    }
}

float ProximityInfoStateUtils::getPointToKeyByIdLength(float maxPointToKeyLength,
                                                       const std::vector<float>& cache, int keyCount,
                                                       int inputIndex, int keyId) {
    if (keyId == NO_INDEX) return WEIGHT_CEILING_FLOAT;
    // In this order a distance that is no number, as on a layout without a key width, becomes the cap.
    return std::min(maxPointToKeyLength, cache[inputIndex * keyCount + keyId]);
}

float ProximityInfoStateUtils::getDirection(const SampledPoints& points, int index0, int index1) {
    const int size = points.size();
    if (index0 < 0 || index0 >= size || index1 < 0 || index1 >= size) return 0.0f;
    return GeometryUtils::getAngle(points.sampledInputXs[index0], points.sampledInputYs[index0],
                                   points.sampledInputXs[index1], points.sampledInputYs[index1]);
}

float ProximityInfoStateUtils::getPointAngle(const std::vector<float>& directions, int index) {
    if (index <= 0 || index >= static_cast<int>(directions.size())) return 0.0f;
    return GeometryUtils::getAngleDiff(directions[index - 1], directions[index]);
}

float ProximityInfoStateUtils::getPointsAngle(const SampledPoints& points, int index0, int index1,
                                              int index2) {
    const auto isPoint = [&](int index) { return index >= 0 && index < points.size(); };
    if (!isPoint(index0) || !isPoint(index1) || !isPoint(index2)) return 0.0f;
    return GeometryUtils::getAngleDiff(getDirection(points, index0, index1),
                                       getDirection(points, index1, index2));
}

}  // namespace wordengine
