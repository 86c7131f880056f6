// SPDX-License-Identifier: Apache-2.0
#include "answer_printing.h"

#include "text/utf.h"

#include <cstdio>

namespace vorpel::cli {

namespace {

/// Filled up with blanks to the width of a column, counted in letters and not in bytes.
std::string padded(const std::string& word) {
    constexpr std::size_t columnWidth = 20;
    const std::size_t letters = wordengine::utf8ToUtf32Lenient(word).size();
    return word + std::string(letters < columnWidth ? columnWidth - letters : 0, ' ');
}

}  // namespace

Json::Value toJson(const Answer& answer) {
    Json::Value json(Json::objectValue);
    json["words"] = Json::arrayValue;
    json["scores"] = Json::arrayValue;
    json["kinds"] = Json::arrayValue;
    for (const ScoredWord& word : answer.words) {
        json["words"].append(word.word);
        json["scores"].append(word.score);
        json["kinds"].append(word.kind);
    }
    json["autocorrect"] = answer.autoCorrects;
    return json;
}

std::string toLine(const Json::Value& value) {
    Json::StreamWriterBuilder builder;
    builder["indentation"] = "";
    builder["emitUTF8"] = true;
    return Json::writeString(builder, value);
}

void printWords(const Answer& answer) {
    int rank = 0;
    for (const ScoredWord& word : answer.words) {
        std::printf("  %2d  %s %11d  %s\n", ++rank, padded(word.word).c_str(), word.score, word.kind.c_str());
    }
    if (answer.words.empty()) std::printf("      (nothing)\n");
}

}  // namespace vorpel::cli
