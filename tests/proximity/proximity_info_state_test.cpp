// SPDX-License-Identifier: Apache-2.0
#include "proximity/proximity_info_state.h"

#include "layouts.h"

#include <gtest/gtest.h>

#include <climits>
#include <random>
#include <vector>

namespace wordengine {
namespace {

/// What a person typed so far, in the arrays that a request hands in.
struct Typed {
    std::vector<int> codes, xs, ys, times;
    bool hasTimes = false;

    int size() const { return static_cast<int>(codes.size()); }
    void add(int code, int x, int y, int time) {
        codes.push_back(code);
        xs.push_back(x);
        ys.push_back(y);
        times.push_back(time);
    }
    void shorten(size_t length) {
        for (std::vector<int>* column : {&codes, &xs, &ys, &times}) column->resize(length);
    }
    void enter(const ProximityInfo& info, ProximityInfoState& state) const {
        state.initInputParams(0, 1.0f, &info, codes.data(), size(), xs.data(), ys.data(),
                              hasTimes ? times.data() : nullptr, nullptr, false);
    }
};

void expectSameResults(const ProximityInfoState& one, const ProximityInfoState& other, const Typed& typed) {
    ASSERT_EQ(one.size(), other.size());
    EXPECT_EQ(one.isUsed(), other.isUsed());
    EXPECT_EQ(one.touchPositionCorrectionEnabled(), other.touchPositionCorrectionEnabled());
    EXPECT_EQ(one.sameAsTyped(typed.codes.data(), typed.size()),
              other.sameAsTyped(typed.codes.data(), typed.size()));
    EXPECT_EQ(one.getSampledPoints().sampledLengthCache, other.getSampledPoints().sampledLengthCache);
    for (int i = 0; i < one.size(); ++i) {
        EXPECT_EQ(one.getInputX(i), other.getInputX(i));
        EXPECT_EQ(one.getInputY(i), other.getInputY(i));
        EXPECT_EQ(one.getInputIndexOfSampledPoint(i), other.getInputIndexOfSampledPoint(i));
        EXPECT_EQ(one.hasSpaceProximity(i), other.hasSpaceProximity(i));
        EXPECT_EQ(one.getPrimaryOriginalCodePointAt(i), other.getPrimaryOriginalCodePointAt(i));
        EXPECT_TRUE(std::equal(one.getProximityCodePointsAt(i), one.getProximityCodePointsAt(i) + 16,
                               other.getProximityCodePointsAt(i)));
        for (int c = ' '; c <= 0xFF; ++c) {
            EXPECT_EQ(one.getPointToKeyLength(i, c), other.getPointToKeyLength(i, c));
            EXPECT_EQ(one.getProximityType(i, c, true), other.getProximityType(i, c, true));
        }
    }
}

/// One random edit of the kind that typing makes: mostly letters at the end.
void edit(const Layout& layout, std::mt19937& random, Typed* typed) {
    const auto pick = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    const int kind = pick(0, 9);
    const int length = typed->size();
    if (kind <= 3 && length > 0) {
        const auto place = static_cast<size_t>(pick(0, length - 1));
        if (kind == 0) typed->shorten(place);
        if (kind == 1) ++typed->xs[place];
        if (kind == 2) typed->codes[place] = pick('a', 'z');
        if (kind == 3) ++typed->times[place];
    } else if (length < WORD_LENGTH_LIMIT) {
        typed->add(pick(0, 9) == 0 ? 0xE9 : pick('a', 'z'), pick(0, layout.width), pick(0, layout.height),
                   pick(0, 5));
    }
}

TEST(ProximityInfoState, aContinuedStateEqualsAFreshOne) {
    const Layout layout = qwertyLayout();
    const auto info = layout.build();
    std::mt19937 random(17);
    int continued = 0;
    int cleared = 0;
    for (int word = 0; word < 12; ++word) {
        ProximityInfoState longLived;
        Typed typed;
        typed.hasTimes = word % 2 == 0;
        Typed before;
        for (int step = 0; step < 25; ++step) {
            edit(layout, random, &typed);
            bool extends = typed.size() >= before.size();
            for (int i = 0; extends && i < before.size(); ++i) {
                const size_t at = static_cast<size_t>(i);
                extends = typed.xs[at] == before.xs[at] && typed.ys[at] == before.ys[at] &&
                          (!typed.hasTimes || typed.times[at] == before.times[at]);
            }
            typed.enter(*info, longLived);
            EXPECT_EQ(longLived.isContinuousSuggestionPossible(), extends);
            ++(extends ? continued : cleared);
            ProximityInfoState fresh;
            typed.enter(*info, fresh);
            EXPECT_EQ(longLived.getSampledPoints().sampledTimes, fresh.getSampledPoints().sampledTimes);
            expectSameResults(longLived, fresh, typed);
            before = typed;
        }
    }
    EXPECT_GT(continued, 50);
    EXPECT_GT(cleared, 50);
}

TEST(ProximityInfoState, lettersWithoutATouchLieOnTheirKeys) {
    Layout layout = qwertyLayout();
    layout.hasSweetSpots = false;
    const auto info = layout.build();
    ProximityInfoState state;
    Typed typed;
    for (const int letter : {int{'a'}, int{'S'}, 0x416}) typed.add(letter, -1, -1, 0);
    typed.enter(*info, state);
    ASSERT_EQ(state.size(), 3);
    EXPECT_EQ(state.getInputX(0), layout.centerX('a'));
    EXPECT_EQ(state.getInputY(1), layout.centerY('s'));
    EXPECT_EQ(state.getInputX(2), -1) << "a letter without a key stays nowhere";
    EXPECT_EQ(state.getPointToKeyLength(0, 'A'), 0.0f);
    EXPECT_EQ(state.getPointToKeyLength(0, 'p'), 1.0f) << "capped";
    EXPECT_EQ(state.getPointToKeyLength(0, 0x416), 1e7f);
    EXPECT_TRUE(state.sameAsTyped(typed.codes.data(), 3));
    EXPECT_FALSE(state.sameAsTyped(typed.codes.data(), 2));
}

TEST(ProximityInfoState, carelessCallersGetShortOrEmptyStates) {
    const Layout layout = qwertyLayout();
    const auto info = layout.build();
    ProximityInfoState state;
    const std::vector<int> codes(60, 'a');
    const std::vector<int> positions(60, 80);
    const auto enter = [&](const ProximityInfo* geometry, int size, const int* xs) {
        state.initInputParams(0, 1.0f, geometry, codes.data(), size, xs, positions.data(), nullptr, nullptr,
                              false);
        return state.size();
    };
    EXPECT_EQ(enter(info.get(), 60, positions.data()), WORD_LENGTH_LIMIT);
    EXPECT_EQ(enter(info.get(), -3, positions.data()), 0);
    EXPECT_EQ(enter(info.get(), 5, nullptr), 0);
    EXPECT_EQ(enter(nullptr, 5, positions.data()), 0);
    const std::vector<int> extremes = {0, INT_MAX, INT_MIN, -1, INT_MAX, INT_MAX, INT_MIN, INT_MIN, 7};
    EXPECT_EQ(enter(info.get(), 9, extremes.data()), 9);

    Layout withoutKeyWidth = layout;
    withoutKeyWidth.keyWidth = 0;
    const auto infoWithoutKeyWidth = withoutKeyWidth.build();
    Typed onCenter;
    onCenter.add('a', layout.centerX('a'), layout.centerY('a'), 0);
    onCenter.enter(*infoWithoutKeyWidth, state);
    EXPECT_EQ(state.getPointToKeyLength(0, 'a'), 1.0f) << "no number, on the centre and beside it";
    EXPECT_EQ(state.getPointToKeyLength(0, 's'), 1.0f);

    const int pointerIds[] = {0, 1, 0, 1, 0};
    state.initInputParams(0, 1.0f, info.get(), codes.data(), 5, positions.data(), positions.data(), nullptr,
                          pointerIds, false);
    ASSERT_EQ(state.size(), 3);
    EXPECT_EQ(state.getInputIndexOfSampledPoint(1), 2);
}

}  // namespace
}  // namespace wordengine
