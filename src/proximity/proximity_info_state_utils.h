// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "proximity/key_float_map.h"
#include "proximity/proximity_info.h"
#include "proximity/sampled_input.h"

#include <vector>

namespace wordengine {

/// The steps that fill a ProximityInfoState. Stateless; the vectors belong to the caller, and what they
/// hold below `lastSavedInputSize` is kept from an earlier, shorter input. Angles are in radians.
class ProximityInfoStateUtils {
public:
    ProximityInfoStateUtils() = delete;

    // Touch points.

    /// Appends the raw points from `pushTouchPointStartIndex` on to `points` and returns how many there
    /// are then. `inputProximities` are the lists of the typed points, unused when `isGeometric`.
    static int updateTouchPoints(const ProximityInfo& proximityInfo, float maxPointToKeyLength,
                                 const int* inputProximities, const RawInput& input, bool isGeometric,
                                 int pushTouchPointStartIndex, SampledPoints* points);

    /// Remembers, for the points that follow, which keys the last raw points were near to.
    struct NearKeys {
        NearKeysDistanceMap current;
        NearKeysDistanceMap prev;
        NearKeysDistanceMap prevPrev;
    };

    /// One raw point on its way to the sampled ones.
    struct TouchPoint {
        int inputIndex;
        /// NO_CODE_POINT in the sampled mode.
        int nodeCodePoint;
        int x;
        int y;
        int time;
        bool isLastPoint;
        /// How far the trace has turned since the last point that stayed.
        float sumAngle;
    };

    /// Appends the point, unless it is the last and lies on its predecessor; with `doSampling` it may take
    /// its predecessor's place, which is what the result tells.
    static bool pushTouchPoint(const ProximityInfo& proximityInfo, float maxPointToKeyLength,
                               const TouchPoint& point, bool isGeometric, bool doSampling, NearKeys* nearKeys,
                               SampledPoints* points);

    /// Fills `currentNearKeysDistances` with the keys near (x, y); returns the smallest normalized squared
    /// distance, at most `maxPointToKeyLength`.
    static float updateNearKeysDistances(const ProximityInfo& proximityInfo, float maxPointToKeyLength, int x,
                                         int y, bool isGeometric,
                                         NearKeysDistanceMap* currentNearKeysDistances);
    static bool isPrevLocalMin(const NearKeys& nearKeys);

    /// Below 0: the point sampled last tells nothing that (x, y) does not.
    static float getPointScore(int mostCommonKeyWidth, int x, int y, float nearestKeyDistance, float sumAngle,
                               const NearKeys& nearKeys, const SampledPoints& points);

    // Geometry of the sampled points.

    static void initGeometricDistanceInfos(const ProximityInfo& proximityInfo, int sampledInputSize,
                                           int lastSavedInputSize, bool isGeometric,
                                           const std::vector<int>& xs, const std::vector<int>& ys,
                                           std::vector<float>* cache);
    static float getPointToKeyByIdLength(float maxPointToKeyLength, const std::vector<float>& cache,
                                         int keyCount, int inputIndex, int keyId);
    static float getDirection(const SampledPoints& points, int index0, int index1);
    /// How far the trace turns at the point; 0 at its ends.
    static float getPointAngle(const std::vector<float>& directions, int index);
    /// Between the directions from index0 to index1 and from index1 to index2; 0 out of range.
    static float getPointsAngle(const SampledPoints& points, int index0, int index1, int index2);

    // Speed.

    /// Fills rates (1 is the average) and directions, and returns the average speed in pixels a millisecond.
    static float refreshSpeedRates(const RawInput& input, int lastSavedInputSize, const SampledPoints& points,
                                   std::vector<float>* speedRates, std::vector<float>* directions);
    static void refreshBeelineSpeedRates(int mostCommonKeyWidth, float averageSpeed, const RawInput& input,
                                         const SampledPoints& points, std::vector<int>* percentiles);
    static float calculateBeelineSpeedRate(int mostCommonKeyWidth, float averageSpeed, int id,
                                           const RawInput& input, const SampledPoints& points);

    // Probabilities.

    /// Everything about a trace that the probabilities are made of.
    struct Trace {
        const ProximityInfo& proximityInfo;
        float maxPointToKeyLength;
        const SampledPoints& points;
        const std::vector<float>& speedRates;
        const std::vector<float>& directions;
        const std::vector<float>& distanceCache;
    };

    /// From `start` on, the negative logarithms of how likely each point means each key, or none.
    static void updateAlignPointProbabilities(const Trace& trace, int start, int sampledInputSize,
                                              std::vector<KeyFloatMap>* charProbabilities);
    /// The same before suppression and logarithms: the probabilities of a point sum to 1.
    static void calculatePointProbabilities(const Trace& trace, int index, int sampledInputSize,
                                            KeyFloatMap* probabilities);
    /// Likely keys of `index1` become less likely at `index0`; false once the two lie too far apart.
    static bool suppressCharProbabilities(int mostCommonKeyWidth, const std::vector<int>& lengthCache,
                                          int index0, int index1,
                                          std::vector<KeyFloatMap>* charProbabilities);

    // What may follow a point.

    static void updateSampledSearchKeySets(const ProximityInfo& proximityInfo, int sampledInputSize,
                                           int lastSavedInputSize, const std::vector<int>& lengthCache,
                                           const std::vector<KeyFloatMap>& charProbabilities,
                                           std::vector<SearchKeySet>* keySets,
                                           std::vector<SearchKeyVector>* keyVectors);
    /// Writes the zero-ended string to `codePointBuf` (WORD_LENGTH_LIMIT places) and returns its cost.
    static float getMostProbableString(const ProximityInfo& proximityInfo, int sampledInputSize,
                                       const std::vector<KeyFloatMap>& charProbabilities, int* codePointBuf);
};

}  // namespace wordengine
