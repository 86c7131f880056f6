// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session/word_case.h"

#include "platform/characters.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace vorpel {

namespace {

std::size_t firstCharacterEnd(const std::string& word) {
    return word.empty() ? 0 : platform::characterBoundaryFrom(word, 1);
}

std::ptrdiff_t lettersWithCase(const std::string& word) {
    const std::vector<std::string> characters = platform::characters(word);
    return std::ranges::count_if(characters, [](const std::string& character) {
        return platform::lowercased(character) != platform::uppercased(character);
    });
}

}  // namespace

std::string WordCase::applyTo(const std::string& suggestion) const {
    if (allCaps) return platform::uppercased(suggestion);
    if (!firstCap) return suggestion;
    const std::size_t end = firstCharacterEnd(suggestion);
    return platform::uppercased(suggestion.substr(0, end)) + suggestion.substr(end);
}

WordCase caseOf(const std::string& word) {
    const std::string first = word.substr(0, firstCharacterEnd(word));
    return {word == platform::uppercased(word), !first.empty() && first == platform::uppercased(first)};
}

WordCase naturalCaseOf(const std::string& word) {
    const bool hasCase = platform::lowercased(word) != platform::uppercased(word);
    const WordCase literal = caseOf(word);
    return {literal.allCaps && lettersWithCase(word) > 1, literal.firstCap && hasCase};
}

}  // namespace vorpel
