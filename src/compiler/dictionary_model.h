// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace vorpel::compiler {

/// The strength that marks a shortcut as a whitelist target: it replaces what was typed.
inline constexpr int WHITELIST_SHORTCUT_STRENGTH = 15;

/// What may be offered for a word in its place. The target is UTF-8, up to 48 code points, and may hold
/// spaces; the strength is 0 to 15.
struct ShortcutEntry {
    std::string target = {};
    int strength = 0;

    bool operator==(const ShortcutEntry&) const = default;
};

/// A word that may follow another; the target is a word of the same model, the strength 0 to 15.
struct BigramEntry {
    std::string target = {};
    int strength = 0;

    bool operator==(const BigramEntry&) const = default;
};

/// One word: UTF-8, 1 to 48 code points, no space; probability 0 to 255.
struct WordEntry {
    std::string word = {};
    int probability = 0;
    bool isNotAWord = false;
    bool isBlacklisted = false;
    std::vector<ShortcutEntry> shortcuts = {};
    std::vector<BigramEntry> bigrams = {};

    bool operator==(const WordEntry&) const = default;
};

/// A dictionary in memory, as it is handed to a writer. Plain values; owns everything.
struct DictionaryModel {
    /// Header attributes in the order in which they are written.
    std::vector<std::pair<std::string, std::string>> attributes;
    /// In any order, each word once.
    std::vector<WordEntry> words;
};

}  // namespace vorpel::compiler
