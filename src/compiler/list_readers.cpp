// SPDX-License-Identifier: Apache-2.0
#include "compiler/list_readers.h"

#include "compiler/word_text.h"

#include <cmath>
#include <string>

namespace vorpel::compiler {
namespace {

std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

void requireWord(const ListFile& file, std::string_view word) {
    const std::string_view fault = faultOfWord(word);
    if (!fault.empty()) throw file.error(quoted(word) + " " + std::string(fault));
}

bool isUsableWord(std::string_view word) {
    return faultOfWord(word).empty();
}

std::string_view firstField(std::string_view line) {
    return trimmed(line.substr(0, line.find('\t')));
}

std::vector<std::string_view> fields(const ListFile& file, std::string_view line, size_t count,
                                     const char* form) {
    std::vector<std::string_view> parts = splitAt(line, '\t');
    if (parts.size() != count) throw file.error(std::string("the line is not ") + form);
    return parts;
}

double requireCount(const ListFile& file, std::string_view text) {
    // More than was ever written; sums of more could leave the range of numbers.
    constexpr double GREATEST_COUNT = 1e15;
    double count = 0.0;
    if (!parseNumber(trimmed(text), &count) || count < 0.0 || count > GREATEST_COUNT) {
        throw file.error(quoted(text) + " is not a count");
    }
    return count;
}

double requireProbability(const ListFile& file, std::string_view text) {
    double probability = 0.0;
    if (!parseNumber(trimmed(text), &probability) || probability <= 0.0 || probability > 1.0) {
        throw file.error(quoted(text) + " is not a probability above 0 and up to 1");
    }
    return probability;
}

/// The entries that stand for no word of the text.
bool isArpaMark(std::string_view word) {
    return word == "<s>" || word == "</s>" || word == "<unk>" || word == "<UNK>";
}

int arpaOrder(const ListFile& file, std::string_view header) {
    int order = 0;
    if (!header.ends_with("-grams:") || !parseNumber(header.substr(1, header.size() - 8), &order)) {
        throw file.error(quoted(header) + " is not a section of an ARPA model");
    }
    return order;
}

/// An entry is its logarithm, as many words as the order says, and perhaps a back-off weight.
int readArpaEntry(const ListFile& file, std::string_view line, int order, const ArpaVisitor& visitor) {
    const std::vector<std::string_view> parts = splitAtBlanks(line);
    const size_t words = static_cast<size_t>(order);
    double logarithm = 0.0;
    if (parts.size() < words + 1 || parts.size() > words + 2 || !parseNumber(parts[0], &logarithm) ||
        logarithm > 0.0) {
        throw file.error("the line is not an entry of " + std::to_string(order) + "-grams");
    }
    for (size_t i = 1; i <= words; ++i) {
        if (isArpaMark(parts[i])) return 0;
        if (!isUsableWord(parts[i])) return 1;
    }
    const double probability = std::pow(10.0, logarithm);
    if (order == 1 && visitor.unigram) visitor.unigram(parts[1], probability);
    if (order == 2 && visitor.bigram) visitor.bigram(parts[1], parts[2], probability);
    return 0;
}

double requireTier(const ListFile& file, std::string_view line) {
    const std::vector<std::string_view> parts = splitAtBlanks(line.substr(1, line.size() - 2));
    if (!line.ends_with(']') || parts.size() != 2 || parts[0] != "tier") {
        throw file.error("the line is not [tier PROBABILITY]");
    }
    return requireProbability(file, parts[1]);
}

}  // namespace

int readWordCounts(ListFile& file, const std::function<void(std::string_view, double)>& visit) {
    int unusable = 0;
    for (std::string_view line; file.next(&line);) {
        const auto parts = fields(file, line, 2, "word<TAB>count");
        const double count = requireCount(file, parts[1]);
        if (isUsableWord(parts[0])) {
            visit(parts[0], count);
        } else {
            ++unusable;
        }
    }
    return unusable;
}

int readPairCounts(ListFile& file,
                   const std::function<void(std::string_view, std::string_view, double)>& visit) {
    int unusable = 0;
    for (std::string_view line; file.next(&line);) {
        const auto parts = fields(file, line, 3, "first<TAB>second<TAB>count");
        const double count = requireCount(file, parts[2]);
        if (isUsableWord(parts[0]) && isUsableWord(parts[1])) {
            visit(parts[0], parts[1], count);
        } else {
            ++unusable;
        }
    }
    return unusable;
}

int readArpa(ListFile& file, const ArpaVisitor& visitor) {
    // Before \data\ a model may hold anything; its counts are not needed.
    static constexpr int BEFORE_ENTRIES = 0;
    int order = BEFORE_ENTRIES;
    int unusable = 0;
    bool hasData = false;
    for (std::string_view line; file.next(&line);) {
        line = trimmed(line);
        if (line == "\\data\\") {
            hasData = true;
        } else if (line == "\\end\\") {
            return unusable;
        } else if (hasData && line.starts_with('\\')) {
            order = arpaOrder(file, line);
        } else if (order == 1 || order == 2) {
            unusable += readArpaEntry(file, line, order, visitor);
        }
    }
    throw file.error(hasData ? "the ARPA model ends without \\end\\" : "no ARPA model: \\data\\ is missing");
}

int readVocabulary(ListFile& file, const std::function<void(std::string_view)>& visit) {
    int unusable = 0;
    for (std::string_view line; file.next(&line);) {
        const std::string_view word = firstField(line);
        if (isUsableWord(word)) {
            visit(word);
        } else {
            ++unusable;
        }
    }
    return unusable;
}

void readWordList(ListFile& file, const std::function<void(std::string_view)>& visit) {
    for (std::string_view line; file.next(&line);) {
        const std::string_view word = firstField(line);
        requireWord(file, word);
        visit(word);
    }
}

int readFloors(ListFile& file, const std::function<void(std::string_view, double)>& visit) {
    int unusable = 0;
    for (std::string_view line; file.next(&line);) {
        const auto parts = fields(file, line, 2, "word<TAB>probability");
        const double probability = requireProbability(file, parts[1]);
        if (isUsableWord(parts[0])) {
            visit(parts[0], probability);
        } else {
            ++unusable;
        }
    }
    return unusable;
}

void readSeed(ListFile& file, const std::function<void(std::string_view, double)>& visit) {
    double tier = 0.0;
    for (std::string_view line; file.next(&line);) {
        line = trimmed(line);
        if (line.starts_with('[')) {
            tier = requireTier(file, line);
            continue;
        }
        if (tier == 0.0) throw file.error("words before the first [tier PROBABILITY]");
        for (const std::string_view word : splitAtBlanks(line)) {
            requireWord(file, word);
            visit(word, tier);
        }
    }
}

void readPairsSeed(ListFile& file, const std::function<void(const std::vector<std::string_view>&)>& visit) {
    for (std::string_view line; file.next(&line);) {
        const std::vector<std::string_view> words = splitAtBlanks(line);
        if (words.size() < 2) throw file.error(quoted(words[0]) + " has no word that follows it");
        for (const std::string_view word : words) requireWord(file, word);
        visit(words);
    }
}

void readReplacements(
    ListFile& file,
    const std::function<void(std::string_view, const std::vector<std::string_view>&)>& visit) {
    for (std::string_view line; file.next(&line);) {
        std::vector<std::string_view> parts = splitAt(line, '\t');
        if (parts.size() < 2) throw file.error("the line is not typed<TAB>intended");
        const std::string_view typed = parts[0];
        requireWord(file, typed);
        parts.erase(parts.begin());
        for (const std::string_view target : parts) {
            const std::string_view fault = faultOfShortcutTarget(target);
            if (!fault.empty()) throw file.error(quoted(target) + " " + std::string(fault));
            if (target == typed) throw file.error(quoted(typed) + " is replaced by itself");
        }
        visit(typed, parts);
    }
}

}  // namespace vorpel::compiler
