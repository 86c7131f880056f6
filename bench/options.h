// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace vorpel::bench {

/// What every program of the benchmarks can be told on its command line.
struct Options {
    std::string data = VORPEL_BENCH_DATA_DIR;  ///< --data: dictionaries of several sizes, typed words
    std::string geometry = VORPEL_DATA_DIR;    ///< --geometry: key geometry files
    std::string set;                           ///< --set: other typed words than those of `data`
    std::string dictionary;                    ///< --dictionary: one only, in place of those of `data`
    int every = 1;                             ///< --every: take each Nth typed word only
    std::vector<char*> others;                 ///< the program's name and what is not ours

    /// Throws std::runtime_error for an option without its value.
    static Options parse(int argc, char** argv);

    [[nodiscard]] std::string typedWords() const { return set.empty() ? data + "/typed_en.tsv" : set; }
};

/// A dictionary to measure with, and how it is called in results.
struct SizedDictionary {
    std::string name;  ///< of its size, as "60k"
    std::string path;
};

/// Those of the data folder from the smallest to the largest, or the one of the command line. Throws
/// std::runtime_error when there is none.
std::vector<SizedDictionary> dictionariesOf(const Options& options);

/// What each of the programs does with them; its exit status. A std::exception that it throws is printed.
int run(const Options& options);

}  // namespace vorpel::bench
