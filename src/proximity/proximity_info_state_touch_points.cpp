// SPDX-License-Identifier: Apache-2.0
#include "proximity/bounded_numbers.h"
#include "proximity/proximity_info_params.h"
#include "proximity/proximity_info_state_utils.h"
#include "text/engine_constants.h"
#include "text/geometry_utils.h"

#include <cstdint>
#include <utility>

namespace wordengine {

namespace {

int findLastIndexOfPointer(const RawInput& input, int startIndex) {
    for (int i = input.inputSize - 1; i > startIndex; --i) {
        if (input.pointerIdAt(i) == input.pointerId) return i;
    }
    return startIndex;
}

/// How far the raw trace turns between the two segments that end at `index`, which is at least 2.
float turnBefore(const RawInput& input, int index) {
    const float before = GeometryUtils::getAngle(input.xAt(index - 2), input.yAt(index - 2),
                                                 input.xAt(index - 1), input.yAt(index - 1));
    const float after = GeometryUtils::getAngle(input.xAt(index - 1), input.yAt(index - 1), input.xAt(index),
                                                input.yAt(index));
    return GeometryUtils::getAngleDiff(before, after);
}

void moveToKeyCenter(const ProximityInfo& proximityInfo, int codePoint, bool isGeometric, int* x, int* y) {
    const int keyId = proximityInfo.getKeyIndexOf(codePoint);
    if (keyId == NO_INDEX) return;
    *x = proximityInfo.getKeyCenterXOfKeyIdG(keyId, NO_COORDINATE, isGeometric);
    *y = proximityInfo.getKeyCenterYOfKeyIdG(keyId, NO_COORDINATE, isGeometric);
}

int distanceToLast(const SampledPoints& points, int x, int y) {
    return GeometryUtils::getDistanceInt(x, y, points.sampledInputXs.back(), points.sampledInputYs.back());
}

void append(const ProximityInfoStateUtils::TouchPoint& point, int x, int y, SampledPoints* points) {
    const int length =
        points->size() == 0
            ? 0
            : saturatedInt(int64_t{points->sampledLengthCache.back()} + distanceToLast(*points, x, y));
    points->sampledLengthCache.push_back(length);
    points->sampledInputXs.push_back(x);
    points->sampledInputYs.push_back(y);
    points->sampledTimes.push_back(point.time);
    points->sampledInputIndice.push_back(point.inputIndex);
}

}  // namespace

int ProximityInfoStateUtils::updateTouchPoints(const ProximityInfo& proximityInfo, float maxPointToKeyLength,
                                               const int* inputProximities, const RawInput& input,
                                               bool isGeometric, int pushTouchPointStartIndex,
                                               SampledPoints* points) {
    if (pushTouchPointStartIndex >= input.inputSize) return points->size();
    const bool proximityOnly = !isGeometric && (input.xAt(0) < 0 || input.yAt(0) < 0);
    const int lastIndex = findLastIndexOfPointer(input, pushTouchPointStartIndex);
    NearKeys nearKeys;
    float sumAngle = 0.0f;
    for (int i = pushTouchPointStartIndex; i <= lastIndex; ++i) {
        if (input.pointerIdAt(i) != input.pointerId) continue;
        if (i >= 2) sumAngle += turnBefore(input, i);
        const TouchPoint point{
            .inputIndex = i,
            .nodeCodePoint = isGeometric ? NO_CODE_POINT : inputProximities[i * PROXIMITY_SLOT_COUNT],
            .x = proximityOnly ? NO_COORDINATE : input.xAt(i),
            .y = proximityOnly ? NO_COORDINATE : input.yAt(i),
            .time = input.timeAt(i),
            .isLastPoint = i == lastIndex,
            .sumAngle = sumAngle};
        if (pushTouchPoint(proximityInfo, maxPointToKeyLength, point, isGeometric, isGeometric, &nearKeys,
                           points)) {
            // The point stands where its predecessor stood, so what lay before that still lies before it.
            std::swap(nearKeys.current, nearKeys.prev);
        } else {
            std::swap(nearKeys.prevPrev, nearKeys.prev);
            std::swap(nearKeys.prev, nearKeys.current);
            sumAngle = 0.0f;
        }
    }
    return points->size();
}

bool ProximityInfoStateUtils::pushTouchPoint(const ProximityInfo& proximityInfo, float maxPointToKeyLength,
                                             const TouchPoint& point, bool isGeometric, bool doSampling,
                                             NearKeys* nearKeys, SampledPoints* points) {
    int x = point.x;
    int y = point.y;
    bool popped = false;
    if (point.nodeCodePoint < 0 && doSampling) {
        const int keyWidth = proximityInfo.getMostCommonKeyWidth();
        const float nearest = updateNearKeysDistances(proximityInfo, maxPointToKeyLength, x, y, isGeometric,
                                                      &nearKeys->current);
        if (getPointScore(keyWidth, x, y, nearest, point.sumAngle, *nearKeys, *points) < 0.0f) {
            points->popInputData();
            popped = true;
        }
        if (point.isLastPoint && points->size() > 0 &&
            int64_t{distanceToLast(*points, x, y)} * ProximityInfoParams::LAST_POINT_SKIP_DISTANCE_SCALE <
                keyWidth) {
            return popped;
        }
    }
    if (point.nodeCodePoint >= 0 && (x < 0 || y < 0)) {
        moveToKeyCenter(proximityInfo, point.nodeCodePoint, isGeometric, &x, &y);
    }
    append(point, x, y, points);
    return popped;
}

}  // namespace wordengine
