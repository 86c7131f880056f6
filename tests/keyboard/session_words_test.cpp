// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session/sentence_words.h"
#include "keyboard/session/suggestion_labels.h"
#include "keyboard/session/text_record.h"
#include "keyboard/session/typing_policy.h"
#include "platform/characters.h"
#include "platform/plain_text_field.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace vorpel::testing {
namespace {

TEST(SessionWordsTest, SentencesAreSplit) {
    struct Row {
        std::string sentence;
        SentenceWords listed;
        SentenceWords natural;
    };
    const Row rows[] = {
        {"hello", {"hello", ""}, {"hello", ""}},
        {"hello ", {"", "hello"}, {"", "hello"}},
        {"how are yo", {"yo", "are"}, {"yo", "are"}},
        {"end. Begin", {"Begin", ""}, {"Begin", ""}},
        {"one - tw", {"tw", ""}, {"tw", "one"}},
        {"5€ off", {"off", ""}, {"off", "5"}},
        {"a×b", {"b", "a"}, {"b", "a"}},
        {"I don't", {"t", "don"}, {"don't", "I"}},
        {"'tis", {"tis", ""}, {"tis", ""}},
        {"say 'no'", {"", "no"}, {"no'", "say"}},
        {"«oui – no", {"no", "–"}, {"no", "oui"}},
        {"one\ntwo", {"one\ntwo", ""}, {"two", ""}},
        {"نعم، لا", {"لا", "نعم،"}, {"لا", "نعم"}},
        {"كيف؟", {"كيف؟", ""}, {"", ""}},
        {"...", {"", ""}, {"", ""}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(getTheCurrentAndPrevWordFromSentence(row.sentence, WordSplitting::Listed), row.listed)
            << row.sentence;
        EXPECT_EQ(getTheCurrentAndPrevWordFromSentence(row.sentence, WordSplitting::Natural), row.natural)
            << row.sentence;
    }
}

std::string told(const LabelTitles& titles) {
    const auto title = [](const std::optional<std::string>& text) {
        return !text ? std::string("=") : text->empty() ? "-" : *text;
    };
    return title(titles.first) + " " + title(titles.second) + (titles.autoCorrect ? "! " : " ") +
           title(titles.third);
}

TEST(SessionWordsTest, AnswersAreSpreadOverTheLabels) {
    struct Row {
        AnsweredWord answer;
        std::string fixed;
        std::string distinct;
    };
    const auto answer = [](const char* typed, std::vector<std::string> words, bool may, bool wanted) {
        return AnsweredWord{typed, caseOf(typed), std::move(words), may, wanted};
    };
    const Row rows[] = {
        {answer("teh", {"the", "tea", "ten"}, true, true), "\"teh\" the! tea", "\"teh\" the! tea"},
        {answer("teh", {"the", "tea", "ten"}, true, false), "the tea ten", "the tea ten"},
        {answer("te", {"the", "tea", "ten"}, false, true), "the the tea", "the tea ten"},
        {answer("Teh", {"the", "tea"}, true, true), "\"Teh\" The! Tea", "\"Teh\" The! Tea"},
        {answer("TEH", {"the", "tea"}, true, true), "\"TEH\" THE! TEA", "\"TEH\" THE! TEA"},
        {answer("éte", {"été"}, true, true), "\"éte\" été! -", "\"éte\" été! -"},
        // The same word in other capitals, and several words, stop a correction.
        {answer("paris", {"Paris", "pairs", "parts"}, true, true), "pairs pairs parts", "pairs parts -"},
        {answer("alot", {"a lot", "allot"}, true, true), "a lot a lot allot", "a lot allot -"},
        {answer("alot", {"slot", "allot", "lot", "a lot"}, true, true), "\"alot\" slot! allot",
         "\"alot\" slot! allot"},
        {answer("ok", {"okay"}, false, false), "okay - -", "okay - -"},
        {answer("ok", {"OK"}, true, true), "= - -", "- - -"},
        {answer("xx", {}, true, true), "= - -", "- - -"},
        {answer("Th", {"the", "The", "then"}, false, false), "The The Then", "The Then -"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(told(labelsFor(row.answer, LabelPlan::Fixed)), row.fixed) << row.answer.typed;
        EXPECT_EQ(told(labelsFor(row.answer, LabelPlan::Distinct)), row.distinct) << row.answer.typed;
    }
}

TEST(SessionWordsTest, CapitalsAreFollowed) {
    struct Row {
        const char* word;
        const char* plain;
        const char* natural;
    };
    const Row rows[] = {{"te", "ice", "ice"}, {"Te", "Ice", "Ice"}, {"TE", "ICE", "ICE"}, {"I", "ICE", "Ice"},
                        {"B2", "ICE", "Ice"}, {"12", "ICE", "ice"}, {"Ést", "Ice", "Ice"}};
    for (const Row& row : rows) {
        EXPECT_EQ(caseOf(row.word).applyTo("ice"), row.plain) << row.word;
        EXPECT_EQ(naturalCaseOf(row.word).applyTo("ice"), row.natural) << row.word;
    }
}

TEST(SessionWordsTest, PrivateFieldsGiveNothingAway) {
    constexpr TypingPolicy NOTHING{
        .suggests = false, .corrects = false, .showsPopups = false, .stores = false};
    constexpr TypingPolicy ADDRESS{.suggests = true, .corrects = false, .showsPopups = true, .stores = true};
    struct Row {
        std::optional<bool> secure, sensitive;
        platform::KeyboardType type;
        bool ownFieldIsProtected;
        TypingPolicy policy;
    };
    using enum platform::KeyboardType;
    const Row rows[] = {{{}, {}, Default, false, {}},           {true, {}, Default, false, NOTHING},
                        {{}, true, Default, false, NOTHING},    {false, false, Default, true, NOTHING},
                        {false, false, NumberPad, false, {}},   {{}, {}, Url, false, ADDRESS},
                        {{}, {}, EmailAddress, false, ADDRESS}, {true, {}, Url, false, NOTHING}};
    for (const Row& row : rows) {
        platform::PlainTextField field;
        platform::TextInputTraits traits;
        traits.isSecureTextEntry = row.secure;
        traits.isSensitive = row.sensitive;
        traits.keyboardType = row.type;
        field.setTraits(traits);
        EXPECT_EQ(typingPolicyFor(field, row.ownFieldIsProtected), row.policy) << &row - rows;
    }
}

using Text = std::optional<std::string>;
constexpr auto KNOWN = TextRecord::Told::Known;
constexpr auto DIFFERENT = TextRecord::Told::Different;

TEST(TextRecordTest, LateAndPartialAnswersAreWeighed) {
    struct Row {
        Text answer, after;
        TextRecord::Told told;
        Text before;
        bool sureOfWord;
    };
    // "Say " was there; "hello" has been typed since.
    const Row rows[] = {
        {"Say hello", {}, KNOWN, "Say hello", true},
        {"ay hello", {}, KNOWN, "ay hello", true},
        {"Dear all. Say hello", {}, KNOWN, "Dear all. Say hello", true},
        {"Say hel", {}, KNOWN, "Say hello", false},
        {"Say ", {}, KNOWN, "Say hello", false},
        {"Say hel", "lo", DIFFERENT, "Say hel", true},
        {"Say hello!", {}, DIFFERENT, "Say hello!", true},
        {"", "Say hello", DIFFERENT, "", true},
        {"", {}, DIFFERENT, "", true},
        {{}, {}, DIFFERENT, {}, true},
        {"Other", {}, DIFFERENT, "Other", true},
    };
    for (const Row& row : rows) {
        TextRecord record;
        record.take("Say ", {});
        for (const char letter : {'h', 'e', 'l', 'l', 'o'})
            record.insert(std::string(1, letter), {}, "Say ", 1);
        EXPECT_EQ(record.tell(row.answer, row.after, 2), row.told) << row.answer.value_or("nothing");
        EXPECT_EQ(record.before(), row.before) << row.answer.value_or("nothing");
        EXPECT_EQ(record.isSure(5), row.sureOfWord) << row.answer.value_or("nothing");
        record.insert(" you", {}, {}, 3);
        EXPECT_TRUE(record.isSure(3)) << "what was typed after an answer is there";
    }
}

TEST(TextRecordTest, AnEmptyFieldIsNoPartOfAnother) {
    TextRecord record;
    record.take({}, {});
    record.insert("hi", {}, {}, 1);
    EXPECT_EQ(record.tell("Other", {}, 1), DIFFERENT);
    EXPECT_EQ(record.before(), "Other");
    record.take({}, {});
    record.insert("hi", {}, {}, 1);
    EXPECT_EQ(record.tell({}, {}, 1), KNOWN) << "fields that never answer";
    EXPECT_EQ(record.before(), "hi");
    EXPECT_EQ(record.tell("h", {}, 4), DIFFERENT) << "too long ago for an answer to be late";
    EXPECT_EQ(record.before(), "h");
}

TEST(TextRecordTest, AFieldThatAnswersAtOnceIsBelieved) {
    TextRecord record;
    record.take({}, {});
    record.insert("ok", {}, "ok", 1);
    EXPECT_EQ(record.tell({}, {}, 1), DIFFERENT) << "a message was sent";
    record.insert("ok", {}, "ok", 1);
    EXPECT_EQ(record.tell("o", {}, 1), DIFFERENT) << "a desk's keyboard deleted";
}

TEST(TextRecordTest, ALateFieldIsNotBelievedOfACursor) {
    TextRecord record;
    record.take("wor", "ld");
    record.moveCursor(-1, "wor", "ld");
    EXPECT_EQ(record.before(), "wo");
    EXPECT_FALSE(record.isSure(2));
    record.take("wor", "ld");
    record.moveCursor(-1, "wo", "rld");
    EXPECT_TRUE(record.isSure(2));
}

TEST(TextRecordTest, LettersThatTheFieldRefusesAreInDoubt) {
    TextRecord record;
    record.take({}, {});
    record.insert("a", {}, "a", 1);
    record.insert("b", {}, "a", 1);
    EXPECT_FALSE(record.isSure(2));
}

TEST(TextRecordTest, ALongTextIsKnownByItsEnd) {
    TextRecord record;
    std::string text;
    record.take(text = std::string(10000, 'x') + " ", {});
    for (int stroke = 0; stroke < 5000; ++stroke) {
        const std::string letter = stroke % 5 == 4 ? " " : "ü";
        record.insert(letter, KeyOffset{stroke * 1e-4, 0}, text += letter, stroke);
        ASSERT_TRUE(text.ends_with(*record.before())) << stroke;
        ASSERT_EQ(record.offsetsOf(letter).back()->x, stroke * 1e-4);
    }
    EXPECT_LT(record.before()->size(), 10000U);
    EXPECT_TRUE(record.isSure(10));
    EXPECT_EQ(record.tell(text, {}, 5000), KNOWN);
    for (int stroke = 0; stroke < 4000; ++stroke) {
        text = platform::withoutLastCharacter(text);
        record.deleteBackward(text);
        ASSERT_TRUE(text.ends_with(*record.before())) << stroke;
    }
}

TEST(TextRecordTest, DeletingFollowsTheField) {
    TextRecord record;
    record.take("ab", {});
    record.insert("ل", KeyOffset{0.1, 0}, {}, 1);
    record.insert("\u064E", KeyOffset{0.2, 0}, {}, 1);
    EXPECT_EQ(record.offsetsOf("bل\u064E").size(), 3U);
    EXPECT_FALSE(record.offsetsOf("bل\u064E")[0]);
    EXPECT_EQ(record.offsetsOf("bل\u064E")[2]->x, 0.2);
    record.deleteBackward("ab");
    EXPECT_EQ(record.before(), "ab") << "a letter goes with its mark";
    record.take("ab", {});
    record.deleteBackward("a");
    EXPECT_EQ(record.before(), "a");
    EXPECT_TRUE(record.isSure(1));
    record.deleteBackward("a");
    EXPECT_FALSE(record.isSure(1)) << "a late answer, or a selection";
    record.deleteBackward("a");
    EXPECT_FALSE(record.isSure(1)) << "still late";
    EXPECT_EQ(record.before(), "");
    std::string text;
    for (int word = 0; word < 1000; ++word) text += " " + std::to_string(word);
    record.take(text, {});
    record.deleteBackward(text);
    EXPECT_FALSE(record.isSure(1)) << "late, however long the text";
    record.take("one two", {});
    record.deleteBackward("one");
    EXPECT_EQ(record.before(), "one") << "a selection was deleted";
    record.take({}, {});
    record.deleteBackward({});
    EXPECT_EQ(record.before(), std::nullopt);
}

}  // namespace
}  // namespace vorpel::testing
