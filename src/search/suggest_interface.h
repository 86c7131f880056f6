// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

class ProximityInfo;
class SuggestionResults;

/// A search for what a word of input may have meant.
class SuggestInterface {
public:
    virtual ~SuggestInterface() = default;
    SuggestInterface(const SuggestInterface&) = delete;
    SuggestInterface& operator=(const SuggestInterface&) = delete;

    /// `traverseSession` is a DicTraverseSession that has been initialised for this request. The arrays
    /// hold `inputSize` entries; `times` and `pointerIds` may be null. A weight below 0 leaves the weight
    /// of the language against the touch to the scoring. Words are added to `outSuggestionResults`.
    virtual void getSuggestions(const ProximityInfo* proximityInfo, void* traverseSession, const int* inputXs,
                                const int* inputYs, const int* times, const int* pointerIds,
                                const int* inputCodePoints, int inputSize,
                                float weightOfLangModelVsSpatialModel,
                                SuggestionResults* outSuggestionResults) const = 0;

protected:
    SuggestInterface() = default;
};

}  // namespace wordengine
