// SPDX-License-Identifier: Apache-2.0
// How much memory one opened dictionary adds to a program, step by step. One dictionary a run: what an
// earlier one gave back to the allocator would hide what a later one takes.
#include "options.h"
#include "timed_service.h"
#include "typed_words.h"

#include <json/json.h>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <stdexcept>
#include <string>

namespace vorpel::bench {

namespace {

/// Kibibytes in memory.
struct Resident {
    long all = 0;
    long anonymous = 0;   ///< the rest are pages of files, which programs share and the kernel may drop
    long dictionary = 0;  ///< pages of the dictionary file
};

Resident resident(const std::string& dictionary) {
    std::ifstream file("/proc/self/smaps");
    Resident now;
    std::string line;
    bool isDictionary = false;
    while (std::getline(file, line)) {
        // The first line of each mapping begins with its address, the others with a capital.
        if (line[0] < 'A' || line[0] > 'Z') isDictionary = line.ends_with(dictionary);
        if (line.starts_with("Rss:")) {
            now.all += std::stol(line.substr(4));
            if (isDictionary) now.dictionary += std::stol(line.substr(4));
        }
        if (line.starts_with("Anonymous:")) now.anonymous += std::stol(line.substr(10));
    }
    if (now.all == 0) throw std::runtime_error("/proc/self/smaps: cannot be read");
    return now;
}

}  // namespace

int run(const Options& options) {
    if (options.dictionary.empty()) throw std::runtime_error("name one with --dictionary");
    VPWordSuggestions::setDiagnosticsStream(nullptr);
    const std::vector<TypedWord> words =
        readTypedWords(options.typedWords(), options.geometry, options.every);
    Json::Value result(Json::objectValue);
    const std::string dictionary = std::filesystem::canonical(options.dictionary);
    resident(dictionary);  // the reader itself has been loaded when it counts
    malloc_trim(0);        // or what reading the words gave back would hide what the service takes
    const Resident before = resident(dictionary);
    const auto note = [&](const char* step) {
        const Resident now = resident(dictionary);
        result[step]["added_kib"] = static_cast<Json::Int64>(now.all - before.all);
        result[step]["anonymous_kib"] = static_cast<Json::Int64>(now.anonymous - before.anonymous);
        result[step]["dictionary_kib"] = static_cast<Json::Int64>(now.dictionary);
    };
    TimedService service(dictionary, options.geometry);
    note("opened");
    service.ask(words.front(), 1);
    note("first_request");
    for (const TypedWord& word : words) service.type(word, word.letters());
    note("all_words");
    std::printf("%s", result.toStyledString().c_str());
    return 0;
}

}  // namespace vorpel::bench
