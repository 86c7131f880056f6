// SPDX-License-Identifier: Apache-2.0
#include "search/search_fixture.h"
#include "search/typing/scoring_params.h"
#include "search/typing/typing_suggest_policy_factory.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace wordengine {
namespace {

using testing::PlainDictionary;
using testing::SearchFixture;

/// A node that spells a word letter by letter.
DicNode spell(const std::u32string& word, int probability = 100, const DicNode* parent = nullptr) {
    DicNode node;
    if (parent) {
        node.initByCopy(parent);
    } else {
        node.initAsRoot(0, nullptr);
    }
    for (size_t i = 0; i < word.size(); ++i) {
        const int codePoint = static_cast<int>(word[i]);
        DicNode child;
        child.initAsChild(&node, static_cast<int>(i) + 1, 0, probability, i + 1 == word.size(), true, false,
                          1, &codePoint);
        node = child;
    }
    return node;
}

DicNode nextWord(const DicNode& node, const std::u32string& word) {
    DicNode root;
    root.initAsRootWithPreviousWord(&node, 0);
    return spell(word, 100, &root);
}

DicNode at(DicNode node, int inputIndex) {
    node.forwardInputIndex(0, inputIndex);
    return node;
}

DicNode with(DicNode node, ErrorTypeUtils::ErrorType errorType) {
    node.addCost(0, 0, false, 0, 0, errorType);
    return node;
}

class TypingPolicyTest : public ::testing::Test {
protected:
    TypingPolicyTest() : fixture_(makeDictionary()), session_(fixture_.prepare(U"hello")) {}

    static PlainDictionary makeDictionary() {
        PlainDictionary dictionary;
        dictionary.header.multiWordCostMultiplier = 2.0f;
        dictionary.word(U"hello", 100);
        return dictionary;
    }

    void type(const std::u32string& text) { session_ = fixture_.prepare(text); }

    float matched(const DicNode& node) const { return weighting_->getMatchedCost(session_, &node, nullptr); }

    ErrorTypeUtils::ErrorType matchError(const DicNode& node) const {
        return weighting_->getErrorType(CORRECTION_MATCH, session_, nullptr, &node);
    }

