// SPDX-License-Identifier: Apache-2.0
#include "search/brute_force_answer.h"
#include "search/brute_force_search.h"
#include "search/random_language.h"
#include "text/utf.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace wordengine::testing {
namespace {

int g[20]; int sixteen;
constexpr double AIMS[] = {0, 0.3, 0.6, 1.5};
/// What the queues hold; the model knows no such limit.
constexpr int MOST_NODES = 170;

/// Whole answers, duplicates included, against every path that there is.
class SearchBruteForceTest : public ::testing::Test {
protected:
    void check(const ModelWords& words, ModelLanguage* language, const TypedWord& typed,
               const std::u32string& previous) {
        const BruteForceSearch model(words, keyboard_, typed, previous);
        if (model.isCloseCall() || model.mostNodesAtOnce() > MOST_NODES) {
            ++skipped_;
            return;
        }
        ++checked_;
        { size_t m=model.found().size(); g[m==0?0:m<=18?1:2]++; int nodes=model.mostNodesAtOnce(); if(nodes>g[3]) g[3]=nodes; for(auto&f:model.found()){ for(int b=0;b<8;b++) if(f.errors>>b&1) g[4+b]++; } if (typed.codePoints.size()>=16) ++sixteen; }
        language->startAfresh();
        const std::vector<FoundWord> answer = language->search(typed, previous);
        BruteForceAnswer expected(model.found(), static_cast<int>(typed.codePoints.size()));
        const std::string difference = expected.compare(answer);
        ASSERT_EQ(difference, "") << describe(words, typed) << ::testing::PrintToString(answer);
    }

    static std::string describe(const ModelWords& words, const TypedWord& typed) {
        std::string text = "typed ";
        for (size_t i = 0; i < typed.codePoints.size(); ++i) {
            text += utf32ToUtf8(std::u32string(1, static_cast<char32_t>(typed.codePoints[i]))) + "(" +
                    std::to_string(typed.xs[i]) + "," + std::to_string(typed.ys[i]) + ") ";
        }
        for (const auto& [word, entry] : words.words) {
            text += "\n  " + utf32ToUtf8(word) + " " + std::to_string(entry.probability);
        }
        return text + "\n";
    }

    ModelKeyboard keyboard_;
    int checked_ = 0;
    int skipped_ = 0;
};

TEST_F(SearchBruteForceTest, RandomWordsAndInput) {
    RandomLanguage random(7);
    for (int i = 0; i < 60 && !HasFatalFailure(); ++i) {
        const ModelWords words = random.words(2 + random.below(7), 7);
        ModelLanguage language(words, keyboard_);
        for (int j = 0; j < 20 && !HasFatalFailure(); ++j) {
            TypedWord typed;
            random.touch(keyboard_, random.slippedText(words), AIMS[random.below(4)], &typed);
            check(words, &language, typed, random.oneIn(2) ? random.anyOf(words) : U"");
        }
    }
    printf("checked %d skipped %d\n",checked_,skipped_); for(int i=0;i<12;i++) printf("k%d %d\n",i,g[i]);
    EXPECT_GT(checked_, 20 * skipped_);
}

}  // namespace
}  // namespace wordengine::testing
