// SPDX-License-Identifier: Apache-2.0
#include "compiler/dictionary_builder.h"

#include "compiler/lexicon.h"
#include "compiler/pair_steps.h"
#include "compiler/replacement_steps.h"
#include "compiler/source_opener.h"
#include "compiler/unigram_steps.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vorpel::compiler {
namespace {

/// The dictionary's words as entries, and where in the list each lexeme went.
std::vector<WordEntry> wordEntries(const Lexicon& lexicon, std::vector<int>* entryOfLexeme) {
    std::vector<WordEntry> entries;
    entryOfLexeme->assign(lexicon.size(), Lexicon::NONE);
    for (int index = 0; index < lexicon.size(); ++index) {
        const Lexicon::Lexeme& lexeme = lexicon[index];
        if (!lexeme.probability) continue;
        (*entryOfLexeme)[index] = static_cast<int>(entries.size());
        WordEntry& entry = entries.emplace_back();
        entry.word = lexeme.word;
        entry.probability = *lexeme.probability;
    }
    return entries;
}

void addPairs(const std::vector<WordPair>& pairs, const Lexicon& lexicon,
              const std::vector<int>& entryOfLexeme, std::vector<WordEntry>* entries) {
    for (const WordPair& pair : pairs) {
        (*entries)[entryOfLexeme[pair.first]].bigrams.push_back(
            {std::string(lexicon[pair.second].word), pair.strength});
    }
}

void addReplacements(ReplacementSteps::Entries replacements, const Lexicon& lexicon,
                     const std::vector<int>& entryOfLexeme, std::vector<WordEntry>* entries) {
    for (auto& [typed, replacement] : replacements) {
        if (replacement.isNotAWord) {
            entries->push_back(std::move(replacement));
        } else {
            (*entries)[entryOfLexeme[lexicon.find(typed)]].shortcuts = std::move(replacement.shortcuts);
        }
    }
}

}  // namespace

BuildResult buildDictionary(const Recipe& recipe, const std::string& sourcesFolder) {
    BuildResult result;
    BuildReport& report = result.report;
    SourceOpener opener(recipe, sourcesFolder, &report);
    const Lexicon lexicon = UnigramSteps(recipe, &opener, &report).run();
    const std::vector<WordPair> pairs = PairSteps(recipe, lexicon, &opener, &report).run();
    ReplacementSteps::Entries replacements = ReplacementSteps(recipe, lexicon, &opener, &report).run();

    std::vector<int> entryOfLexeme;
    std::vector<WordEntry> entries = wordEntries(lexicon, &entryOfLexeme);
    report.words = static_cast<int>(entries.size());
    addPairs(pairs, lexicon, entryOfLexeme, &entries);
    addReplacements(std::move(replacements), lexicon, entryOfLexeme, &entries);
    report.notWords = static_cast<int>(entries.size()) - report.words;

    std::ranges::sort(entries, {}, &WordEntry::word);
    result.model = {recipe.attributes, std::move(entries)};
    return result;
}

}  // namespace vorpel::compiler