    SearchFixture fixture_;
    DicTraverseSession* session_;
    const Weighting* const weighting_ = TypingSuggestPolicyFactory::getTypingSuggestPolicy()->getWeighting();
    const Traversal* const traversal_ = TypingSuggestPolicyFactory::getTypingSuggestPolicy()->getTraversal();
    const Scoring* const scoring_ = TypingSuggestPolicyFactory::getTypingSuggestPolicy()->getScoring();
};

TEST_F(TypingPolicyTest, MatchedCosts) {
    // A key's width away is as far as a touch counts: the factor is then 1.2.
    constexpr float FAR = 0.1524f * 1.2f;
    EXPECT_FLOAT_EQ(matched(spell(U"h")), 0.0f);
    EXPECT_FLOAT_EQ(matched(spell(U"H")), 0.0f);
    EXPECT_FLOAT_EQ(matched(spell(U"g")), FAR + 0.072f + 0.07788f);
    EXPECT_FLOAT_EQ(matched(at(spell(U"hw"), 1)), FAR + 0.0694f + 0.07788f);
    EXPECT_FLOAT_EQ(matched(at(with(spell(U"hw"), ErrorTypeUtils::PROXIMITY_CORRECTION), 1)), FAR + 0.0694f);
    const DicNode first = spell(U"h");
    EXPECT_FLOAT_EQ(matched(at(nextWord(first, U"He"), 1)), 0.3224f);
    EXPECT_FLOAT_EQ(matched(at(nextWord(first, U"he"), 1)), 0.0f);
    EXPECT_FLOAT_EQ(matched(at(nextWord(first, U"Hel"), 2)), 0.0f);
    EXPECT_FLOAT_EQ(matched(at(spell(U"'"), 0)), 0.072f + 0.07788f) << "an apostrophe has no distance";
}

TEST_F(TypingPolicyTest, OmissionCosts) {
    const auto cost = [&](const std::u32string& upToOmitted, char32_t next) {
        const DicNode parent = spell(upToOmitted);
        const DicNode child = spell(std::u32string(1, next), 100, &parent);
        return weighting_->getOmissionCost(&parent, &child);
    };
    EXPECT_EQ(cost(U"don'", U't'), 0.0f);
    EXPECT_EQ(cost(U"'", U't'), 0.0f);
    EXPECT_EQ(cost(U"a-", U't'), 0.1f);
    EXPECT_EQ(cost(U"h", U'e'), 0.5256f);
    EXPECT_EQ(cost(U"h", U'h'), 0.5256f);
    EXPECT_EQ(cost(U"hel", U'l'), 0.345f);
    EXPECT_EQ(cost(U"he", U'l'), 0.467f);
}

TEST_F(TypingPolicyTest, InsertionAndTranspositionCosts) {
    const auto insertion = [&](const DicNode& parent, const DicNode& child) {
        return weighting_->getInsertionCost(session_, &parent, &child);
    };
    type(U"hxelloop");
    // x and h are far apart; o and p are neighbours.
    EXPECT_FLOAT_EQ(insertion(at(spell(U"h"), 1), spell(U"he")), 0.7248f);
    EXPECT_FLOAT_EQ(insertion(at(spell(U"hel"), 3), spell(U"hell")), 0.5508f);
    EXPECT_FLOAT_EQ(insertion(at(spell(U""), 0), spell(U"x")), 0.639f + 0.7248f);
    EXPECT_FLOAT_EQ(insertion(at(spell(U"hell"), 6), spell(U"hellp")), 0.674f);
    EXPECT_FLOAT_EQ(insertion(at(spell(U"hell"), 6), spell(U"hellq")), 0.674f + 0.1524f);
    const DicNode parent = at(spell(U"e"), 0);
    const DicNode child = spell(U"eh");
    type(U"hello");
    EXPECT_FLOAT_EQ(weighting_->getTranspositionCost(session_, &parent, &child), 0.5608f);
    const DicNode far = at(spell(U"p"), 0);
    EXPECT_FLOAT_EQ(weighting_->getTranspositionCost(session_, &far, &child), 0.5608f + 0.1524f);
}

TEST_F(TypingPolicyTest, WordEndAndNextWordCosts) {
    using E = ErrorTypeUtils;
    const auto terminal = [&](const DicNode& node) {
        return weighting_->getTerminalSpatialCost(session_, &node);
    };
    const DicNode plain = spell(U"hello");
    EXPECT_EQ(terminal(plain), 0.0f);
    EXPECT_FLOAT_EQ(terminal(with(plain, E::PROXIMITY_CORRECTION)), 0.0683f);
    EXPECT_FLOAT_EQ(terminal(with(plain, E::EDIT_CORRECTION)), 0.0362f);
    EXPECT_FLOAT_EQ(terminal(with(nextWord(plain, U"hello"), E::EDIT_CORRECTION | E::PROXIMITY_CORRECTION)),
                    0.4182f + 0.0683f + 0.0362f);
    const DicNode short3 = at(spell(U"hel"), 3);
    EXPECT_FLOAT_EQ(weighting_->getTerminalInsertionCost(session_, &short3), 2 * 0.8128f);
    EXPECT_FLOAT_EQ(weighting_->getTerminalLanguageCost(session_, &plain, 0.5f), 0.5607f);
    const DicNode complete = at(plain, 5);
    const DicNode beyond = at(plain, 6);
    EXPECT_EQ(weighting_->getCompletionCost(session_, &complete), 0.4836f);
    EXPECT_EQ(weighting_->getCompletionCost(session_, &beyond), 0.00624f);
    EXPECT_FLOAT_EQ(weighting_->getNewWordSpatialCost(session_, &plain, nullptr), 2 * 0.0314f);
    EXPECT_FLOAT_EQ(weighting_->getSpaceSubstitutionCost(session_, &plain), 2 * 0.3654f);
    EXPECT_FLOAT_EQ(weighting_->getNewWordBigramLanguageCost(session_, &plain, nullptr),
                    155.0f / 255.0f * 1.1214f);
}

TEST_F(TypingPolicyTest, EveryCorrectionMovesOnAndMarksTheNode) {
    using E = ErrorTypeUtils;
    const struct {
        CorrectionType type;
        int points;
        E::ErrorType error;
    } cases[] = {
        {CORRECTION_MATCH, 1, E::NOT_AN_ERROR},
        {CORRECTION_PROXIMITY, 0, E::NOT_AN_ERROR},
        {CORRECTION_ADDITIONAL_PROXIMITY, 0, E::PROXIMITY_CORRECTION},
        {CORRECTION_SUBSTITUTION, 0, E::EDIT_CORRECTION},
        {CORRECTION_OMISSION, 0, E::EDIT_CORRECTION},
        {CORRECTION_INSERTION, 2, E::EDIT_CORRECTION},
        {CORRECTION_TRANSPOSITION, 2, E::EDIT_CORRECTION},
        {CORRECTION_COMPLETION, 1, E::COMPLETION},
        {CORRECTION_TERMINAL, 0, E::NOT_AN_ERROR},
        {CORRECTION_TERMINAL_INSERTION, 1, E::EDIT_CORRECTION},
        {CORRECTION_NEW_WORD_SPACE_OMISSION, 0, E::NEW_WORD},
        {CORRECTION_NEW_WORD_SPACE_SUBSTITUTION, 1, E::NEW_WORD},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.type);
        DicNode parent = at(spell(U"h"), 1);
        DicNode node = at(spell(U"he"), 1);
        Weighting::addCostAndForwardInputIndex(weighting_, c.type, session_, &parent, &node, nullptr);
        EXPECT_EQ(node.getInputIndex(0), 1 + c.points);
        EXPECT_EQ(node.getContainedErrorTypes(), c.error);
        EXPECT_EQ(node.getPrevCodePoint(0), c.type == CORRECTION_TRANSPOSITION ? 'e' : NO_CODE_POINT);
        EXPECT_EQ(node.getNormalizedCompoundDistanceAfterFirstWord() < WEIGHT_CEILING_FLOAT,
                  c.type == CORRECTION_NEW_WORD_SPACE_OMISSION);
        EXPECT_FLOAT_EQ(node.getNormalizedCompoundDistance(), node.getCompoundDistance());
    }
    const DicNode apostrophe = spell(U"don'");
    const DicNode t = spell(U"don't");
    EXPECT_EQ(weighting_->getErrorType(CORRECTION_OMISSION, session_, &apostrophe, &t),
              E::INTENTIONAL_OMISSION);
}

