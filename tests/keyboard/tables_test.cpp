// SPDX-License-Identifier: Apache-2.0
#include "keyboard/golden_file.h"
#include "keyboard/model/default_keyboard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace vorpel {
namespace {

using KeyType = Key::KeyType;
using Texts = std::optional<std::string>;

constexpr const char* TYPE_NAMES[] = {
    "Character",      "SpecialCharacter", "Shift",        "Backspace",     "ModeChange",
    "KeyboardChange", "LaunchEmoji",      "Period",       "Space",         "Return",
    "Settings",       "Return_II",        "Return_Send",  "Return_Search", "Return_Done",
    "adjust_Left",    "adjust_Right",     "dismiss_Self", "Other",
};

struct Language {
    const char* golden;
    Keyboard keyboard;
};

std::vector<Language> languages() {
    std::vector<Language> both;
    both.push_back({"latin.txt", defaultKeyboard(0, 0)});
    both.push_back({"arabic.txt", arabicKeyboard(7, 9)});
    return both;
}

/// A type with a colon, where it differs from the key before, and the cap with the page that it leads to.
std::string described(const KeyRow& row) {
    std::string line;
    std::optional<KeyType> last;
    for (const auto& key : row) {
        if (key->type != last) line += std::string(TYPE_NAMES[static_cast<int>(key->type)]) + ": ";
        last = key->type;
        if (key->uppercaseKeyCap) line += *key->uppercaseKeyCap;
        if (key->toMode) line += ">" + std::to_string(*key->toMode);
        if (key->uppercaseKeyCap) line += " ";
    }
    if (!line.empty()) line.pop_back();
    return line;
}

template <class Visit>
void forEachKey(const Keyboard& keyboard, const Visit& visit) {
    for (const Page& page : keyboard.pages) {
        for (const KeyRow& row : page.rows) {
            for (const auto& key : row) visit(*key);
        }
    }
}

TEST(Tables, AreAsWrittenDownPageByPage) {
    for (const auto& [golden, keyboard] : languages()) {
        const auto pages = testing::readGolden(golden);
        ASSERT_EQ(pages.size(), 108U);
        ASSERT_EQ(keyboard.pages.size(), 159U);
        std::size_t next = 0;
        for (std::size_t number = 0; number < keyboard.pages.size(); ++number) {
            const auto& rows = keyboard.pages[number].rows;
            if (next == pages.size() || pages[next].head != "page " + std::to_string(number)) {
                EXPECT_TRUE(rows.empty()) << golden << " page " << number;
                continue;
            }
            ASSERT_EQ(rows.size(), 4U) << golden << " page " << number;
            for (std::size_t row = 0; row < 4; ++row) {
                EXPECT_EQ(described(rows[row]), pages[next].rows[row])
                    << golden << " page " << number << " row " << row;
            }
            ++next;
        }
        EXPECT_EQ(next, pages.size()) << golden;
    }
}

// The golden files hold them too; here they cannot be smoothed away by writing the files anew.
TEST(Tables, KeepTheirIrregularPages) {
    const Keyboard latin = defaultKeyboard(0, 0);
    const Keyboard arabic = arabicKeyboard(0, 0);
    struct {
        const Keyboard& keyboard;
        int page;
        int row;
        const char* expected;
    } const cases[] = {
        {latin, 12, 0, "SpecialCharacter: [ ] { } ! % ^ ÷ + ="},
        {latin, 22, 0, "SpecialCharacter: [ ] { } # % ^ * + ="},
        {arabic, 12, 0, "SpecialCharacter: [ ] { } ! % ^ ÷ + ="},
        {latin, 3, 3, "ModeChange: 123>4 KeyboardChange: Space: space Character: @ . Return: ↲"},
        {arabic, 5, 3, "ModeChange: ABC>3 KeyboardChange: Space: الفضاء Character: @ . Return: ↲"},
        {latin, 50, 3, "ModeChange: 123>51 KeyboardChange: LaunchEmoji: Space: space Return_Send: Send"},
        {latin, 51, 3,
         "ModeChange: ABC>50 KeyboardChange: LaunchEmoji: Space: space Character: . Return_Send: Send"},
        {latin, 152, 2, "Other: @ ModeChange: 123>131 SpecialCharacter: * # ? , ' Backspace: Other: !"},
        {arabic, 152, 3,
         "Other: * ModeChange: ABC>130 KeyboardChange: LaunchEmoji: Space: الفضاء Character: . "
         "Return_Send: إرسال dismiss_Self:"},
        {arabic, 0, 2, "Character: ذ ء ؤ ر ى ة و ز ظ د Backspace:"},
        {arabic, 10, 2, "Shift: Character: ذ ء ؤ ر ى ة و ز ظ د Backspace:"},
        {arabic, 11, 2, "ModeChange: #+=>12 SpecialCharacter: * \" ' : ؛ ! ؟ Backspace:"},
        {arabic, 21, 2, "ModeChange: #+=>22 SpecialCharacter: . , ? ! ' Backspace:"},
        {arabic, 111, 2, "Other: @ ModeChange: #+=>112 SpecialCharacter: * # ? , ' Backspace: Other: !"},
    };
    for (const auto& [keyboard, page, row, expected] : cases) {
        EXPECT_EQ(described(keyboard.pages.at(page).rows.at(row)), expected) << page << " " << row;
    }
    for (const Keyboard* const keyboard : {&latin, &arabic}) {
        const auto keyCount = [&](int page) { return keyboard->pages.at(page).rows.at(3).size(); };
        for (const int page : {0, 1, 2, 50}) EXPECT_EQ(keyCount(page), 5U) << page;
        for (const int page : {51, 52, 10, 41}) EXPECT_EQ(keyCount(page), 6U) << page;
        for (const int page : {100, 101, 102, 150}) EXPECT_EQ(keyCount(page), 8U) << page;
        EXPECT_EQ(keyboard->pages.at(103).rows[3][6]->uppercaseKeyCap,
                  keyboard->pages.at(100).rows[3][6]->uppercaseKeyCap);
    }
}

/// Caps and outputs, upper case first, of a key with that upper-case cap.
std::vector<Texts> expectedTexts(const Key& key) {
    const Texts cap = key.uppercaseKeyCap;
    std::string small = cap.value_or("");
    std::ranges::transform(small, small.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; });
    switch (key.type) {
        case KeyType::Character:
        case KeyType::SpecialCharacter:
        case KeyType::Other:
            return {cap, small, cap, small};
        case KeyType::Space:
            return {cap, {}, " ", " "};
        case KeyType::adjust_Left:
        case KeyType::adjust_Right:
            return {cap, cap, {}, {}};
        case KeyType::ModeChange:
            return {cap, {}, {}, {}};
        case KeyType::Return_Search:
        case KeyType::Return_Done:
            return {{}, {}, "\n", "\n"};
        default:
            return key.isReturn() ? std::vector<Texts>{cap, {}, "\n", "\n"} : std::vector<Texts>(4);
    }
}

TEST(Tables, EachKindOfKeyShowsAndTypesWhatItsKindDoes) {
    for (const Language& language : languages()) {
        forEachKey(language.keyboard, [&](const Key& key) {
            const std::vector<Texts> texts = {key.uppercaseKeyCap, key.lowercaseKeyCap, key.uppercaseOutput,
                                              key.lowercaseOutput};
            EXPECT_EQ(texts, expectedTexts(key)) << language.golden << " " << key.keyCapForCase(true);
            EXPECT_EQ(key.toMode.has_value(), key.type == KeyType::ModeChange);
            if (key.toMode) {
                EXPECT_EQ(language.keyboard.pages.at(*key.toMode).rows.size(), 4U);
            }
        });
    }
}

TEST(Tables, NoKeyIsPlacedTwice) {
    std::set<int> identities;
    std::size_t count = 0;
    for (const Language& language : languages()) {
        forEachKey(language.keyboard, [&](const Key& key) {
            identities.insert(key.hashValue());
            ++count;
        });
    }
    EXPECT_EQ(identities.size(), count);
    EXPECT_GT(count, 6000U);
}

}  // namespace
}  // namespace vorpel
