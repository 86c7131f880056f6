// SPDX-License-Identifier: Apache-2.0
#include "compiler/dictionary_builder.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace vorpel::compiler {
namespace {

using Probabilities = std::map<std::string, int>;
using Strengths = std::map<std::string, int>;

/// Builds from small files. On the plain scale 1/2 becomes 180, 1/4 160, and so on by 20 for each halving.
class DictionaryBuilderTest : public ::testing::Test {
protected:
    static constexpr const char* PLAIN_SCALE = "scale base=200 factor=20 reference=1 minimum=0 maximum=250\n";

    void file(const std::string& name, const std::string& content) { folder_.write(name, content); }

    void build(const std::string& recipe) {
        const Recipe parsed = Recipe::parseText(recipe, folder_.path("a.recipe"));
        result_ = buildDictionary(parsed, folder_.path());
    }

    const BuildReport& report() const { return result_.report; }

    /// Not-a-word entries left out.
    Probabilities probabilities() const {
        Probabilities map;
        for (const WordEntry& entry : result_.model.words) {
            if (!entry.isNotAWord) map[entry.word] = entry.probability;
        }
        return map;
    }

    const WordEntry& entry(const std::string& word) const {
        static const WordEntry NOTHING;
        for (const WordEntry& entry : result_.model.words) {
            if (entry.word == word) return entry;
        }
        ADD_FAILURE() << word << " is missing";
        return NOTHING;
    }

    Strengths pairsOf(const std::string& word) const {
        Strengths map;
        for (const BigramEntry& pair : entry(word).bigrams) map[pair.target] = pair.strength;
        return map;
    }

    bool warns(const std::string& part) const {
        for (const std::string& warning : report().warnings) {
            if (warning.find(part) != std::string::npos) return true;
        }
        return false;
    }

