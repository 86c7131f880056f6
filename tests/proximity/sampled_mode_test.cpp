// SPDX-License-Identifier: Apache-2.0
#include "proximity/proximity_info_state_utils.h"
#include "traces.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <random>

namespace wordengine {
namespace {

using Utils = ProximityInfoStateUtils;

/// A trace and all that is computed from it before the probabilities.
struct Measured {
    Measured(const Layout& layoutUsed, const DrawnTrace& trace)
        : layout(layoutUsed), info(layoutUsed.build()) {
        size = Utils::updateTouchPoints(*info, 10.0f, nullptr, trace.raw(), true, 0, &points);
        Utils::refreshSpeedRates(trace.raw(), 0, points, &rates, &directions);
        Utils::initGeometricDistanceInfos(*info, size, 0, true, points.sampledInputXs, points.sampledInputYs,
                                          &cache);
    }
    Utils::Trace view() const { return {*info, 10.0f, points, rates, directions, cache}; }

    const Layout& layout;
    std::unique_ptr<ProximityInfo> info;
    SampledPoints points;
    int size;
    std::vector<float> rates, directions, cache;
};

double angleBetween(const Measured& m, int a, int b, int c, int d) {
    const auto direction = [&](int from, int to) {
        return std::atan2(m.points.sampledInputYs[from] - m.points.sampledInputYs[to],
                          m.points.sampledInputXs[from] - m.points.sampledInputXs[to]);
    };
    const double apart = std::fabs(direction(a, b) - direction(c, d));
    return std::min(apart, 2 * M_PI - apart);
}

double turnAt(const Measured& m, int i) {
    return i == 0 || i == m.size - 1 ? 0 : angleBetween(m, i - 1, i, i, i + 1);
}

double nearestKey(const Measured& m, int i) {
    double nearest = 10;
    for (int k = 0; k < m.info->getKeyCount(); ++k) {
        nearest =
            std::min<double>(nearest, m.info->getNormalizedSquaredDistanceFromCenterFloatG(
                                          k, m.points.sampledInputXs[i], m.points.sampledInputYs[i], true));
    }
    return nearest;
}

/// The probability that a point means no key, formula by formula.
double plainSkip(const Measured& m, int i) {
    const double nearest = nearestKey(m, i);
    if (i == 0) return 0.95 * 0.01 * std::min(1.0, nearest * 0.5 + 0.5);
    if (i == m.size - 1) return 0.95 * 0.1 * std::min(1.0, nearest * 0.6 + 0.4);
    const double angle = turnAt(m, i);
    const double speed = m.rates[i];
    double skip = 0.95;
    if (m.rates[i - 1] - 0.1 > speed && m.rates[i + 1] - 0.1 > speed) {
        skip *= std::min(1.0, angle < M_PI / 6 ? speed * 0.6 : speed * 0.9 + 0.15);
    }
    skip *= std::min(1.0, speed * nearest * 0.5 + 0.5);
    skip *= (M_PI - angle) / M_PI * 0.9 + 0.1;
    if (angle > M_PI / 3) skip *= 0.1;
    if (i >= 3 && angle > M_PI / 6 && angleBetween(m, i, i - 2, i - 2, i - 3) < M_PI / 12) skip *= 0.4;
    return skip;
}

/// Unnormalized density at a key, around a point.
double plainDensity(const Measured& m, int i, int key) {
    const double speed = m.rates[i];
    const double sigma = 100 * (0.37 + std::min(speed * turnAt(m, i) / M_PI * 0.3, 0.25) +
                                std::min(speed * nearestKey(m, i) * 0.5, 0.15));
    const bool isFirst = i == 0;
    const bool isLast = i == m.size - 1;
    const double along = sigma * (isFirst ? 1.25 : isLast ? 1.4 : 1.1);
    const double across = sigma * (isFirst ? 0.85 : 0.95);
    const int to = isFirst ? 1 : i;
    const double moveX = m.points.sampledInputXs[to] - m.points.sampledInputXs[to - 1];
    const double moveY = m.points.sampledInputYs[to] - m.points.sampledInputYs[to - 1];
    const double length = std::hypot(moveX, moveY);
    const double dx = m.layout.centerX(m.layout.codes[key]) - m.points.sampledInputXs[i];
    const double dy = m.layout.centerY(m.layout.codes[key]) - m.points.sampledInputYs[i];
    const double u = (dx * moveX + dy * moveY) / length / along;
    const double v = (dy * moveX - dx * moveY) / length / across;
    return std::exp(-(u * u + v * v) / 2);
}

const char* const WORDS[] = {"winter", "keyboard", "pad", "wait", "plane", "system"};

TEST(Probabilities, ofEveryPointFollowThePlainFormulasAndSumToOne) {
    const Layout layout = qwertyLayout();
    for (const char* word : WORDS) {
        const Measured m(layout, traceOf(layout, word));
        ASSERT_GT(m.size, 3);
        for (int i = 0; i < m.size; ++i) {
            KeyFloatMap probabilities;
            Utils::calculatePointProbabilities(m.view(), i, m.size, &probabilities);
            const double skip = plainSkip(m, i);
            EXPECT_NEAR(probabilities.get(NO_INDEX, -1), skip, 2e-4) << word << " " << i;
            double total = 0;
            for (int k = 0; k < layout.keyCount(); ++k) total += plainDensity(m, i, k);
            double sum = probabilities.get(NO_INDEX, -1);
            for (int k = 0; k < layout.keyCount(); ++k) {
                EXPECT_NEAR(probabilities.get(k, -1), (1 - skip) * plainDensity(m, i, k) / total, 5e-4)
                    << word << " " << i << " " << static_cast<char>(layout.codes[k]);
                sum += probabilities.get(k, -1);
            }
            EXPECT_NEAR(sum, 1.0, 1e-5);
        }
    }
}

TEST(Probabilities, suppressionByHand) {
    const std::vector<int> lengths = {0, 75, 226};
    std::vector<KeyFloatMap> maps(3);
    maps[0].set(1, 0.4f);
    maps[0].set(2, 0.3f);
    maps[0].set(3, 0.1f);
    maps[0].set(NO_INDEX, 0.2f);
    maps[1].set(1, 0.6f);
    maps[1].set(2, 0.1f);
    maps[1].set(NO_INDEX, 0.3f);
    maps[2] = maps[1];
    EXPECT_TRUE(Utils::suppressCharProbabilities(100, lengths, 0, 1, &maps));
    EXPECT_NEAR(maps[0].get(1, -1), 0.14, 1e-6);
    EXPECT_NEAR(maps[0].get(2, -1), 0.3, 1e-6) << "likelier here than there";
    EXPECT_NEAR(maps[0].get(3, -1), 0.1, 1e-6) << "out of the question there";
    EXPECT_NEAR(maps[0].get(NO_INDEX, -1), 0.46, 1e-6);
    EXPECT_NEAR(maps[1].get(1, -1), 0.626, 1e-6);
    EXPECT_NEAR(maps[1].get(NO_INDEX, -1), 0.274, 1e-6);
    const float before = maps[0].get(1, -1);
    EXPECT_FALSE(Utils::suppressCharProbabilities(100, lengths, 0, 2, &maps));
    EXPECT_EQ(maps[0].get(1, -1), before);
}

/// What must hold of any state that was made from the first `length` points of a trace.
void expectSoundState(const ProximityInfoState& state, const ProximityInfo& info, const DrawnTrace& trace,
                      int length) {
    const SampledPoints& points = state.getSampledPoints();
    ASSERT_EQ(state.size(), points.size());
    const int readForward =
        static_cast<int>(std::hypot(info.getKeyboardWidth(), info.getKeyboardHeight()) * 0.95);
    for (int i = 0; i < state.size(); ++i) {
        const int raw = state.getInputIndexOfSampledPoint(i);
        ASSERT_LT(raw, length);
        EXPECT_EQ(state.getInputX(i), trace.xs[raw]);
        EXPECT_EQ(state.getInputY(i), trace.ys[raw]);
        if (i > 0) {
            EXPECT_LT(state.getInputIndexOfSampledPoint(i - 1), raw);
            EXPECT_EQ(points.sampledLengthCache[i] - points.sampledLengthCache[i - 1],
                      std::floor(std::hypot(state.getInputX(i) - state.getInputX(i - 1),
                                            state.getInputY(i) - state.getInputY(i - 1))));
        }
        double sum = std::exp(-state.getProbability(i, NO_INDEX));
        for (int k = 0; k < info.getKeyCount(); ++k) {
            const double probability = std::exp(-state.getProbability(i, k));
            EXPECT_TRUE(probability == 0 || probability > 4.9e-6);
            sum += probability;
            bool isAhead = false;
            for (int j = i; j < state.size(); ++j) {
                const bool isInReach =
                    points.sampledLengthCache[j] - points.sampledLengthCache[i] < readForward;
                isAhead = isAhead || (isInReach && state.getProbability(j, k) < 1e6f);
            }
            // A continued state may remember keys of points that were taken back.
            EXPECT_TRUE(!isAhead || state.isKeyInSerchKeysAfterIndex(i, k));
            if (!state.isContinuousSuggestionPossible()) {
                EXPECT_EQ(state.isKeyInSerchKeysAfterIndex(i, k), isAhead);
            }
            EXPECT_EQ(state.getProximityTypeG(i, info.getCodePointOf(k)) == PROXIMITY_MATCH,
                      state.isKeyInSerchKeysAfterIndex(i, k));
        }
        EXPECT_NEAR(sum, 1.0, 5e-4) << "point " << i;
    }
}

std::string mostProbableString(const ProximityInfoState& state, float* cost = nullptr) {
    int buffer[WORD_LENGTH_LIMIT];
    const float sum = state.getMostProbableString(buffer);
    if (cost != nullptr) *cost = sum;
    std::string text;
    for (int i = 0; buffer[i] != 0; ++i) text += static_cast<char>(buffer[i]);
    return text;
}

TEST(SampledMode, slowCleanTracesSpellTheirWords) {
    const Layout layout = qwertyLayout();
    const auto info = layout.build();
    for (const char* word : WORDS) {
        const DrawnTrace trace = traceOf(layout, word);
        ProximityInfoState state;
        trace.enter(*info, trace.size(), state);
        expectSoundState(state, *info, trace, trace.size());
        EXPECT_EQ(state.getInputIndexOfSampledPoint(0), 0);
        EXPECT_LT(state.size(), trace.size() / 3);
        float cost;
        EXPECT_EQ(mostProbableString(state, &cost), word);
        // Each point at its cheapest, where a key has to be clearly likelier than none.
        double cheapest = 0;
        for (int i = 0; i < state.size(); ++i) {
            float best = state.getProbability(i, NO_INDEX);
            for (int k = 0; k < info->getKeyCount(); ++k)
                best = std::min(best, state.getProbability(i, k) + 0.3f);
            cheapest += best;
        }
        EXPECT_NEAR(cost, cheapest, 1e-3);
    }
    const DrawnTrace endless =
        traceOf(layout, "qpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzm");
    ProximityInfoState state;
    endless.enter(*info, endless.size(), state);
    EXPECT_EQ(mostProbableString(state).size(), 47u);
}

TEST(SampledMode, aGrowingTraceContinues) {
    const Layout layout = qwertyLayout();
    const auto info = layout.build();
    DrawnTrace trace = traceOf(layout, "keyboard");
    ProximityInfoState state;
    for (int length = 1; length <= trace.size(); length += 7) {
        const std::vector<int> before = state.getSampledPoints().sampledInputIndice;
        trace.enter(*info, length, state);
        EXPECT_EQ(state.isContinuousSuggestionPossible(), length > 1);
        expectSoundState(state, *info, trace, length);
        const std::vector<int>& after = state.getSampledPoints().sampledInputIndice;
        for (size_t i = 0; i + 2 < before.size(); ++i) EXPECT_EQ(after[i], before[i]);
    }
    // Where an update began, the sampling knew nothing of the way before, so more points stand than needed.
    const std::string spelt = mostProbableString(state);
    size_t at = 0;
    for (const char c : std::string("keyboar")) {
        at = spelt.find(c, at);
        ASSERT_NE(at, std::string::npos) << spelt;
        ++at;
    }

    ++trace.xs[0];
    trace.enter(*info, trace.size(), state);
    EXPECT_FALSE(state.isContinuousSuggestionPossible());
    ProximityInfoState fresh;
    trace.enter(*info, trace.size(), fresh);
    ASSERT_EQ(state.size(), fresh.size());
    for (int i = 0; i < state.size(); ++i) {
        for (int k = -1; k < info->getKeyCount(); ++k) {
            EXPECT_EQ(state.getProbability(i, k), fresh.getProbability(i, k));
        }
    }
}

TEST(SampledMode, strangeTracesAreAnsweredWithNumbers) {
    std::mt19937 random(31);
    const int extremes[] = {INT_MIN, -1, 0, 75, 76, 500, INT_MAX};
    const auto pick = [&] { return extremes[random() % 7]; };
    Layout keyless;
    keyless.width = keyless.height = 100;
    Layout flat = qwertyLayout();
    flat.keyWidth = 0;
    const std::unique_ptr<ProximityInfo> infos[] = {qwertyLayout().build(), keyless.build(), flat.build()};
    for (int round = 0; round < 600; ++round) {
        DrawnTrace trace;
        for (int i = 0; i < round % 13; ++i) trace.add(pick(), pick(), pick());
        ProximityInfoState state;
        for (int length = 0; length <= trace.size(); ++length) {
            const ProximityInfo& info = *infos[round % 3];
            trace.enter(info, length, state);
            for (int i = 0; i < state.size(); ++i) {
                for (int k = -1; k < info.getKeyCount(); ++k) {
                    EXPECT_FALSE(std::isnan(state.getProbability(i, k)));
                }
            }
            EXPECT_LE(mostProbableString(state).size(), 47u);
        }
    }
    const DrawnTrace trace = traceOf(qwertyLayout(), "pad");
    ProximityInfoState state;
    state.initInputParams(0, 10.0f, infos[0].get(), nullptr, trace.size(), trace.xs.data(), trace.ys.data(),
                          nullptr, nullptr, true);
    EXPECT_GT(state.size(), 3) << "without times every speed counts as average";
    EXPECT_EQ(state.getDirection(0, state.size()), 0.0f);
    EXPECT_EQ(state.getDirection(-1, 0), 0.0f);
    EXPECT_NEAR(state.getDirection(1, 0),
                std::atan2(state.getInputY(1) - state.getInputY(0), state.getInputX(1) - state.getInputX(0)),
                1e-6);
}

}  // namespace
}  // namespace wordengine
