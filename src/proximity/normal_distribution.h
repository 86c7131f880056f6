// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cmath>
#include <numbers>

namespace wordengine {

/// The density of a normal distribution with mean `u` and standard deviation `sigma`, which is not 0.
class NormalDistribution {
public:
    NormalDistribution(float u, float sigma)
        : u_(u),
          preComputedNonExpPart_(1.0f / sqrtf(2.0f * std::numbers::pi_v<float> * sigma * sigma)),
          preComputedExponentPart_(-1.0f / (2.0f * sigma * sigma)) {}

    float getProbabilityDensity(float x) const {
        const float shiftedX = x - u_;
        return preComputedNonExpPart_ * expf(preComputedExponentPart_ * (shiftedX * shiftedX));
    }

private:
    float u_;
    float preComputedNonExpPart_;
    float preComputedExponentPart_;
};

}  // namespace wordengine
