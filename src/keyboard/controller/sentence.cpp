// SPDX-License-Identifier: Apache-2.0
#include "keyboard/controller/sentence.h"

#include "platform/characters.h"

#include <algorithm>

namespace vorpel {

namespace {

// A full stop and two blanks are all that is looked back on.
constexpr std::size_t LOOK_BACK = 3;

}  // namespace

bool characterIsPunctuation(std::string_view character) {
    return character == "." || character == "!" || character == "?";
}

bool characterIsNewline(std::string_view character) {
    return character == "\n" || character == "\r" || character == "\r\n";
}

bool characterIsWhitespace(std::string_view character) {
    return character == " " || character == "\t" || characterIsNewline(character);
}

bool stringIsWhitespace(const std::optional<std::string>& string) {
    return !string || std::ranges::all_of(platform::characters(*string), characterIsWhitespace);
}

std::vector<std::string> lastCharacters(std::string_view text, std::size_t most) {
    std::vector<std::string> characters;
    while (characters.size() < most && !text.empty()) {
        characters.push_back(platform::lastCharacter(text));
        text.remove_suffix(characters.back().size());
    }
    return characters;
}

bool beginsSentence(const std::optional<std::string>& before) {
    if (!before) return true;
    bool isLast = true;
    for (const std::string& character : lastCharacters(*before, LOOK_BACK)) {
        // Right behind a full stop the next letter belongs to it, as in a number or an address.
        if (characterIsPunctuation(character)) return !isLast;
        if (!characterIsWhitespace(character)) return false;
        if (characterIsNewline(character)) return true;
        isLast = false;
    }
    return true;
}

bool beginsWord(const std::optional<std::string>& before) {
    return !before || before->empty() || characterIsWhitespace(platform::lastCharacter(*before));
}

bool mayBecomePeriod(const std::optional<std::string>& before) {
    if (!before) return false;
    const std::vector<std::string> last = lastCharacters(*before, LOOK_BACK);
    if (last.size() < LOOK_BACK || last[0] != " " || last[1] != " ") return false;
    const std::string& word = last[2];
    return !characterIsWhitespace(word) && !characterIsPunctuation(word) && word != ",";
}

}  // namespace vorpel
