// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session_stage.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace vorpel::testing {
namespace {

WordScript english() {
    WordScript script;
    script.suggestions = {{"t", {{"to", "the", "that"}, false}},
                          {"te", {{"the", "ten", "tea"}, false}},
                          {"teh", {{"the", "ten", "tea"}, true}},
                          {"Teh", {{"the", "ten", "tea"}, true}},
                          {"tehn", {{"then", "ten"}, true}},
                          {"don't", {{"don't know"}, false}},
                          {"t'", {{"to"}, false}},
                          {"i", {{"I", "in", "it"}, false}}};
    script.predictions = {{"the", {"same", "first", "best"}}, {"to", {"be"}}};
    return script;
}

/// What is done, and what is seen then.
struct Step {
    enum class Does { Write, TapLabel, HostSets, MoveCursor, Select } does;
    std::string what;
    std::string seen;
};
using enum Step::Does;

struct Script {
    const char* name;
    bool corrects;
    std::vector<Step> steps;
};

void play(const std::vector<Script>& scripts, const TypingOptions* options) {
    for (const Script& script : scripts) {
        SCOPED_TRACE(script.name);
        SessionStage stage(english(), options);
        stage.correct(script.corrects);
        for (const Step& step : script.steps) {
            if (step.does == Write) stage.write(step.what);
            if (step.does == TapLabel) stage.tapLabel(std::stoi(step.what));
            if (step.does == HostSets) stage.hostSets(step.what);
            if (step.does == MoveCursor) {
                stage.field().setCursor(std::stoul(step.what));
                stage.controller->selectionDidChange();
            }
            if (step.does == Select) {  // from the second character on
                stage.field().select(1, std::stoul(step.what));
                stage.controller->selectionDidChange();
            }
            stage.platform.settle();
            EXPECT_EQ(stage.seen(), step.seen) << step.what;
        }
        stage.controller->viewWillDisappear();
        stage.platform.settle();
        EXPECT_EQ(stage.script->made, stage.script->dismissed);
    }
}

TEST(SessionTest, ThePlainClass) {
    play(
        {{"words come with the letters",
          false,
          {{Write, "t", "t | to the that"}, {Write, "e", "te | the ten tea"}, {Write, "x", "tex | the - -"}}},
         {"a correction brings a blank of its own",
          true,
          {{Write, "teh", "teh | \"teh\" the! ten"}, {Write, " ", "the   | - - -"}}},
         {"signs correct nothing",
          true,
          {{Write, "teh", "teh | \"teh\" the! ten"}, {Write, ".", "teh. | - - -"}}},
         {"the typed word is kept by a tap, which undoes",
          true,
          {{Write, "teh", "teh | \"teh\" the! ten"}, {TapLabel, "1", "teh  | - - -"}}},
         {"a tapped word replaces what was typed of it",
          false,
          {{Write, "te", "te | the ten tea"},
           {TapLabel, "1", "the  | same first best"},
           {TapLabel, "2", "the first  | - - -"}}},
         {"an empty label is not to be tapped",
          false,
          {{Write, "tex", "tex | the - -"}, {TapLabel, "3", "tex | the - -"}}},
         {"backspace goes back into a word",
          false,
          {{Write, "te ", "te  | - - -"}, {Write, "\b", "te | the ten tea"}, {Write, "\b\b", " | to - -"}}}},
        nullptr);
}

TEST(SessionTest, TheEmbeddedClass) {
    play({{"one blank behind a correction",
           true,
           {{Write, "teh", "teh | \"teh\" the! ten"}, {Write, " ", "the  | same first best"}}},
          {"two blanks end the sentence all the same", true, {{Write, "teh  ", "the.  | settings"}}},
          {"a sign goes to the corrected word",
           true,
           {{Write, "teh ", "the  | same first best"}, {Write, ".", "the. | settings"}}},
          {"a sign goes to the tapped word, and its blank is the person's",
           false,
           {{Write, "te", "te | the ten tea"},
            {TapLabel, "1", "the  | same first best"},
            {Write, " ", "the  | same first best"},
            {Write, "t", "the t | to the that"},
            {TapLabel, "1", "the to  | be - -"},
            {Write, ".", "the to. | settings"}}},
          {"a blank that the person typed stays", false, {{Write, "t .", "t . | settings"}}},
          {"backspace takes a correction back, once and for this place",
           true,
           {{Write, "teh ", "the  | same first best"},
            {Write, "\b", "teh | the ten tea"},
            {Write, " ", "teh  | settings"},
            {Write, "teh", "teh teh | \"teh\" the! ten"}}},
          {"what is typed on to it may be corrected",
           true,
           {{Write, "teh \b", "teh | the ten tea"}, {Write, "n", "tehn | \"tehn\" then! ten"}}},
          {"two blanks behind a word that was brought back end the sentence",
           true,
           {{Write, "teh \b  ", "teh.  | settings"}}},
          {"only right behind it",
           true,
           {{Write, "teh t", "the t | to the that"}, {Write, "\b\b", "the | - - -"}}},
          {"return corrects too",
           true,
           {{Write, "teh", "teh | \"teh\" the! ten"}, {Write, "\n", "the\n | settings"}}},
          {"a moved cursor drops the correction",
           true,
           {{HostSets, "x ", "x  | settings"},
            {Write, "teh", "x teh | \"teh\" the! ten"},
            {MoveCursor, "3", "x teh | to the that"},
            {Write, " ", "x t eh | settings"}}},
          {"what is selected is no part of a word, and goes with the next key",
           true,
           {{Write, "teh", "teh | \"teh\" the! ten"},
            {Select, "3", "teh | settings"},
            {Write, " ", "t  | settings"},
            {Select, "2", "t  | settings"},
            {Write, "\b", "t | to the that"},
            {Write, "eh", "teh | \"teh\" the! ten"}}},
          {"another text takes the words with it",
           true,
           {{Write, "teh", "teh | \"teh\" the! ten"},
            {HostSets, "", " | settings"},
            {Write, " ", "  | settings"}}},
          {"an apostrophe is part of a word",
           false,
           {{HostSets, "don'", "don' | - - -"}, {Write, "t", "don't | don't know - -"}}}},
         &ALL_OPTIONS);
}

TEST(SessionTest, FinishedWordsAreToldOnce) {
    for (const TypingOptions* options : {static_cast<const TypingOptions*>(nullptr), &ALL_OPTIONS}) {
        SessionStage stage(english(), options);
        stage.hostSets("x");  // from an absent text the letters are not kept
        stage.write("te me");
        EXPECT_EQ(stage.committed.words, std::vector<std::string>{"te"});
        stage.write("\b\n ");
        EXPECT_EQ(stage.committed.words, (std::vector<std::string>{"te", "m"}));
        stage.write("t");
        stage.tapLabel(2);
        EXPECT_EQ(stage.committed.words, (std::vector<std::string>{"te", "m", "the"}));
        EXPECT_EQ(stage.platform.userDefaults.stringForKey("stringToSend"), "");
    }
}

TEST(SessionTest, APrivateFieldLeavesNoTrace) {
    SessionStage stage(english(), &ALL_OPTIONS);
    stage.correct(true);
    stage.write("t");
    const auto countBefore = stage.platform.userDefaults.integerForKey("wordSuggestionCount");
    const auto askedBefore = stage.script->asked;
    platform::TextInputTraits traits = stage.field().traits();
    traits.isSecureTextEntry = true;
    stage.field().setTraits(traits);
    stage.hostSets("");
    EXPECT_EQ(stage.seen(), " | settings");
    stage.down(1, "t");
    EXPECT_EQ(stage.popups(), 0U);
    stage.up(1);
    stage.write("eh \b");
    EXPECT_EQ(stage.seen(), "teh | settings");
    EXPECT_EQ(stage.script->asked, askedBefore);
    EXPECT_EQ(stage.platform.userDefaults.stringForKey("stringToSend").value_or(""), "");
    EXPECT_EQ(stage.platform.userDefaults.integerForKey("wordSuggestionCount"), countBefore);
    EXPECT_EQ(stage.session().searchText(), "teh");
    EXPECT_TRUE(stage.committed.words.empty());
    EXPECT_TRUE(stage.platform.textChecker.words.empty());
}

TEST(SessionTest, SecretsAreTypedAsTheyAre) {
    SessionStage stage(english(), &ALL_OPTIONS);
    platform::TextInputTraits traits;
    traits.isSecureTextEntry = true;
    stage.field().setTraits(traits);
    stage.hostSets("x");
    stage.write("  y");
    EXPECT_EQ(stage.text(), "x  y");
}

TEST(SessionTest, AHeldBackspaceGoesOnBehindACorrectionThatItTookBack) {
    SessionStage stage(english(), &ALL_OPTIONS);
    stage.correct(true);
    stage.write("teh ");
    stage.advance(0.5);
    stage.down(1, "backspace");
    EXPECT_EQ(stage.text(), "teh");
    stage.advance(0.58);
    stage.up(1);
    EXPECT_EQ(stage.text(), "te");
    stage.platform.settle();
}

TEST(SessionTest, TapsTeachWords) {
    struct Row {
        bool corrects;
        const char* typed;
        int label;
        std::set<std::string> learned;
    };
    const Row rows[] = {
        {true, "teh", 1, {"teh"}}, {false, "te", 1, {}}, {false, "te", 2, {"ten"}}, {true, "teh", 3, {}}};
    for (const Row& row : rows) {
        SessionStage stage(english(), &ALL_OPTIONS);
        stage.correct(row.corrects);
        stage.write(row.typed);
        stage.tapLabel(row.label);
        EXPECT_EQ(stage.platform.textChecker.words, row.learned) << row.typed << row.label;
        // What was kept once is not corrected again.
        if (row.corrects) stage.write("teh");
        EXPECT_EQ(stage.session().correctionPending(), row.corrects && row.label != 1);
    }
}

TEST(SessionTest, AServiceThatDiesCostsItsWordsOnly) {
    SessionStage stage(english(), &ALL_OPTIONS);
    stage.script->dies = true;
    stage.write("te");
    EXPECT_EQ(stage.seen(), "te | - - -");
    stage.script->dies = false;
    stage.controller->changeKeyboardLanguage("ar");
    stage.controller->changeKeyboardLanguage("en");
    stage.write("h");
    EXPECT_EQ(stage.seen(), "teh | the ten tea") << "the next language's service is another one";
}

TEST(SessionTest, WithoutAServiceKeysTypeAllTheSame) {
    WordScript script = english();
    script.isMissing = true;
    SessionStage stage(std::move(script), &ALL_OPTIONS);
    stage.correct(true);
    stage.write("teh ");
    EXPECT_EQ(stage.seen(), "teh  | settings");
}

TEST(SessionTest, TheLanguageMayChangeInMidWord) {
    WordScript script = english();
    script.suggestions["teس"] = {{"سلام"}, true};
    SessionStage stage(std::move(script), &ALL_OPTIONS);
    stage.correct(true);
    stage.write("te");
    stage.controller->changeKeyboardLanguage("ar");
    stage.platform.settle();
    EXPECT_EQ(stage.seen(), "te | - - -") << "English words are no help in Arabic";
    EXPECT_EQ(stage.script->made - stage.script->dismissed, 1);
    stage.write("س");
    EXPECT_EQ(stage.seen(), "teس | \"teس\" سلام! -");
    stage.write(" ");
    EXPECT_EQ(stage.text(), "teس ");
}

TEST(SessionTest, ABacklogIsThrownAway) {
    SessionStage stage(english(), &ALL_OPTIONS);
    stage.script->asked.clear();
    for (const char* key : {"t", "e", "h", "n"}) {
        stage.touch(key);
        // Split, but not answered.
        stage.platform.globalQueue.runAll();
        stage.platform.runLoop.runDue();
    }
    stage.platform.settle();
    EXPECT_EQ(stage.script->asked, std::vector<std::string>{"/tehn"});
    EXPECT_EQ(stage.seen(), "tehn | then ten -");
    stage.write("\b\b\b\b");
    EXPECT_EQ(stage.seen(), " | settings");
}

TEST(SessionTest, ALineThatBeginsDoesNotTakeTheNextLettersWordsAway) {
    SessionStage stage(english(), &ALL_OPTIONS);
    stage.touch("return");
    stage.touch("t");
    stage.platform.settle();
    EXPECT_EQ(stage.seen(), "\nt | to the that");
}

TEST(SessionTest, AnAnswerForFewerLettersCorrectsNothing) {
    SessionStage stage(english(), &ALL_OPTIONS);
    stage.correct(true);
    stage.write("teh");
    stage.touch("x");
    stage.touch(" ");
    EXPECT_EQ(stage.text(), "tehx ");
    stage.platform.settle();
}

TEST(SessionTest, NumbersAreNotAskedAbout) {
    SessionStage stage(english(), &ALL_OPTIONS);
    stage.setTraits(platform::KeyboardType::NumberPad, platform::ReturnKeyType::Default);
    stage.hostSets("");
    stage.script->asked.clear();
    stage.write("12");
    EXPECT_TRUE(stage.script->asked.empty());
    EXPECT_EQ(stage.text(), "12");
}

TEST(SessionTest, TheKeyboardsOwnFieldTakesTheInput) {
    SessionStage stage(english(), &ALL_OPTIONS);
    stage.hostSets("outside");
    TextInputView own({0, 0, 320, 40});
    stage.controller->openKeyboard(&own);
    stage.correct(true);
    stage.write("teh ");
    EXPECT_EQ(own.text(), "teh ") << "keys type into it, and correct nothing";
    stage.write("te");
    stage.tapLabel(2);
    EXPECT_EQ(own.text(), "teh ten ");
    own.setIsPasswordProtacted(true);
    EXPECT_EQ(own.label.text(), "••••••••");
    stage.write("\bt");
    EXPECT_EQ(stage.seen(), "outside | settings");
    EXPECT_EQ(stage.text(), "outside");
    stage.controller->restoreInput();
    stage.write("x");
    EXPECT_EQ(stage.text(), "outsidex");
    {
        TextInputView gone({0, 0, 320, 40});
        stage.controller->openKeyboard(&gone);
        stage.write("y");
    }
    stage.write("z");
    EXPECT_EQ(stage.text(), "outsidex") << "its field is gone, and the host has not taken the input back";
}

TEST(SessionTest, ArabicIsSuggestedAndNeverReplacedUnasked) {
    WordScript script;
    script.suggestions = {{"سلم", {{"سلام", "سلم"}, true}}};
    Setting setting;
    setting.language = preferences::ARABIC;
    SessionStage stage(std::move(script), &ALL_OPTIONS, setting);
    stage.correct(true);
    stage.write("سلم");
    stage.write(" ");
    EXPECT_EQ(stage.text(), "سلم ");
    stage.write("سلم");
    stage.tapLabel(1);
    EXPECT_EQ(stage.text(), "سلم سلام ");
}

}  // namespace
}  // namespace vorpel::testing