TEST_F(TypingPolicyTest, MatchesTellCaseFromAccent) {
    using E = ErrorTypeUtils;
    EXPECT_EQ(matchError(spell(U"h")), E::NOT_AN_ERROR);
    EXPECT_EQ(matchError(spell(U"H")), E::MATCH_WITH_CASE_ERROR);
    EXPECT_EQ(matchError(spell(U"\u0125")), E::MATCH_WITH_ACCENT_ERROR);
    EXPECT_EQ(matchError(spell(U"\u0124")), E::MATCH_WITH_ACCENT_ERROR | E::MATCH_WITH_CASE_ERROR);
    EXPECT_EQ(matchError(spell(U"j")), E::PROXIMITY_CORRECTION);
    type(U"uber");
    DicNode umlaut = spell(U"\u00FC");
    umlaut.advanceDigraphIndex();
    EXPECT_EQ(matchError(umlaut), E::MATCH_WITH_DIGRAPH);
}

TEST_F(TypingPolicyTest, OmissionsAreTriedWhereTheLetterWasNotTyped) {
    const auto isOmission = [&](const DicNode& parent, char32_t letter, bool allows) {
        const DicNode child = spell(std::u32string(1, letter), 100, &parent);
        return traversal_->isOmission(session_, &parent, &child, allows);
    };
    const DicNode h = at(spell(U"h"), 1);
    EXPECT_TRUE(isOmission(h, U'a', true));
    EXPECT_FALSE(isOmission(h, U'e', true));
    EXPECT_FALSE(isOmission(h, U'\u00C9', true)) << "the accented capital is the typed letter";
    EXPECT_FALSE(isOmission(h, U'a', false));
    EXPECT_TRUE(isOmission(h, U'\'', false));
    EXPECT_FALSE(isOmission(at(spell(U"hello"), 5), U'\'', true));
    EXPECT_TRUE(isOmission(at(spell(U"-"), 1), U'e', true));
}

