// SPDX-License-Identifier: Apache-2.0
#include "keyboard/model/key.h"
#include "keyboard/model/keyboard.h"
#include "keyboard/model/shift_state.h"

#include <gtest/gtest.h>

namespace vorpel {
namespace {

using KeyType = Key::KeyType;

TEST(ModelKey, ALetterFillsCapsAndOutputsOfBothCases) {
    struct {
        const char* letter;
        const char* lower;
        const char* upper;
    } const cases[] = {
        {"q", "q", "Q"}, {"Q", "q", "Q"}, {".com", ".com", ".com"}, {".COM", ".com", ".COM"}, {"é", "é", "É"},
        {"Σ", "σ", "Σ"}, {"ض", "ض", "ض"}, {"٣", "٣", "٣"},          {"i", "i", "I"},          {"7", "7", "7"},
        {"₹", "₹", "₹"}, {"", "", ""},    {".net", ".net", ".NET"},
    };
    for (const auto& [letter, lower, upper] : cases) {
        Key key(KeyType::Character);
        key.setLetter(letter);
        EXPECT_EQ(key.lowercaseOutput, lower) << letter;
        EXPECT_EQ(key.lowercaseKeyCap, lower) << letter;
        EXPECT_EQ(key.uppercaseOutput, upper) << letter;
        EXPECT_EQ(key.uppercaseKeyCap, upper) << letter;
    }
}

TEST(ModelKey, TheOtherCaseStandsInForAMissingOne) {
    for (const bool hasUpper : {false, true}) {
        for (const bool hasLower : {false, true}) {
            const std::string asUpper = hasUpper ? "U" : hasLower ? "l" : "";
            const std::string asLower = hasLower ? "l" : hasUpper ? "U" : "";
            Key typing(KeyType::Character);
            Key shown(KeyType::ModeChange);
            if (hasUpper) typing.uppercaseOutput = shown.uppercaseKeyCap = "U";
            if (hasLower) typing.lowercaseOutput = shown.lowercaseKeyCap = "l";
            EXPECT_EQ(typing.outputForCase(true), asUpper);
            EXPECT_EQ(typing.outputForCase(false), asLower);
            EXPECT_EQ(typing.keyCapForCase(true) + typing.keyCapForCase(false), "");
            EXPECT_EQ(typing.hasOutput(), hasUpper || hasLower);
            EXPECT_EQ(shown.keyCapForCase(true), asUpper);
            EXPECT_EQ(shown.keyCapForCase(false), asLower);
            EXPECT_FALSE(shown.hasOutput());
        }
    }
}

TEST(ModelKey, EveryTypeHasItsNumberAndItsClasses) {
    // c: a character, s: special, p: the space key, l: of the wide set.
    struct {
        KeyType type;
        int number;
        const char* classes;
    } const cases[] = {
        {KeyType::Character, 0, "c"},     {KeyType::SpecialCharacter, 1, "c"},
        {KeyType::Shift, 2, "s"},         {KeyType::Backspace, 3, "s"},
        {KeyType::ModeChange, 4, "s"},    {KeyType::KeyboardChange, 5, "s"},
        {KeyType::LaunchEmoji, 6, "s"},   {KeyType::Period, 7, "c"},
        {KeyType::Space, 8, "p"},         {KeyType::Return, 9, "s"},
        {KeyType::Settings, 10, "s"},     {KeyType::Return_II, 11, "s"},
        {KeyType::Return_Send, 12, "s"},  {KeyType::Return_Search, 13, "s"},
        {KeyType::Return_Done, 14, "s"},  {KeyType::adjust_Left, 15, "l"},
        {KeyType::adjust_Right, 16, "l"}, {KeyType::dismiss_Self, 17, "l"},
        {KeyType::Other, 18, "l"},
    };
    for (const auto& [type, number, classes] : cases) {
        const Key key(type);
        std::string found;
        if (key.isCharacter()) found += 'c';
        if (key.isSpecial()) found += 's';
        if (key.isSpace()) found += 'p';
        if (key.isLandscapeSpecific()) found += 'l';
        EXPECT_EQ(static_cast<int>(type), number);
        EXPECT_EQ(found, classes) << number;
    }
}

TEST(ModelKey, ACopyHasTheTextsAndAnIdentityOfItsOwn) {
    Key key(KeyType::ModeChange);
    key.setLetter("a");
    key.toMode = 7;
    const Key copy(key);
    EXPECT_FALSE(copy == key);
    EXPECT_EQ(copy.hashValue(), key.hashValue() + 1);
    EXPECT_EQ(copy.type, key.type);
    EXPECT_EQ(copy.uppercaseKeyCap, "A");
    EXPECT_EQ(copy.lowercaseKeyCap, "a");
    EXPECT_EQ(copy.uppercaseOutput, "A");
    EXPECT_EQ(copy.lowercaseOutput, "a");
    EXPECT_EQ(copy.toMode, 7);
    const Key& same = key;
    EXPECT_TRUE(same == key);
}

TEST(ModelKeyboard, RowsAndPagesThatAreMissingComeToBe) {
    Keyboard keyboard;
    const auto add = [&](std::size_t row, std::size_t page) {
        auto key = std::make_unique<Key>(KeyType::Space);
        const Key* const placed = key.get();
        keyboard.addKey(std::move(key), row, page);
        return placed;
    };
    const Key* const third = add(3, 2);
    ASSERT_EQ(keyboard.pages.size(), 3U);
    EXPECT_TRUE(keyboard.pages[0].rows.empty() && keyboard.pages[1].rows.empty());
    ASSERT_EQ(keyboard.pages[2].rows.size(), 4U);
    for (std::size_t row = 0; row < 3; ++row) EXPECT_TRUE(keyboard.pages[2].rows[row].empty());

    const Key* const first = add(0, 0);
    const Key* const second = add(0, 0);
    ASSERT_EQ(keyboard.pages.size(), 3U);
    ASSERT_EQ(keyboard.pages[0].rows.size(), 1U);
    EXPECT_EQ(keyboard.pages[0].rows[0].front().get(), first);
    EXPECT_EQ(keyboard.pages[0].rows[0].back().get(), second);
    ASSERT_EQ(keyboard.pages[2].rows[3].size(), 1U);
    EXPECT_EQ(keyboard.pages[2].rows[3][0].get(), third);
}

TEST(ModelShiftState, CapitalsAreOnUnlessDisabled) {
    EXPECT_FALSE(uppercase(ShiftState::Disabled));
    EXPECT_TRUE(uppercase(ShiftState::Enabled));
    EXPECT_TRUE(uppercase(ShiftState::Locked));
}

}  // namespace
}  // namespace vorpel
