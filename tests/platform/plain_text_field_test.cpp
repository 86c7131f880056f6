// SPDX-License-Identifier: Apache-2.0
#include "platform/plain_text_field.h"

#include "platform/characters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <iterator>
#include <numeric>
#include <random>

namespace vorpel::platform {
namespace {

/// The same field as a list of characters, split anew after each change.
struct ListField {
    std::vector<std::string> list;
    std::size_t cursor = 0;

    [[nodiscard]] std::string joined(std::size_t from, std::size_t to) const {
        const auto at = [this](std::size_t index) {
            return list.begin() + static_cast<std::ptrdiff_t>(index);
        };
        return std::accumulate(at(from), at(to), std::string());
    }
    [[nodiscard]] std::string before() const { return joined(0, cursor); }
    [[nodiscard]] std::string after() const { return joined(cursor, list.size()); }
    void set(const std::string& before, const std::string& after) {
        list = characters(before + after);
        cursor = 0;
        for (std::size_t size = 0; size < before.size(); ++cursor) size += list[cursor].size();
    }
    void moveTo(std::int64_t position) {
        cursor = std::clamp<std::int64_t>(position, 0, static_cast<std::int64_t>(list.size()));
    }
};

void changeBoth(PlainTextField& field, ListField& model, std::mt19937& random) {
    static const std::vector<std::string> PARTS = {"a", "word ", "\r", "\n",   "\u0301",   "\u200d", "👨",
                                                   "🇩", "مَّ",     "ش",  "\xff", "\xe2\x82", ""};
    static constexpr int OFFSETS[] = {INT_MIN, -4, -3, -2, -1, 0, 1, 2, 3, 4, INT_MAX};
    const std::string& part = PARTS[random() % PARTS.size()];
    const int offset = OFFSETS[random() % std::size(OFFSETS)];
    const unsigned position = random() % 20;
    switch (random() % 6) {
        case 0:
            field.deleteBackward();
            if (model.cursor > 0) model.set(model.joined(0, model.cursor - 1), model.after());
            break;
        case 1:
            field.adjustTextPositionByCharacterOffset(offset);
            model.moveTo(static_cast<std::int64_t>(model.cursor) + offset);
            break;
        case 2:
            field.setCursor(position);
            model.moveTo(position);
            break;
        default:
            field.insertText(part);
            model.set(model.before() + part, model.after());
    }
}

TEST(PlainTextField, BehavesLikeAListOfCharacters) {
    for (unsigned seed = 0; seed < 40; ++seed) {
        std::mt19937 random(seed);
        PlainTextField field;
        ListField model;
        for (int step = 0; step < 150; ++step) {
            changeBoth(field, model, random);
            ASSERT_EQ(field.text(), model.before() + model.after());
            ASSERT_EQ(field.cursor(), model.cursor);
            ASSERT_EQ(field.documentContextBeforeInput().value_or(""), model.before());
            ASSERT_EQ(field.documentContextAfterInput().value_or(""), model.after());
            ASSERT_EQ(field.documentContextAfterInput().has_value(), !model.after().empty());
        }
    }
}

}  // namespace
}  // namespace vorpel::platform
