// SPDX-License-Identifier: Apache-2.0
#include "proximity/proximity_info_state_utils.h"
#include "traces.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>

namespace wordengine {
namespace {

std::vector<int> sampledIndices(const ProximityInfo& info, const DrawnTrace& trace) {
    SampledPoints points;
    ProximityInfoStateUtils::updateTouchPoints(info, 10.0f, nullptr, trace.raw(), true, 0, &points);
    return points.sampledInputIndice;
}

/// Which raw points stay, decided with ordered maps and indices into the trace alone.
class SamplingModel {
public:
    SamplingModel(const ProximityInfo& info, const DrawnTrace& trace) : info_(info), trace_(trace) {}

    std::vector<int> run() {
        double turned = 0;
        for (int i = 0; i < trace_.size(); ++i) {
            if (i >= 2) turned += turn(i - 2, i - 1, i - 1, i);
            const Near current = nearKeys(i);
            const bool pops = kept_.size() >= 2 && !prev_.empty() && score(i, current, turned) < 0;
            if (pops) kept_.pop_back();
            const bool isOnLast = i == trace_.size() - 1 && !kept_.empty() &&
                                  4 * std::floor(distance(kept_.back(), i)) < info_.getMostCommonKeyWidth();
            if (!isOnLast) kept_.push_back(i);
            if (!pops) {
                prevPrev_ = prev_;
                turned = 0;
            }
            prev_ = current;
        }
        return kept_;
    }

private:
    using Near = std::map<int, float>;

    Near nearKeys(int i) const {
        Near near;
        for (int k = 0; k < info_.getKeyCount(); ++k) {
            const float d =
                info_.getNormalizedSquaredDistanceFromCenterFloatG(k, trace_.xs[i], trace_.ys[i], true);
            if (d < 2.0f) near[k] = d;
        }
        return near;
    }
    double distance(int i, int j) const {
        return std::hypot(trace_.xs[i] - trace_.xs[j], trace_.ys[i] - trace_.ys[j]);
    }
    double direction(int from, int to) const {
        const int dx = trace_.xs[from] - trace_.xs[to];
        const int dy = trace_.ys[from] - trace_.ys[to];
        return dx == 0 && dy == 0 ? 0 : std::atan2(dy, dx);
    }
    double turn(int a, int b, int c, int d) const {
        const double apart = std::fabs(direction(a, b) - direction(c, d));
        return std::floor(std::min(apart, 2 * M_PI - apart) * 10000) / 10000;
    }
    double score(int i, const Near& current, double turned) const {
        bool isMinimum = false;
        for (const auto& [key, d] : prev_) {
            const auto isFarther = [limit = d + 0.01f, k = key](const Near& near) {
                return near.count(k) == 0 || near.at(k) > limit;
            };
            isMinimum = isMinimum || (isFarther(current) && isFarther(prevPrev_));
        }
        float nearest = 10.0f;
        for (const auto& [key, d] : current) nearest = std::min(nearest, d);
        double score = isMinimum ? (nearest < 0.6f ? 1 : 0) : -1;
        const int last = kept_.back();
        const int beforeLast = kept_[kept_.size() - 2];
        const bool isLong = std::floor(distance(last, beforeLast)) * 100 > info_.getMostCommonKeyWidth() * 25;
        if (isLong && (turned > M_PI / 4 || turn(last, i, beforeLast, last) > 2 * M_PI / 3)) score += 1;
        return score;
    }

    const ProximityInfo& info_;
    const DrawnTrace& trace_;
    std::vector<int> kept_;
    Near prev_, prevPrev_;
};

TEST(Sampling, randomTracesKeepThePointsOfTheModel) {
    std::mt19937 random(23);
    Layout layout = qwertyLayout();
    const auto pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    int dropped = 0;
    for (int round = 0; round < 150; ++round) {
        layout.hasSweetSpots = round % 2 == 0;
        const auto info = layout.build();
        DrawnTrace trace;
        trace.add(pick(0, 999), pick(0, 599), 0);
        for (int corner = pick(1, 6); corner > 0; --corner) {
            trace.lineTo(pick(0, 999), pick(0, 599), pick(4, 60), 10);
        }
        for (int& x : trace.xs) x += pick(-3, 3);
        const std::vector<int> kept = sampledIndices(*info, trace);
        EXPECT_EQ(kept, SamplingModel(*info, trace).run()) << "round " << round;
        dropped += trace.size() - static_cast<int>(kept.size());
    }
    EXPECT_GT(dropped, 1000);
}

}  // namespace
}  // namespace wordengine
