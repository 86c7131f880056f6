// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "proximity/bounded_numbers.h"
#include "proximity/key_float_map.h"
#include "proximity/proximity_params.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <vector>

namespace wordengine {

/// What the caller hands in, as views that live as long as the call. `xs` and `ys` hold `inputSize`
/// entries; absent `times` count as unknown, absent `pointerIds` as pointer 0.
struct RawInput {
    int pointerId = 0;
    int inputSize = 0;
    const int* xs = nullptr;
    const int* ys = nullptr;
    const int* times = nullptr;
    const int* pointerIds = nullptr;

    bool hasCoordinates() const { return xs != nullptr && ys != nullptr; }
    int xAt(int index) const { return boundedCoordinate(xs[index]); }
    int yAt(int index) const { return boundedCoordinate(ys[index]); }
    int timeAt(int index) const { return times != nullptr ? times[index] : -1; }
    int pointerIdAt(int index) const { return pointerIds != nullptr ? pointerIds[index] : 0; }
};

/// The points kept of an input, one entry per point in each vector.
struct SampledPoints {
    std::vector<int> sampledInputXs;
    std::vector<int> sampledInputYs;
    std::vector<int> sampledTimes;
    /// Index of the point in the raw input.
    std::vector<int> sampledInputIndice;
    /// Path length up to the point, in pixels.
    std::vector<int> sampledLengthCache;

    int size() const { return static_cast<int>(sampledInputXs.size()); }
    void clear() {
        for (std::vector<int>* column : columns()) column->clear();
    }
    void reserve(size_t size) {
        for (std::vector<int>* column : columns()) column->reserve(size);
    }
    void popInputData() {
        for (std::vector<int>* column : columns()) column->pop_back();
    }

private:
    std::array<std::vector<int>*, 5> columns() {
        return {&sampledInputXs, &sampledInputYs, &sampledTimes, &sampledInputIndice, &sampledLengthCache};
    }
};

using SearchKeySet = std::bitset<KEY_COUNT_LIMIT>;

/// The distinct code points of a SearchKeySet, in the order of the keys.
struct SearchKeyVector {
    std::array<int, KEY_COUNT_LIMIT> codePoints{};
    int size = 0;

    const int* begin() const { return codePoints.data(); }
    const int* end() const { return codePoints.data() + size; }
};

}  // namespace wordengine