TEST_F(TypingPolicyTest, SpacesAreTriedAtWordEndsOnly) {
    type(U"bello");
    const auto substitutes = [&](const DicNode& node) {
        return traversal_->isSpaceSubstitutionTerminal(session_, &node);
    };
    const auto omits = [&](const DicNode& node) {
        return traversal_->isSpaceOmissionTerminal(session_, &node);
    };
    EXPECT_TRUE(substitutes(spell(U"x"))) << "b lies above the space";
    EXPECT_FALSE(substitutes(at(spell(U"x"), 1))) << "e does not";
    EXPECT_FALSE(substitutes(spell(U"")));
    EXPECT_TRUE(omits(at(spell(U"bel"), 3)));
    EXPECT_FALSE(omits(at(spell(U"bello"), 5))) << "no input is left";
    const int codePoints[] = {'b', 'e'};
    DicNode root, inside;
    root.initAsRoot(0, nullptr);
    inside.initAsChild(&root, 1, 0, 100, true, true, false, 2, codePoints);
    EXPECT_FALSE(omits(inside));
    EXPECT_FALSE(omits(nextWord(spell(U"a"), U"b")));
    EXPECT_TRUE(omits(nextWord(spell(U"a"), U"be")));
}

TEST_F(TypingPolicyTest, LimitsOfTheSearch) {
    EXPECT_EQ(traversal_->getMaxCacheSize(0), 310);
    EXPECT_EQ(traversal_->getMaxCacheSize(1), 310);
    EXPECT_EQ(traversal_->getMaxCacheSize(2), 170);
    const auto isFollowed = [&](const std::u32string& word, int probability) {
        const DicNode node = spell(word, probability);
        return traversal_->isGoodToTraverseNextWord(&node);
    };
    EXPECT_FALSE(isFollowed(U"word", 39));
    EXPECT_TRUE(isFollowed(U"word", 40));
    EXPECT_FALSE(isFollowed(U"Usa", 119));
    EXPECT_TRUE(isFollowed(U"Usa", 120));
    EXPECT_TRUE(isFollowed(U"Usas", 40));
    EXPECT_TRUE(isFollowed(U"usa", 40));
    DicNode node = at(spell(U"h"), 1);
    node.addCost(0.18f, 5.0f, false, 5, 1, 0);
    EXPECT_TRUE(traversal_->allowsErrorCorrections(&node));
    node.addCost(0.02f, 0.0f, false, 5, 1, 0);
    EXPECT_FALSE(traversal_->allowsErrorCorrections(&node));
}

TEST_F(TypingPolicyTest, FinalScores) {
    using E = ErrorTypeUtils;
    constexpr int SMALLEST = std::numeric_limits<int>::min();
    const struct {
        float distance;
        int inputSize;
        E::ErrorType errors;
        bool forceCommit, boosts;
        int score, tolerance;
    } cases[] = {
        {0.0f, 5, E::NOT_AN_ERROR, false, true, 2100000, 0},
        {0.0f, 5, E::NOT_AN_ERROR, false, false, 1000000, 0},
        {0.0f, 5, E::EDIT_CORRECTION, false, true, 1000000, 0},
        {0.0f, 5, E::INTENTIONAL_OMISSION, true, true, 2000000, 0},
        {0.0f, 5, E::MATCH_WITH_CASE_ERROR, false, true, 2090000, 1},
        {0.0f, 5, E::MATCH_WITH_ACCENT_ERROR, false, true, 2080000, 1},
        {0.0f, 5, E::MATCH_WITH_DIGRAPH | E::MATCH_WITH_CASE_ERROR, true, true, 3060000, 1},
        {1.6214f, 5, E::EDIT_CORRECTION, false, true, 0, 1},
        {3.2428f, 5, E::EDIT_CORRECTION, false, true, -1000000, 1},
        {1e6f, 5, E::EDIT_CORRECTION, false, true, SMALLEST, 0},
        {1.2e7f, 48, E::NOT_AN_ERROR, true, true, SMALLEST, 0},
        {std::numeric_limits<float>::infinity(), 5, E::NOT_AN_ERROR, true, true, SMALLEST, 0},
    };
    for (const auto& c : cases) {
        const int score =
            scoring_->calculateFinalScore(c.distance, c.inputSize, c.errors, c.forceCommit, c.boosts);
        EXPECT_NEAR(score, c.score, c.tolerance) << c.distance << ' ' << c.errors;
    }
}

}  // namespace
}  // namespace wordengine
