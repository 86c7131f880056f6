// SPDX-License-Identifier: Apache-2.0
#include "proximity/normal_distribution_2d.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace wordengine {
namespace {

constexpr double PI = 3.14159265358979323846;

TEST(NormalDistribution, densityOnALine) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> any(-50, 50);
    for (int round = 0; round < 200; ++round) {
        const double u = any(random);
        const double sigma = std::fabs(any(random)) + 1;
        const double x = u + any(random) / 20 * sigma;
        const double expected =
            std::exp(-(x - u) * (x - u) / (2 * sigma * sigma)) / (sigma * std::sqrt(2 * PI));
        const NormalDistribution distribution(static_cast<float>(u), static_cast<float>(sigma));
        EXPECT_NEAR(distribution.getProbabilityDensity(static_cast<float>(x)), expected, 1e-5);
    }
}

TEST(NormalDistribution, densityInThePlaneFollowsTheCovariance) {
    std::mt19937 random(2);
    std::uniform_real_distribution<double> any(-1, 1);
    for (int round = 0; round < 200; ++round) {
        const double theta = any(random) * PI;
        const double a = 20 + 15 * any(random);
        const double b = 20 + 15 * any(random);
        const double dx = 40 * any(random);
        const double dy = 40 * any(random);
        const double c = std::cos(theta);
        const double s = std::sin(theta);
        // The covariance matrix of the turned axes, and its inverse by hand.
        const double xx = c * c * a * a + s * s * b * b;
        const double yy = s * s * a * a + c * c * b * b;
        const double xy = c * s * (a * a - b * b);
        const double determinant = xx * yy - xy * xy;
        const double exponent = (yy * dx * dx - 2 * xy * dx * dy + xx * dy * dy) / determinant;
        const double expected = std::exp(-exponent / 2) / (2 * PI * std::sqrt(determinant));
        const NormalDistribution2D distribution(100.0f, static_cast<float>(a), 200.0f, static_cast<float>(b),
                                                static_cast<float>(theta));
        EXPECT_NEAR(
            distribution.getProbabilityDensity(static_cast<float>(100 + dx), static_cast<float>(200 + dy)),
            expected, 1e-4 * expected + 1e-9);
    }
}

}  // namespace
}  // namespace wordengine
