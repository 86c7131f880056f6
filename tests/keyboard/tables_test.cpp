// SPDX-License-Identifier: Apache-2.0
#include "keyboard/golden_file.h"
#include "keyboard/model/default_keyboard.h"

#include <gtest/gtest.h>

#include <algorithm>

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

void expectAsItsKind(const Key& key, const Keyboard& keyboard) {
    const std::vector<Texts> texts = {key.uppercaseKeyCap, key.lowercaseKeyCap, key.uppercaseOutput,
                                      key.lowercaseOutput};
    EXPECT_EQ(texts, expectedTexts(key)) << key.keyCapForCase(true);
    EXPECT_EQ(key.toMode.has_value(), key.type == KeyType::ModeChange);
    if (key.toMode) {
        EXPECT_EQ(keyboard.pages.at(*key.toMode).rows.size(), 4U);
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
                for (const auto& key : rows[row]) expectAsItsKind(*key, keyboard);
            }
            ++next;
        }
        EXPECT_EQ(next, pages.size()) << golden;
    }
}

}  // namespace
}  // namespace vorpel