    /// Four words on the plain scale: a 160, b 80, c 60, d 60.
    void fileOfFourWords() { file("four.tsv", "a\t0.25\nb\t0.015625\nc\t0.0078125\nd\t0.0078125\n"); }
    static std::string fourWords() { return PLAIN_SCALE + std::string("words four.tsv kind=probability\n"); }

private:
    vorpel::testing::TemporaryFolder folder_;
    BuildResult result_;
};

TEST_F(DictionaryBuilderTest, SourcesAreMixedByTheirShareOfTheVocabulary) {
    file("list", "the\ncat\textra\nunseen\n" + std::string(49, 'x') + "\n");
    file("a.tsv", "the\t6\ncat\t1\njunk\t92\ncat\t1\nnot a word\t3\n");
    file("b.tsv", "the\t1\ncat\t3\n");
    build(PLAIN_SCALE +
          std::string("vocabulary list\nwords a.tsv weight=0.75\nwords $SOURCES/b.tsv weight=0.25\n"
                      "words none.tsv weight=5 optional"));
    // the: 0.75 * 6/8 + 0.25 * 1/4 = 0.625; cat: 0.375.
    EXPECT_EQ((Probabilities{{"the", 186}, {"cat", 172}}), probabilities());
    EXPECT_EQ(2, report().unusableEntries);
    EXPECT_EQ(std::vector<std::string>{"none.tsv"}, report().missingSources);
    // Without a vocabulary junk is a word: 0.75 * 92/100.
    build(PLAIN_SCALE + std::string("words a.tsv weight=0.75\nwords b.tsv weight=0.25"));
    EXPECT_EQ(189, probabilities()["junk"]);
}

TEST_F(DictionaryBuilderTest, ProbabilitiesAndModelsAreTakenAsTheyStand) {
    file("a.tsv", "word\t0.25\n");
    file("b.tsv", "word\t0.05\n");
    build(PLAIN_SCALE +
          std::string("words a.tsv kind=probability weight=3\nwords b.tsv kind=probability weight=1"));
    EXPECT_EQ(154, probabilities()["word"]);  // p = (3 * 0.25 + 0.05) / 4 = 0.2

    file("m.arpa",
         "about\n\\data\\\nngram 1=4\nngram 2=3\n\n\\1-grams:\n-99 <s> -0.1\n-0.30103 a -0.2\n-0.60206 b\n"
         "-1 <unk>\n\n\\2-grams:\n-0.1 <s> a\n-0.30103 a b -0.5\n-0.60206 b a\n\n\\3-grams:\n-1 a b "
         "a\n\\end\\\n");
    build(PLAIN_SCALE + std::string("words m.arpa kind=arpa"));
    EXPECT_EQ((Probabilities{{"a", 180}, {"b", 160}}), probabilities());
    EXPECT_EQ(0, report().pairs);
    // a b: 16 * 1/2 * 1/2 = 4 times of 4 + 1; t = 200 + 20 * log2((4 - 0.8) / 5) = 187 of b's 160.
    // b a: 16 * 1/4 * 1/4 = 1 time, below the minimum.
    build(PLAIN_SCALE + std::string("arpa m.arpa tokens=16\npairs minimum=2 discount=0.8 prior=1"));
    EXPECT_EQ((Probabilities{{"a", 180}, {"b", 160}}), probabilities());
    EXPECT_EQ((Strengths{{"b", 4}}), pairsOf("a"));  // 160 + trunc(5 * 95 / 16.5) = 188
    EXPECT_EQ(1, report().pairsBelowMinimum);
}

TEST_F(DictionaryBuilderTest, SeedsPullCapsTameFloorsRaise) {
    file("a.tsv", "common\t0.5\nfloored\t0.25\nrare\t0.25\nouter\t0.25\n");
    file("seed", "# tiers\n[tier 0.015625]\ncommon new\n[tier 0.001]\n new\n");
    file("floor", "unseen\t0.03125\nfloored\t0.125\nunseen\t0.0001\n");
    const std::string words = PLAIN_SCALE + std::string("words a.tsv kind=probability\nfloor floor\n");
    // Pulled: new to L * (1/20)^(1/3), common to (L^2 * (0.5 + L/20))^(1/3).
    build(words + "seed seed direction=both");
    EXPECT_EQ(
        (Probabilities{
            {"common", 113}, {"new", 51}, {"floored", 160}, {"unseen", 100}, {"rare", 160}, {"outer", 160}}),
        probabilities());
    EXPECT_TRUE(warns("seed:5: \"new\" stands in several tiers"));
    // The cap leaves the seed alone, and the floor has the last word: 0.0625 * (4)^0.5 = 1/8.
    build(words + "seed seed direction=up\ncap above=0.0625 exponent=0.5");
    EXPECT_EQ(
        (Probabilities{
            {"common", 180}, {"new", 51}, {"floored", 140}, {"unseen", 100}, {"rare", 140}, {"outer", 140}}),
        probabilities());
}

TEST_F(DictionaryBuilderTest, AKneeKeepsTheLikeliestApart) {
    // Plain values 300, 280, 260, 240, 200; the top is 300.
    file("p.tsv", "a\t1\nb\t0.5\nc\t0.25\nd\t0.125\ne\t0.03125\n");
    build("scale base=300 factor=20 reference=1 knee=220 maximum=250\nwords p.tsv kind=probability\n");
    EXPECT_EQ(probabilities(), (Probabilities{{"a", 250}, {"b", 243}, {"c", 235}, {"d", 228}, {"e", 200}}));
}

TEST_F(DictionaryBuilderTest, TheScaleFollowsItsFormula) {
    file("a.tsv", "the\t0.06\nrare\t1e-6\nrarer\t1e-8\nrarest\t1e-12\nall\t1\n");
    build("words a.tsv kind=probability");
    EXPECT_EQ((Probabilities{{"the", 227}, {"rare", 85}, {"rarer", 25}, {"rarest", 1}, {"all", 250}}),
              probabilities());
}

TEST_F(DictionaryBuilderTest, CapitalisedTwinsStayOnlyWithAShareOrAReason) {
    file("a.tsv",
         "house\t0.1875\nHouse\t0.0625\nmarch\t0.125\nMarch\t0.0625\nTurkey\t0.001\nturkey\t0.125\nNever\t0."
         "001\n"
         "never\t0.125\nLondon\t0.03125\nاب\t0.03125\nÉté\t0.01\nété\t0.115\n");
    file("keep", "Turkey\n");
    file("seed", "[tier 0.001]\nNever\n");
    file("pairs.tsv", "House\tMarch\t3\nhouse\tMarch\t4\nthe\tMarch\t4\n");
    build(PLAIN_SCALE +
          std::string("words a.tsv kind=probability\ncase-twins share=0.33 keep=keep\nseed seed\n"
                      "ngrams pairs.tsv\npairs minimum=7 discount=0 prior=0"));
    const Probabilities all = probabilities();
    EXPECT_EQ(160, all.at("house"));  // 0.1875 + 0.0625
    EXPECT_EQ(140, all.at("été"));
    EXPECT_FALSE(all.contains("House") || all.contains("Été"));
    for (const char* kept : {"march", "March", "Turkey", "turkey", "Never", "never", "London", "اب"}) {
        EXPECT_TRUE(all.contains(kept)) << kept;
    }
    EXPECT_EQ(2, report().caseTwinsDropped);
    EXPECT_EQ(1u, pairsOf("house").count("March"));  // 3 + 4 times
}

TEST_F(DictionaryBuilderTest, LimitsKeepSeedsThenTheMostProbableThenByCodePoints) {
    file("a.tsv", "top\t0.5\nequalB\t0.1\nequalA\t0.1\nlow\t0.01\nzseed\t0.0001\n");
    file("seed", "[tier 0.0001]\nzseed\n");
    build("words a.tsv\nseed seed\nlimit words=3");
    const Probabilities all = probabilities();
    EXPECT_EQ(3u, all.size());
    EXPECT_TRUE(all.contains("zseed") && all.contains("top") && all.contains("equalA"));
    EXPECT_EQ(2, report().wordsBeyondLimit);
    build("words a.tsv\nseed seed\nlimit words=0");
    EXPECT_EQ(1u, probabilities().size());
}

TEST_F(DictionaryBuilderTest, OffensiveWordsStaySilentlyAndExcludedOnesGo) {
    fileOfFourWords();
    file("more.tsv", "Bad\t0.1\nbad\t0.1\nWorse\t0.1\n");
    file("offensive", "bad\nworse\nabsent\n");
    file("exclude", "c\nseeded\n");
    file("seed", "[tier 0.1]\nseeded\n");
    file("pairs", "a bad b c\n");
    build(fourWords() +
          "words more.tsv kind=probability\noffensive offensive\nexclude exclude\nseed seed\n"
          "pairs-seed pairs");
    const Probabilities all = probabilities();
    EXPECT_EQ(0, all.at("bad"));
    EXPECT_EQ(0, all.at("Bad"));
    EXPECT_EQ(0, all.at("Worse"));
    EXPECT_EQ(3, report().offensiveWords);
    EXPECT_EQ(2, report().unknownOffensiveWords);
    EXPECT_FALSE(all.contains("c") || all.contains("seeded"));
    EXPECT_TRUE(warns("seed:2: \"seeded\" is excluded"));
    EXPECT_EQ(1u, pairsOf("a").size());
    EXPECT_EQ(2, report().seedPairsSkipped);
    EXPECT_TRUE(warns("pairs:1: \"bad\" is offensive") && warns("pairs:1: \"c\" is not in the dictionary"));
}

TEST_F(DictionaryBuilderTest, WhatIsMoreOftenASlipThanMeantIsNoWord) {
    // On the English page r lies beside e: one "the" in fifty comes out as "thr".
    file("p.tsv",
         "the\t0.05\nthr\t0.0009\nTHR\t0.0002\nthw\t0.0009\nteh\t1e-6\nrhe\t1e-6\nhte\t1e-6\n"
         "phone\t0.0001\n");
    file("mine.txt", "[tier 1e-9]\nrhe\n");
    file("loose.txt", "[tier 1e-9]\nteh\n");
    file("rude.txt", "hte\n");
    file("rule.tsv", "fone\tphone\nthee\tphone\nthe\tphone\nbone\tunknown\n");
    build(PLAIN_SCALE + std::string("words p.tsv kind=probability\nseed mine.txt\nseed loose.txt slips=drop\n"
                                    "offensive rude.txt\nslips en ratio=1\n"
                                    "corrections rule.tsv probability=7 share=0.01\n"));
    // Both cases of "thr" together are meant more often than slipped into; "thw" is not, nor "teh".
    Probabilities words = probabilities();
    for (const char* word : {"the", "thr", "THR", "rhe", "hte", "phone"})
        EXPECT_TRUE(words.contains(word)) << word;
    for (const char* word : {"thw", "teh"}) EXPECT_FALSE(words.contains(word)) << word;
    EXPECT_EQ(report().slipsDropped, 2);
    // "thee" is likelier a slip, "the" is a word, and nothing is known of "unknown".
    EXPECT_EQ(entry("fone").shortcuts, (std::vector<ShortcutEntry>{{"phone", 15}}));
    EXPECT_EQ(entry("fone").probability, 7);
    EXPECT_EQ(report().corrections, 1);
    EXPECT_EQ(report().correctionsSkipped, 3);
    EXPECT_TRUE(report().warnings.empty());
}

TEST_F(DictionaryBuilderTest, CountedPairsBecomeStrengths) {
    fileOfFourWords();
    // c(a) = 12 + 8 + 2 + 1 + 5 = 28, the unknown second word included.
    file("p.tsv", "a\tb\t10\na\tc\t8\na\ta\t2\na\td\t1\na\tunknown\t5\nunknown\ta\t50\na\tb\t2\n");
    build(fourWords() + "ngrams p.tsv");
    // a b: q = 11.3 / 33, t = 169; 80 + trunc(8 * 175/16.5) = 164 is nearer than 175.
    // a c: q = 7.3 / 33, t = 156; 60 + trunc(8 * 195/16.5) = 154.
    // a a: q = 1.3 / 33, t = 107, below a's own 160. a d: below the minimum.
    EXPECT_EQ((Strengths{{"b", 7}, {"c", 7}}), pairsOf("a"));
    EXPECT_EQ(1, report().pairsBelowMinimum);
    EXPECT_EQ(1, report().pairsThatTellNothing);

    build(fourWords() + "ngrams p.tsv weight=0.5\npairs minimum=0.5 per-word=1 prior=2");
    // Halved counts: c(a) = 14; a b: q = 5.3 / 16, t = 168: 7 again. a d: q = 0.05 / 16, t = 34: nothing.
    EXPECT_EQ((Strengths{{"b", 7}}), pairsOf("a"));
    EXPECT_EQ(2, report().pairsThatTellNothing);
    EXPECT_EQ(1, report().pairsBeyondPerWord);
}

TEST_F(DictionaryBuilderTest, PairsWrittenByHandComeFirst) {
    fileOfFourWords();
    file("pairs", "a\tb c\nb a\na d missing\n");
    file("p.tsv", "a\tb\t3\nc\ta\t100\nc\tb\t100\nb\td\t90\n");
    build(fourWords() + "pairs-seed pairs\nngrams p.tsv\npairs per-word=1\nlimit pairs=6");
    // t = 245 of 80 + 169 (15); 238 of 60 + 177 (14); 231 of 60 + 165 (13) or 177 (14), the lower of two.
    EXPECT_EQ((Strengths{{"b", 15}, {"c", 14}, {"d", 13}}), pairsOf("a"));
    EXPECT_EQ((Strengths{{"a", 14}}), pairsOf("b"));  // 160 + trunc(15 * 95/16.5) = 246
    EXPECT_EQ(1u, pairsOf("c").size());
    EXPECT_EQ(4, report().seedPairs);
    EXPECT_EQ(5, report().pairs);
    EXPECT_EQ(1, report().seedPairsSkipped);
    EXPECT_EQ(2, report().pairsBeyondPerWord);

    build(fourWords() + "pairs-seed pairs top=100 step=60\nngrams p.tsv\nlimit pairs=5");
    // t = 100, 40, 0, never dropped: 80 + 21 (1), then the weakest of what there is.
    EXPECT_EQ((Strengths{{"b", 1}, {"c", 0}, {"d", 0}}), pairsOf("a"));
    EXPECT_EQ(5, report().pairs);
    // c a is ahead of c b by code points and of b d by count: q = 99.3 / 205, t = 179 of 160 + 17 (2).
    EXPECT_EQ((Strengths{{"a", 2}}), pairsOf("c"));
}

TEST_F(DictionaryBuilderTest, CorrectionsAndShortcutsBecomeEntriesThatAreNoWords) {
    fileOfFourWords();
    file("corrections", "aa\ta\naab\ta b\tb\nb\tc\naa\td\ta\nxx\tunknown\n");
    file("shortcuts", "b\tc\naa\tc\nq\ta\n");
    build(fourWords() + "corrections corrections probability=7\nshortcuts shortcuts probability=12");
    EXPECT_EQ((WordEntry{"aa", 7, true, false, {{"a", 15}, {"d", 15}, {"c", 12}}, {}}), entry("aa"));
    EXPECT_EQ((WordEntry{"aab", 7, true, false, {{"a b", 15}, {"b", 15}}, {}}), entry("aab"));
    EXPECT_EQ((WordEntry{"b", 80, false, false, {{"c", 12}}, {}}), entry("b"));
    EXPECT_EQ((WordEntry{"q", 1, true, false, {{"a", 12}}, {}}), entry("q"));
    EXPECT_EQ(4, report().words);
    EXPECT_EQ(4, report().notWords);
    EXPECT_EQ(5, report().corrections);
    EXPECT_EQ(3, report().shortcuts);
    EXPECT_EQ(1, report().correctionsSkipped);
    EXPECT_TRUE(warns("corrections:3: \"b\" is a word"));
    EXPECT_TRUE(warns("corrections:5: the target \"unknown\" is not in the dictionary"));
    build(fourWords() + "corrections corrections probability=target");
    EXPECT_EQ(entry("aa").probability, entry("a").probability);
    EXPECT_EQ(entry("aab").probability, 0);
}

}  // namespace
}  // namespace vorpel::compiler
