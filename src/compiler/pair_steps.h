// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/build_report.h"
#include "compiler/lexicon.h"
#include "compiler/recipe.h"
#include "compiler/source_opener.h"

#include <string_view>
#include <vector>

namespace vorpel::compiler {

/// A pair that goes into the dictionary; both words are indexes of the lexicon.
struct WordPair {
    int first = Lexicon::NONE;
    int second = Lexicon::NONE;
    int strength = 0;
};

/// The steps that settle which word pairs a dictionary has, in the order of docs/formats/recipe.md. Refers
/// to its arguments, which must outlive it.
class PairSteps {
public:
    PairSteps(const Recipe& recipe, const Lexicon& lexicon, SourceOpener* opener, BuildReport* report)
        : recipe_(recipe), lexicon_(lexicon), opener_(opener), report_(report) {}

    /// By first word as the lexicon counts them, the strongest pair of a word first.
    [[nodiscard]] std::vector<WordPair> run();

private:
    struct Candidate {
        int first = Lexicon::NONE;
        int second = Lexicon::NONE;
        double count = 0.0;
        double share = 0.0;
        int wanted = 0;
        bool isSeeded = false;
    };

    void readSeeds();
    void addSeed(const std::vector<std::string_view>& words, const PairsSeedSource& source,
                 const ListFile& file);
    void readCounts();
    void readArpaCounts(const ArpaSource& source);
    void addCount(std::string_view first, std::string_view second, double count);
    void mergeCounts();
    void judgeCounts();
    bool isWorthAPlace(Candidate* pair);
    void limitPerWord();
    void limitAll();
    bool precedesByCodePoints(const Candidate& a, const Candidate& b) const;
    std::vector<WordPair> strengthened() const;

    const Recipe& recipe_;
    const Lexicon& lexicon_;
    SourceOpener* opener_;
    BuildReport* report_;
    /// Those written by hand, then those counted.
    std::vector<Candidate> seeds_;
    std::vector<Candidate> counted_;
    /// Per lexeme: the counts of all pairs that begin with it, and its pairs written by hand.
    std::vector<double> totals_;
    std::vector<int> seedCounts_;
};

}  // namespace vorpel::compiler
