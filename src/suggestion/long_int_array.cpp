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

/// The opening brackets of the top level's members of that name, as far as arrays are their values; nothing
/// for a text with anything that is not looked into here.
std::optional<std::vector<size_t>> findArrays(std::string_view json, std::string_view name) {
    std::vector<size_t> found;
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
        const size_t open = skipSpace(json, colon + 1);
        if (!isAt(json, open, '[')) return std::nullopt;
        found.push_back(open);
    }
    return found;
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

}  // namespace

bool LongIntArray::takeFrom(std::string* json) {
    const std::optional<std::vector<size_t>> arrays = findArrays(*json, name_);
    if (!arrays || arrays->size() != 1) return false;
    const size_t open = arrays->front();
    size_t close = 0;
    std::optional<std::vector<int>> values = readInts(*json, open, &close);
    if (!values) return false;
    values_ = std::move(*values);
    for (size_t i = open + 1; i < close; ++i) {
        if ((*json)[i] != '\n') (*json)[i] = ' ';
    }
    return true;
}

}  // namespace vorpel
