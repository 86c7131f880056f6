// SPDX-License-Identifier: Apache-2.0
#include "typed_words.h"

#include "evaluation/evaluation_set.h"
#include "plain_grid.h"
#include "text/utf.h"

#include <numeric>

namespace vorpel::bench {

namespace {

TypedWord toTypedWord(const cli::EvaluationRow& row, const cli::PlainGrid& grid) {
    TypedWord word{{}, {}, row.previous, row.intended, row.group};
    const std::u32string letters = wordengine::utf8ToUtf32Lenient(row.typed);
    const auto& points = row.touches.points;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        word.beginnings.push_back(wordengine::utf32ToUtf8(letters.substr(0, i + 1)));
        const bool isTouched = i < points.size() && points[i];
        word.touches.push_back(isTouched ? grid.carryOver(*points[i], row.touches.width, row.touches.height)
                                         : MIDDLE_OF_KEY);
    }
    return word;
}

}  // namespace

std::vector<TypedWord> readTypedWords(const std::string& set, const std::string& geometryFolder, int every) {
    const cli::LanguageFiles files{"en", {}, geometryFolder};
    const cli::PlainGrid grid(files.language, files.geometryFile());
    const std::vector<cli::EvaluationRow> rows = cli::readEvaluationRows(set);
    std::vector<TypedWord> words;
    for (std::size_t i = 0; i < rows.size(); i += static_cast<std::size_t>(every)) {
        if (!rows[i].typed.empty()) words.push_back(toTypedWord(rows[i], grid));
    }
    return words;
}

long Keystrokes::count(const std::vector<TypedWord>& words) {
    return std::accumulate(words.begin(), words.end(), 0L, [](long sum, const TypedWord& word) {
        return sum + static_cast<long>(word.letters());
    });
}

}  // namespace vorpel::bench
