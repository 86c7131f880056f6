// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/brute_force_path.h"
#include "search/model_costs.h"
#include "search/model_language.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace wordengine::testing {

/// What a search has to answer when these are all the paths that it can find.
class BruteForceAnswer {
public:
    BruteForceAnswer(std::vector<BruteForceWord> paths, int points) {
        std::sort(paths.begin(), paths.end(),
                  [](const auto& left, const auto& right) { return left.isBetterThan(right); });
        // Long input is committed as several words where these come first.
        const bool commits = points >= 16 && !paths.empty() && paths[0].hasSeveralWords;
        constexpr size_t KEPT = 18;
        const bool isCut = paths.size() > KEPT;
        for (size_t i = 0; i < paths.size(); ++i) {
            const bool isTie = isCut && areTied(paths[i], paths[KEPT - 1]);
            if (i >= KEPT && !isTie) break;
            if (!paths[i].isShown) continue;
            const double bonus = paths[i].bonus() + (commits && paths[i].hasSeveralWords ? 1 : 0);
            expected_.push_back(
                {paths[i].text, finalScore(paths[i].distance, points, bonus), paths[i].type(), isTie, false});
        }
    }

    /// Takes the words of an answer one by one and says what is missing or too much, nothing if all is well.
    std::string compare(const std::vector<FoundWord>& answer) {
        for (size_t i = 0; i < answer.size(); ++i) {
            if (i > 0 && answer[i].score > answer[i - 1].score) return "out of order";
            const auto match = std::find_if(
                expected_.begin(), expected_.end(),
                [&](const Expected& expected) { return !expected.isTaken && expected.matches(answer[i]); });
            if (match == expected_.end()) return "too much: " + ::testing::PrintToString(answer[i]);
            match->isTaken = true;
        }
        for (const Expected& expected : expected_) {
            if (expected.isTaken || expected.mayBeMissing) continue;
            return "missing: " + ::testing::PrintToString(expected.text) + " at " +
                   std::to_string(expected.score);
        }
        return "";
    }

private:
    struct Expected {
        std::u32string text;
        int score;
        int type;
        bool mayBeMissing;
        bool isTaken;

        bool matches(const FoundWord& word) const {
            // Far below zero a 32-bit score has no units to lose.
            const double tolerance = SCORE_TOLERANCE + std::abs(static_cast<double>(score)) * 4e-7;
            return word.text == text && word.type == type &&
                   std::abs(static_cast<double>(word.score) - score) <= tolerance;
        }
    };

    /// Too near to one another to say which of them the engine keeps.
    static bool areTied(const BruteForceWord& left, const BruteForceWord& right) {
        return left.isExact() == right.isExact() && std::abs(left.distance - right.distance) < 1e-5;
    }

    std::vector<Expected> expected_;
};

}  // namespace wordengine::testing
