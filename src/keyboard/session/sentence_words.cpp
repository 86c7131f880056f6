// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session/sentence_words.h"

#include "platform/characters.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace vorpel {

namespace {

constexpr std::array<std::string_view, 40> newWordTriggers = {
    " ", ".", ",", "?", "/", "!",  ";", ":", "-", "\"", "(", ")", "#", "@", "$", "+", "_", "<", ">", "&",
    "[", "]", "{", "}", "|", "\\", "*", "^", "×", "$",  "€", "¥", "=", "₹", "÷", "•", "'", "%", "~", "£"};

constexpr std::array<std::string_view, 21> NATURAL_TRIGGERS = {"\n", "\r", "\t", "،", "؛", "؟", "٪",
                                                               "“",  "”",  "„",  "«", "»", "‹", "›",
                                                               "‘",  "–",  "—",  "…", "¿", "¡", "\u00A0"};

// The first word of a sentence follows from no other.
constexpr std::array<std::string_view, 6> SENTENCE_ENDS = {".", "!", "?", "؟", "\n", "\r"};

constexpr std::string_view APOSTROPHE = "'";

struct Separator {
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// Bytes of letters in any script; the few signs among them stand beside no apostrophe.
bool isLetterByte(char byte) {
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || static_cast<signed char>(byte) < 0;
}

/// At the end of the text another letter may follow.
bool joinsLetters(std::string_view text, std::size_t at) {
    return at > 0 && isLetterByte(text[at - 1]) && (at + 1 == text.size() || isLetterByte(text[at + 1]));
}

std::size_t lastApostropheOutsideWords(std::string_view text) {
    std::size_t at = text.rfind(APOSTROPHE);
    while (at != std::string_view::npos && joinsLetters(text, at)) {
        at = text.substr(0, at).rfind(APOSTROPHE);
    }
    return at;
}

/// A picture is no letter, and a word on either side of one goes no farther.
std::optional<Separator> lastEmoji(std::string_view text) {
    std::size_t end = text.size();
    const std::vector<std::string> characters = platform::characters(text);
    for (auto character = characters.rbegin(); character != characters.rend(); ++character) {
        const std::size_t begin = end - character->size();
        if (platform::isEmoji(*character)) return Separator{begin, end};
        end = begin;
    }
    return std::nullopt;
}

std::optional<Separator> lastSeparator(std::string_view text, WordSplitting splitting) {
    std::optional<Separator> last;
    const auto take = [&last](std::size_t at, std::string_view trigger) {
        if (at != std::string_view::npos && (!last || at > last->begin)) last = {at, at + trigger.size()};
    };
    const bool isNatural = splitting == WordSplitting::Natural;
    for (const std::string_view trigger : newWordTriggers) {
        const bool mayJoin = isNatural && trigger == APOSTROPHE;
        take(mayJoin ? lastApostropheOutsideWords(text) : text.rfind(trigger), trigger);
    }
    if (!isNatural) return last;
    for (const std::string_view trigger : NATURAL_TRIGGERS) take(text.rfind(trigger), trigger);
    const std::size_t wordBegin = last ? last->end : 0;
    if (const auto emoji = lastEmoji(text.substr(wordBegin))) {
        last = {wordBegin + emoji->begin, wordBegin + emoji->end};
    }
    return last;
}

}  // namespace

std::string getTheCurrentWordFromSentence(std::string_view sentence, WordSplitting splitting) {
    const auto separator = lastSeparator(sentence, splitting);
    return std::string(separator ? sentence.substr(separator->end) : sentence);
}

SentenceWords getTheCurrentAndPrevWordFromSentence(std::string_view sentence, WordSplitting splitting) {
    auto separator = lastSeparator(sentence, splitting);
    if (!separator) return {std::string(sentence), ""};
    const bool isNatural = splitting == WordSplitting::Natural;
    SentenceWords words{std::string(sentence.substr(separator->end)), ""};
    do {
        const std::string_view sign = sentence.substr(separator->begin, separator->end - separator->begin);
        if (isNatural && std::ranges::find(SENTENCE_ENDS, sign) != SENTENCE_ENDS.end()) break;
        sentence = sentence.substr(0, separator->begin);
        separator = lastSeparator(sentence, splitting);
        words.previous = sentence.substr(separator ? separator->end : 0);
    } while (isNatural && separator && words.previous.empty());
    return words;
}

}  // namespace vorpel
