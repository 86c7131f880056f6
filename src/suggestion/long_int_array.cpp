// SPDX-License-Identifier: Apache-2.0
#include "suggestion/long_int_array.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

namespace vorpel {

namespace {

constexpr std::string_view JSON_SPACE = " \t\n\r";

/// The place of the next character that is no space; the size if there is none.
size_t skipSpace(std::string_view json, size_t from) {
    return std::min(json.find_first_not_of(JSON_SPACE, from), json.size());
}

bool isAt(std::string_view json, size_t place, char expected) {
    return place < json.size() && json[place] == expected;
}

/// The integers between an opening bracket and the closing one, whose place is stored.
std::optional<std::vector<int>> readInts(std::string_view json, size_t open, size_t* close) {
    std::vector<int> values;
    size_t place = skipSpace(json, open + 1);
    while (place < json.size()) {
        int value = 0;
        const auto [end, error] = std::from_chars(json.data() + place, json.data() + json.size(), value);
        if (error != std::errc()) return std::nullopt;
        const auto digits = static_cast<size_t>(end - json.data());
        // JSON has no numbers like 007.
        const size_t first = place + (json[place] == '-' ? 1 : 0);
        if (json[first] == '0' && digits - first > 1) return std::nullopt;
        values.push_back(value);
        place = skipSpace(json, digits);
        if (isAt(json, place, ']')) {
            *close = place;
            return values;
        }
        if (!isAt(json, place, ',')) return std::nullopt;
        place = skipSpace(json, place + 1);
    }
    return std::nullopt;
}

/// An array of plain integers in a text, and where it stands.
struct FoundArray {
    std::vector<int> values;
    size_t open = 0;
    size_t close = 0;
};

/// The top level's member of that name; nothing if there is none or several, if it is no array of plain
/// integers, or for a text with anything that is not looked into here.
std::optional<FoundArray> findArray(std::string_view json, std::string_view name) {
    std::optional<FoundArray> found;
    int depth = 0;
    for (size_t i = 0; i < json.size(); ++i) {
        const char letter = json[i];
        // Comments and escaped letters.
        if (letter == '/' || letter == '\\') return std::nullopt;
        if (letter == '{' || letter == '[') ++depth;
        if (letter == '}' || letter == ']') --depth;
        if (letter != '"') continue;
        const size_t end = json.find_first_of("\"\\", i + 1);
        if (!isAt(json, end, '"')) return std::nullopt;
        const bool isNamed = json.substr(i + 1, end - i - 1) == name;
        i = end;
        const size_t colon = skipSpace(json, i + 1);
        if (depth != 1 || !isNamed || !isAt(json, colon, ':')) continue;
        FoundArray array;
        array.open = skipSpace(json, colon + 1);
        if (found || !isAt(json, array.open, '[')) return std::nullopt;
        std::optional<std::vector<int>> values = readInts(json, array.open, &array.close);
        if (!values) return std::nullopt;
        array.values = std::move(*values);
        i = array.close;
        found = std::move(array);
    }
    return found;
}

}  // namespace

bool LongIntArray::takeFrom(std::string* json) {
    std::optional<FoundArray> array = findArray(*json, name_);
    if (!array) return false;
    values_ = std::move(array->values);
    for (size_t i = array->open + 1; i < array->close; ++i) {
        if ((*json)[i] != '\n') (*json)[i] = ' ';
    }
    return true;
}

}  // namespace vorpel
