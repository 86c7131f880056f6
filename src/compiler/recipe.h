// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorpel::compiler {

/// A file that a recipe names, as written there, with the line that names it.
struct SourceFile {
    std::string path;
    bool isOptional = false;
    int line = 0;
};

enum class WordSourceKind { COUNTS, PROBABILITY, ARPA };

struct WordSource {
    SourceFile file;
    double weight = 1.0;
    WordSourceKind kind = WordSourceKind::COUNTS;
};

struct ArpaSource {
    SourceFile file;
    double weight = 1.0;
    double tokens = 1e6;
};

struct NgramSource {
    SourceFile file;
    double weight = 1.0;
};

enum class SeedDirection { UP, BOTH };

struct SeedSource {
    SourceFile file;
    SeedDirection direction = SeedDirection::UP;
    /// Whether its words stay even where they are more often a slip.
    bool keepsSlips = true;
};

struct PairsSeedSource {
    SourceFile file;
    int top = 245;
    int step = 7;
};

struct CorrectionsSource {
    SourceFile file;
    /// Of the typed form; without one it has that of the first word it stands for.
    std::optional<int> probability = 1;
    /// For a list made by rule: how often the form is written among the times that the word is meant. 0 for
    /// a list written by hand, which is taken as it stands.
    double share = 0.0;
};

struct ShortcutsSource {
    SourceFile file;
    int strength = 14;
    int entryProbability = 1;
};

struct CaseTwinsRule {
    double share = 0.35;
    std::optional<SourceFile> keep;
};

struct CapRule {
    double above = 0.0;
    double exponent = 1.0;
};

/// Which words are more often a slip of the finger than meant.
struct SlipsRule {
    std::string layout;
    double ratio = 1.0;
    double least = 1e-7;
};

/// From a relative frequency to the dictionary's scale of 0 to 255.
struct ScaleRule {
    double base = 255.0;
    double factor = 9.0;
    double reference = 0.5;
    /// Above it the scale is pressed together, so that certainty comes out as the maximum.
    double knee = 255.0;
    int minimum = 1;
    int maximum = 250;
};

struct PairsRule {
    double minimum = 2.0;
    int perWord = 20;
    double discount = 0.7;
    double prior = 5.0;
};

struct LimitRule {
    std::optional<int> words;
    std::optional<int> pairs;
};

/// A recipe as read: docs/formats/recipe.md tells what each part means. Plain values.
struct Recipe {
    /// The recipe's own path, for messages, and the folder that its relative paths start from.
    std::string path;
    std::string folder;

    std::vector<std::pair<std::string, std::string>> attributes;
    std::vector<WordSource> words;
    std::vector<ArpaSource> arpas;
    std::vector<SourceFile> vocabularies;
    std::vector<SourceFile> floors;
    std::vector<SeedSource> seeds;
    std::vector<SourceFile> excludes;
    std::vector<SourceFile> offensives;
    std::vector<NgramSource> ngrams;
    std::vector<PairsSeedSource> pairsSeeds;
    std::vector<CorrectionsSource> corrections;
    std::vector<ShortcutsSource> shortcuts;
    std::optional<CaseTwinsRule> caseTwins;
    std::optional<CapRule> cap;
    std::optional<SlipsRule> slips;
    ScaleRule scale;
    PairsRule pairs;
    LimitRule limit;

    /// Throws InputError, with file and line, for anything that is not a recipe.
    static Recipe parseFile(const std::string& path);
    static Recipe parseText(std::string_view text, const std::string& path);
};

}  // namespace vorpel::compiler
