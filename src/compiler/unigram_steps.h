// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/build_report.h"
#include "compiler/lexicon.h"
#include "compiler/recipe.h"
#include "compiler/source_opener.h"

namespace vorpel::compiler {

/// The steps that settle which words a dictionary has and how probable each is, in the order of
/// docs/formats/recipe.md. Refers to its arguments, which must outlive it.
class UnigramSteps {
public:
    UnigramSteps(const Recipe& recipe, SourceOpener* opener, BuildReport* report)
        : recipe_(recipe), opener_(opener), report_(report) {}

    /// Words that are in the dictionary have a probability afterwards.
    [[nodiscard]] Lexicon run();

private:
    void readVocabularies();
    void readFloorsAndSeeds();
    void readSeedFile(const SeedSource& source);
    void readExcludes();
    void mixSources();
    double readWordSource(const WordSource& source);
    double readArpaSource(const SourceFile& file, double weight);
    double readCountedSource(const WordSource& source);
    void addFrequency(std::string_view word, double frequency);
    void dropCaseTwins();
    bool keepsCapital(const Lexicon::Lexeme& capital, const Lexicon::Lexeme& small) const;
    void pullSeeds();
    void capUnseeded();
    void raiseToFloors();
    void readOffensives();
    void limitAndScale();
    void markOffensive();

    const Recipe& recipe_;
    SourceOpener* opener_;
    BuildReport* report_;
    Lexicon lexicon_;
    bool hasVocabulary_ = false;
};

}  // namespace vorpel::compiler
