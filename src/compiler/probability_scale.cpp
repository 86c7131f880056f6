// SPDX-License-Identifier: Apache-2.0
#include "compiler/probability_scale.h"

#include "compiler/version2_format.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace vorpel::compiler {
namespace {

constexpr int LARGEST_PROBABILITY = 255;
constexpr float STEPS = 16.5f;

/// What the reader makes of a strength, in the reader's own single floats.
int raised(int unigram, int strength) {
    const float step = static_cast<float>(LARGEST_PROBABILITY - unigram) / STEPS;
    return unigram + static_cast<int>(static_cast<float>(strength + 1) * step);
}

}  // namespace

int toScale(const ScaleRule& rule, double frequency) {
    double value = rule.base + rule.factor * std::log2(frequency / rule.reference);
    // No frequency at all and a factor of 0.
    if (std::isnan(value)) return rule.minimum;
    const double top = rule.base - rule.factor * std::log2(rule.reference);
    if (value > rule.knee && top > rule.maximum) {
        value = rule.knee + (value - rule.knee) * (rule.maximum - rule.knee) / (top - rule.knee);
    }
    return static_cast<int>(
        std::clamp(std::round(value), static_cast<double>(rule.minimum), static_cast<double>(rule.maximum)));
}

int strengthNearest(int unigram, int wanted) {
    int best = 0;
    for (int strength = 1; strength <= version2::MASK_ATTRIBUTE_STRENGTH; ++strength) {
        if (std::abs(raised(unigram, strength) - wanted) < std::abs(raised(unigram, best) - wanted)) {
            best = strength;
        }
    }
    return best;
}

}  // namespace vorpel::compiler
