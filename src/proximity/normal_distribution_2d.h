// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "proximity/normal_distribution.h"
#include "proximity/proximity_info_params.h"

#include <cmath>

namespace wordengine {

/// A normal distribution in the plane around (uX, uY), its first axis turned by `theta` radians.
class NormalDistribution2D {
public:
    NormalDistribution2D(float uX, float sigmaX, float uY, float sigmaY, float theta)
        : xDistribution_(ProximityInfoParams::CENTER_VALUE_OF_NORMALIZED_DISTRIBUTION, sigmaX),
          yDistribution_(ProximityInfoParams::CENTER_VALUE_OF_NORMALIZED_DISTRIBUTION, sigmaY),
          uX_(uX),
          uY_(uY),
          sinTheta_(sinf(theta)),
          cosTheta_(cosf(theta)) {}

    float getProbabilityDensity(float x, float y) const {
        const float dx = x - uX_;
        const float dy = y - uY_;
        return xDistribution_.getProbabilityDensity(cosTheta_ * dx + sinTheta_ * dy) *
               yDistribution_.getProbabilityDensity(-sinTheta_ * dx + cosTheta_ * dy);
    }

private:
    NormalDistribution xDistribution_;
    NormalDistribution yDistribution_;
    float uX_;
    float uY_;
    float sinTheta_;
    float cosTheta_;
};

}  // namespace wordengine
