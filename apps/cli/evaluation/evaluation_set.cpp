// SPDX-License-Identifier: Apache-2.0
#include "evaluation/evaluation_set.h"

#include "request_line.h"
#include "text/utf.h"

#include <unicode/uchar.h>

#include <fstream>
#include <functional>
#include <map>
#include <stdexcept>

namespace vorpel::cli {

namespace {

std::vector<std::string> splitAtTabs(const std::string& line) {
    std::vector<std::string> fields(1);
    for (const char character : line) {
        if (character == '\t') {
            fields.emplace_back();
        } else {
            fields.back() += character;
        }
    }
    return fields;
}

void forEachLine(const std::string& path, const std::function<void(const std::string&)>& take) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error(path + ": cannot be opened");
    std::string line;
    for (int number = 1; std::getline(file, line); ++number) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        try {
            if (!wordengine::isValidUtf8(line)) throw std::runtime_error("not UTF-8");
            if (!line.empty()) take(line);
        } catch (const std::runtime_error& error) {
            throw std::runtime_error(path + ":" + std::to_string(number) + ": " + error.what());
        }
    }
}

/// The named columns of a table's header.
class Columns {
public:
    explicit Columns(const std::vector<std::string>& header) {
        for (std::size_t i = 0; i < header.size(); ++i) places_[header[i]] = i;
        for (const char* name : {"typed", "intended"}) {
            if (!places_.contains(name)) throw std::runtime_error(std::string("no column \"") + name + "\"");
        }
    }

    [[nodiscard]] std::string of(const std::vector<std::string>& fields, const std::string& name) const {
        const auto place = places_.find(name);
        if (place == places_.end()) return {};
        if (place->second >= fields.size()) throw std::runtime_error("too few columns");
        return fields[place->second];
    }

private:
    std::map<std::string, std::size_t> places_;
};

EvaluationRow toRow(const Columns& columns, const std::vector<std::string>& fields) {
    EvaluationRow row;
    row.typed = columns.of(fields, "typed");
    row.intended = columns.of(fields, "intended");
    row.group = columns.of(fields, "level");
    if (row.group.empty()) row.group = columns.of(fields, "source");
    row.previous = columns.of(fields, "prev");
    const std::string points = columns.of(fields, "points");
    if (!points.empty()) row.touches.points = parsePoints(parseJson(points));
    return row;
}

bool isWordCharacter(char32_t character) {
    constexpr uint32_t marks = U_GC_M_MASK;
    const auto codePoint = static_cast<UChar32>(character);
    return u_isalnum(codePoint) || (U_MASK(u_charType(codePoint)) & marks) != 0;
}

bool joinsLetters(char32_t character) {
    return character == U'\'' || character == U'’' || character == U'-';
}

std::vector<std::string> wordsOf(const std::string& sentence) {
    const std::u32string text = wordengine::utf8ToUtf32Lenient(sentence);
    std::vector<std::string> words;
    std::u32string word;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        const bool ends = i == text.size();
        if (!ends && isWordCharacter(text[i])) {
            word += text[i];
        } else if (!ends && !word.empty() && joinsLetters(text[i]) && i + 1 < text.size() &&
                   isWordCharacter(text[i + 1])) {
            word += text[i] == U'’' ? U'\'' : text[i];
        } else if (!word.empty()) {
            words.push_back(wordengine::utf32ToUtf8(word));
            word.clear();
        }
    }
    return words;
}

}  // namespace

std::vector<EvaluationRow> readEvaluationRows(const std::string& path) {
    std::vector<EvaluationRow> rows;
    std::optional<Columns> columns;
    forEachLine(path, [&](const std::string& line) {
        const std::vector<std::string> fields = splitAtTabs(line);
        if (!columns) {
            columns.emplace(fields);
        } else {
            rows.push_back(toRow(*columns, fields));
        }
    });
    if (rows.empty()) throw std::runtime_error(path + ": no rows");
    return rows;
}

std::vector<std::vector<std::string>> readSentences(const std::string& path) {
    std::vector<std::vector<std::string>> sentences;
    forEachLine(path, [&](const std::string& line) { sentences.push_back(wordsOf(line)); });
    if (sentences.empty()) throw std::runtime_error(path + ": no sentences");
    return sentences;
}

}  // namespace vorpel::cli
