// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/list_file.h"

#include <functional>
#include <string_view>
#include <vector>

namespace vorpel::compiler {

// Readers of the files that a recipe names; docs/formats/recipe.md tells their forms. All throw InputError
// with file and line. Views handed to a callback live until it returns.

/// Calls back with every usable line of "word<TAB>count"; returns how many lines had no usable word.
int readWordCounts(ListFile& file, const std::function<void(std::string_view word, double count)>& visit);

/// The same for "first<TAB>second<TAB>count".
int readPairCounts(
    ListFile& file,
    const std::function<void(std::string_view first, std::string_view second, double count)>& visit);

/// What an ARPA model is read into; probabilities, not their logarithms.
struct ArpaVisitor {
    std::function<void(std::string_view word, double probability)> unigram;
    std::function<void(std::string_view first, std::string_view second, double probability)> bigram;
};

/// Unigrams come before bigrams. Returns how many entries had no usable word, sentence marks not counted.
int readArpa(ListFile& file, const ArpaVisitor& visitor);

/// One word a line; what stands behind a tab is ignored. Returns how many lines had no usable word.
int readVocabulary(ListFile& file, const std::function<void(std::string_view word)>& visit);

/// The same for lists written by hand, in which such a line is an error.
void readWordList(ListFile& file, const std::function<void(std::string_view word)>& visit);

/// Lines "word<TAB>probability". Returns how many had no usable word.
int readFloors(ListFile& file, const std::function<void(std::string_view word, double probability)>& visit);

/// Lines "[tier PROBABILITY]", each followed by lines of words.
void readSeed(ListFile& file, const std::function<void(std::string_view word, double tier)>& visit);

/// Lines of a word and those that follow it, between blanks.
void readPairsSeed(ListFile& file,
                   const std::function<void(const std::vector<std::string_view>& words)>& visit);

/// Lines "typed<TAB>intended[<TAB>intended...]".
void readReplacements(
    ListFile& file,
    const std::function<void(std::string_view typed, const std::vector<std::string_view>& targets)>& visit);

}  // namespace vorpel::compiler
