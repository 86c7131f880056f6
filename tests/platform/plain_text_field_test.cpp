// SPDX-License-Identifier: Apache-2.0
#include "platform/plain_text_field.h"

#include "platform/characters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

namespace vorpel::platform {
namespace {

/// The same field as a list of characters, split anew after each change.
class ListField {
public:
    void insert(const std::string& text) { rejoin(before() + text, after()); }
    void deleteBackward() {
        if (cursor == 0) return;
        list.erase(list.begin() + static_cast<std::ptrdiff_t>(--cursor));
        rejoin(before(), after());
    }
    void adjust(int offset) {
        const auto size = static_cast<int>(list.size());
        cursor = static_cast<std::size_t>(std::clamp(static_cast<int>(cursor) + offset, 0, size));
    }
    [[nodiscard]] std::string before() const { return joined(0, cursor); }
    [[nodiscard]] std::string after() const { return joined(cursor, list.size()); }

    std::vector<std::string> list;
    std::size_t cursor = 0;

private:
    [[nodiscard]] std::string joined(std::size_t from, std::size_t to) const {
        std::string text;
        for (std::size_t at = from; at < to; ++at) text += list[at];
        return text;
    }
    void rejoin(const std::string& before, const std::string& after) {
        list = characters(before + after);
        cursor = 0;
        for (std::size_t size = 0; size < before.size(); ++cursor) size += list[cursor].size();
    }
};

void changeBoth(PlainTextField& field, ListField& model, std::mt19937& random) {
    static const std::vector<std::string> PARTS = {"a", "word ", "\r", "\n",   "\u0301",   "\u200d", "👨",
                                                   "🇩", "مَّ",     "ش",  "\xff", "\xe2\x82", ""};
    const auto offset = static_cast<int>(random() % 9) - 4;
    switch (random() % 6) {
        case 0:
        case 1:
        case 2: {
            const std::string& part = PARTS[random() % PARTS.size()];
            field.insertText(part);
            model.insert(part);
            break;
        }
        case 3:
            field.deleteBackward();
            model.deleteBackward();
            break;
        case 4:
            field.adjustTextPositionByCharacterOffset(offset);
            model.adjust(offset);
            break;
        default:
            model.cursor = random() % (model.list.size() + 1);
            field.setCursor(model.cursor);
    }
}

TEST(PlainTextField, BehavesLikeAListOfCharacters) {
    const auto orNothing = [](const std::string& text) {
        return text.empty() ? std::nullopt : std::optional(text);
    };
    for (unsigned seed = 0; seed < 40; ++seed) {
        std::mt19937 random(seed);
        PlainTextField field;
        ListField model;
        for (int step = 0; step < 150; ++step) {
            changeBoth(field, model, random);
            ASSERT_EQ(field.text(), model.before() + model.after());
            ASSERT_EQ(field.cursor(), model.cursor);
            ASSERT_EQ(field.documentContextBeforeInput(), orNothing(model.before()));
            ASSERT_EQ(field.documentContextAfterInput(), orNothing(model.after()));
            ASSERT_EQ(field.hasText(), !model.list.empty());
        }
    }
}

TEST(PlainTextField, OneStepDeletesOneWholeCharacter) {
    PlainTextField field;
    field.setText("a👨‍👩‍👧\r\nمَّ");
    std::vector<std::string> left;
    while (field.hasText()) {
        field.deleteBackward();
        left.push_back(field.text());
    }
    EXPECT_EQ(left, (std::vector<std::string>{"a👨‍👩‍👧\r\n", "a👨‍👩‍👧", "a", ""}));
    field.deleteBackward();
    EXPECT_EQ(field.cursor(), 0U);
}

TEST(PlainTextField, TheCursorStaysWithinTheText) {
    PlainTextField field;
    field.setText("añb");
    EXPECT_EQ(field.cursor(), 3U);
    field.adjustTextPositionByCharacterOffset(-2);
    EXPECT_EQ(field.documentContextAfterInput(), "ñb");
    field.adjustTextPositionByCharacterOffset(std::numeric_limits<int>::min());
    EXPECT_EQ(field.cursor(), 0U);
    field.adjustTextPositionByCharacterOffset(std::numeric_limits<int>::max());
    EXPECT_EQ(field.cursor(), 3U);
    field.setCursor(99);
    EXPECT_EQ(field.cursor(), 3U);
}

}  // namespace
}  // namespace vorpel::platform
