// SPDX-License-Identifier: Apache-2.0
#include "text/edit_distance.h"

#include "text/damerau_levenshtein_edit_distance_policy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace wordengine {
namespace {

float distanceOf(const std::vector<int>& word0, const std::vector<int>& word1) {
    const DamerauLevenshteinEditDistancePolicy policy(word0.data(), static_cast<int>(word0.size()),
                                                      word1.data(), static_cast<int>(word1.size()));
    return EditDistance::getEditDistance(&policy);
}

/// Plain definition on the ends of two folded words, with no table.
int modelDistance(const std::string& word0, const std::string& word1) {
    if (word0.empty() || word1.empty()) return static_cast<int>(std::max(word0.size(), word1.size()));
    const std::string head0 = word0.substr(0, word0.size() - 1);
    const std::string head1 = word1.substr(0, word1.size() - 1);
    const int change = word0.back() == word1.back() ? 0 : 1;
    int least = std::min({modelDistance(head0, word1) + 1, modelDistance(word0, head1) + 1,
                          modelDistance(head0, head1) + change});
    if (head0.empty() || head1.empty()) return least;
    if (word0.back() == head1.back() && head0.back() == word1.back()) {
        least = std::min(
            least,
            modelDistance(head0.substr(0, head0.size() - 1), head1.substr(0, head1.size() - 1)) + change);
    }
    return least;
}

TEST(EditDistance, RandomWordsAgreeWithPlainDefinition) {
    const struct {
        int codePoint;
        char folded;
    } letters[] = {{'a', 'a'},  {'A', 'a'}, {0xE1, 'a'}, {'b', 'b'},    {'e', 'e'},
                   {0xC9, 'e'}, {'s', 's'}, {0xDF, 's'}, {0x0130, 'i'}, {'\'', '\''}};
    std::mt19937 random(7);
    for (int round = 0; round < 3000; ++round) {
        std::vector<int> words[2];
        std::string folded[2];
        for (int side = 0; side < 2; ++side) {
            for (unsigned length = random() % 7; length > 0; --length) {
                const auto& letter = letters[random() % std::size(letters)];
                words[side].push_back(letter.codePoint);
                folded[side].push_back(letter.folded);
            }
        }
        ASSERT_EQ(static_cast<float>(modelDistance(folded[0], folded[1])), distanceOf(words[0], words[1]))
            << folded[0] << " " << folded[1];
    }
}

TEST(EditDistance, LengthsAroundTheFixedTable) {
    for (const int length0 : {0, 1, 47, 48, 49, 200}) {
        for (const int length1 : {0, 1, 47, 48, 49, 200}) {
            const std::vector<int> word0(static_cast<size_t>(length0), 'x');
            const std::vector<int> word1(static_cast<size_t>(length1), 'x');
            EXPECT_EQ(static_cast<float>(std::abs(length0 - length1)), distanceOf(word0, word1))
                << length0 << " " << length1;
        }
    }
    const int word[] = {'a', 'b'};
    const DamerauLevenshteinEditDistancePolicy negative(word, -3, word, 2);
    EXPECT_EQ(2.0f, EditDistance::getEditDistance(&negative));
}

}  // namespace
}  // namespace wordengine
