// SPDX-License-Identifier: Apache-2.0
#include "traces.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <random>

namespace wordengine {
namespace {

const char* const WORDS[] = {"winter", "keyboard", "pad", "wait", "plane", "system"};

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
        expectSoundState(state, *info, trace, trace.size());
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
