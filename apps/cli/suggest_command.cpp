// SPDX-License-Identifier: Apache-2.0
#include "answer_printing.h"
#include "commands.h"
#include "search/search_statistics.h"
#include "word_service.h"

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace vorpel::cli {

namespace {

void printTrace(std::FILE* out, const std::string& typed, const Answer& answer,
                const wordengine::SearchStatistics* search) {
    if (!search) return;
    std::fprintf(
        out,
        "  %-16s %7.0f us  %s  passes %d  expanded %d  children %d  pushed %d  cached %d  terminals %d\n",
        typed.c_str(), answer.microseconds, search->continuedCachedSearch ? "continued" : "fresh    ",
        search->passes, search->nodesExpanded, search->childrenExamined, search->nodesPushedActive,
        search->nodesCached, search->terminals);
}

void printForPerson(const std::string& word, const Answer& answer) {
    if (answer.autoCorrects) {
        std::printf("%s -> %s\n", word.c_str(), answer.words.front().word.c_str());
    } else {
        std::printf("%s\n", word.c_str());
    }
    printWords(answer);
}

}  // namespace

int suggest(const SuggestArguments& arguments) {
    // Between JSON lines it would be no JSON.
    std::FILE* const traceOut = arguments.json ? stderr : stdout;
    const LanguageFiles files = findLanguageFiles(arguments.choice);
    for (const std::string& word : arguments.words) {
        WordService service(files);
        const auto observe = [&](const std::string& typed, const Answer& answer) {
            if (arguments.trace) printTrace(traceOut, typed, answer, service.searchStatistics());
        };
        const Answer answer = service.type(word, arguments.previous, nullptr, observe);
        if (arguments.json) {
            Json::Value line = toJson(answer);
            line["word"] = word;
            std::printf("%s\n", toLine(line).c_str());
        } else {
            printForPerson(word, answer);
        }
    }
    return 0;
}

}  // namespace vorpel::cli
