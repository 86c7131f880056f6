// SPDX-License-Identifier: Apache-2.0
#include "traces.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <random>

namespace wordengine {
namespace {

const char* const WORDS[] = {"winter", "keyboard", "pad", "wait", "plane", "system"};

/// What must hold of any state that was made from a trace.
void expectSoundState(const ProximityInfoState& state, const ProximityInfo& info, const DrawnTrace& trace) {
    const SampledPoints& points = state.getSampledPoints();
    ASSERT_EQ(state.size(), points.size());
    const int readForward =
        static_cast<int>(std::hypot(info.getKeyboardWidth(), info.getKeyboardHeight()) * 0.95);
    for (int i = 0; i < state.size(); ++i) {
        const int raw = state.getInputIndexOfSampledPoint(i);
        ASSERT_LT(raw, trace.size());
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
            EXPECT_EQ(state.isKeyInSerchKeysAfterIndex(i, k), isAhead);
            EXPECT_EQ(state.getProximityTypeG(i, info.getCodePointOf(k)) == PROXIMITY_MATCH,
                      state.isKeyInSerchKeysAfterIndex(i, k));
        }
        EXPECT_NEAR(sum, 1.0, 5e-4) << "point " << i;
    }
}

std::string mostProbableString(const ProximityInfoState& state) {
    int buffer[WORD_LENGTH_LIMIT];
    state.getMostProbableString(buffer);
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
        expectSoundState(state, *info, trace);
        EXPECT_EQ(state.getInputIndexOfSampledPoint(0), 0);
        EXPECT_LT(state.size(), trace.size() / 3);
        EXPECT_EQ(mostProbableString(state), word);
    }
    const DrawnTrace endless =
        traceOf(layout, "qpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzmqpzm");
    ProximityInfoState state;
    endless.enter(*info, endless.size(), state);
    EXPECT_EQ(mostProbableString(state).size(), 47u);
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
}

}  // namespace
}  // namespace wordengine
