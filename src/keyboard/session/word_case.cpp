// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session/word_case.h"

#include "platform/characters.h"

#include <cstddef>

namespace vorpel {

namespace {

std::size_t firstCharacterEnd(const std::string& word) {
    return word.empty() ? 0 : platform::characterBoundaryFrom(word, 1);
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
    const bool isShout = literal.allCaps && hasCase && platform::characterCount(word) > 1;
    return {isShout, literal.firstCap && hasCase};
}

}  // namespace vorpel
