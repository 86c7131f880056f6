// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/build_report.h"
#include "compiler/dictionary_model.h"
#include "compiler/lexicon.h"
#include "compiler/recipe.h"
#include "compiler/source_opener.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vorpel::compiler {

/// The last steps of a build: corrections and plain shortcuts, as shortcuts of words or of entries that
/// are not words. Refers to its arguments, which must outlive it.
class ReplacementSteps {
public:
    /// By typed form.
    using Entries = std::map<std::string, WordEntry, std::less<>>;

    ReplacementSteps(const Recipe& recipe, const Lexicon& lexicon, SourceOpener* opener, BuildReport* report)
        : recipe_(recipe), lexicon_(lexicon), opener_(opener), report_(report) {}

    /// An entry for each typed form. One whose isNotAWord is false only carries the shortcuts of a word
    /// that the dictionary has anyway.
    [[nodiscard]] Entries run();

private:
    using Targets = std::vector<std::string_view>;

    void readCorrections(const CorrectionsSource& source);
    void readRuleMade(const CorrectionsSource& source);
    void addCorrection(const CorrectionsSource& source, std::string_view typed, const Targets& targets);
    void readShortcuts(const ShortcutsSource& source);
    bool isWord(std::string_view typed) const;
    int probabilityOf(std::string_view word) const;
    WordEntry& entryFor(std::string_view typed, int probability);
    int addTargets(WordEntry* entry, const Targets& targets, int strength);
    void warnOfUnknownWords(const ListFile& file, const Targets& targets);

    const Recipe& recipe_;
    const Lexicon& lexicon_;
    SourceOpener* opener_;
    BuildReport* report_;
    Entries entries_;
};

}  // namespace vorpel::compiler
