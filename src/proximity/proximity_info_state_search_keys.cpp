// SPDX-License-Identifier: Apache-2.0
#include "proximity/proximity_info_params.h"
#include "proximity/proximity_info_state_utils.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace wordengine {

namespace {

using Params = ProximityInfoParams;

SearchKeyVector codePointsOf(const ProximityInfo& proximityInfo, const SearchKeySet& keys) {
    SearchKeyVector result;
    for (int k = 0; k < proximityInfo.getKeyCount(); ++k) {
        if (!keys[static_cast<size_t>(k)]) continue;
        const int codePoint = proximityInfo.getCodePointOf(k);
        if (std::find(result.begin(), result.end(), codePoint) != result.end()) continue;
        result.codePoints[result.size++] = codePoint;
    }
    return result;
}

/// The cheapest entry of a point, if there is any below the ceiling.
struct Pick {
    int keyId = NO_INDEX;
    float cost = WEIGHT_CEILING_FLOAT;
    bool isAny = false;
};

Pick cheapestOf(const KeyFloatMap& costs) {
    Pick pick;
    costs.forEach([&](int keyId, float logProbability) {
        // A key has to be clearly likelier than no key.
        const float cost =
            keyId == NO_INDEX ? logProbability : logProbability + Params::DEMOTION_LOG_PROBABILITY;
        if (cost < pick.cost) pick = {keyId, cost, true};
    });
    return pick;
}

}  // namespace

void ProximityInfoStateUtils::updateSampledSearchKeySets(const ProximityInfo& proximityInfo,
                                                         int sampledInputSize, int lastSavedInputSize,
                                                         const std::vector<int>& lengthCache,
                                                         const std::vector<KeyFloatMap>& charProbabilities,
                                                         std::vector<SearchKeySet>* keySets,
                                                         std::vector<SearchKeyVector>* keyVectors) {
    keySets->resize(static_cast<size_t>(sampledInputSize));
    keyVectors->resize(static_cast<size_t>(sampledInputSize));
    const int readForwardLength =
        static_cast<int>(proximityInfo.getKeyboardHypotenuse() * Params::SEARCH_KEY_RADIUS_RATIO);
    for (int i = 0; i < sampledInputSize; ++i) {
        SearchKeySet& keys = (*keySets)[i];
        if (i >= lastSavedInputSize) keys.reset();
        for (int j = std::max(i, lastSavedInputSize); j < sampledInputSize; ++j) {
            if (lengthCache[j] - lengthCache[i] >= readForwardLength) break;
            charProbabilities[j].forEachKey([&](int keyId, float) { keys.set(static_cast<size_t>(keyId)); });
        }
        (*keyVectors)[i] = codePointsOf(proximityInfo, keys);
    }
}

float ProximityInfoStateUtils::getMostProbableString(const ProximityInfo& proximityInfo, int sampledInputSize,
                                                     const std::vector<KeyFloatMap>& charProbabilities,
                                                     int* codePointBuf) {
    int length = 0;
    float sum = 0.0f;
    for (int i = 0; i < sampledInputSize; ++i) {
        const Pick pick = cheapestOf(charProbabilities[i]);
        if (!pick.isAny) continue;
        sum += pick.cost;
        if (pick.keyId != NO_INDEX && length < WORD_LENGTH_LIMIT - 1) {
            codePointBuf[length++] = proximityInfo.getCodePointOf(pick.keyId);
        }
    }
    codePointBuf[length] = 0;
    return sum;
}

}  // namespace wordengine
