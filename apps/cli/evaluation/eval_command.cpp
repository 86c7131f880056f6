// SPDX-License-Identifier: Apache-2.0
#include "answer_printing.h"
#include "commands.h"
#include "compiler/dictionary_listing.h"
#include "evaluation/answer_digest.h"
#include "evaluation/evaluation_set.h"
#include "evaluation/latencies.h"
#include "evaluation/sentence_measures.h"
#include "evaluation/typing_measures.h"
#include "evaluation/word_comparison.h"

#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vorpel::cli {

namespace {

const std::string ALL_ROWS = "all";
const std::string FOLDED_SUFFIX = " (hamza folded)";

/// The rows that auto-correction left wrong, one a line: group, typed, intended, and the first words.
class MissesFile {
public:
    explicit MissesFile(const std::string& path) {
        if (path.empty()) return;
        file_.reset(std::fopen(path.c_str(), "w"));
        if (!file_) throw std::runtime_error(path + ": cannot be written");
    }

    void add(const EvaluationRow& row, const Answer& answer) {
        if (!file_) return;
        const bool replaced = answer.autoCorrects && !answer.words.empty();
        const std::string& final = replaced ? answer.words.front().word : row.typed;
        if (comparable(final, false) == comparable(row.intended, false)) return;
        std::fprintf(file_.get(), "%s\t%s\t%s\t%s", row.group.c_str(), row.typed.c_str(),
                     row.intended.c_str(), replaced ? "replaced" : "left");
        for (std::size_t i = 0; i < answer.words.size() && i < 5; ++i) {
            std::fprintf(file_.get(), "\t%s", answer.words[i].word.c_str());
        }
        std::fprintf(file_.get(), "\n");
    }

private:
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Close> file_;
};

/// Every Nth row, from the first.
template <typename Row>
std::vector<Row> thinned(const std::vector<Row>& rows, int every) {
    std::vector<Row> kept;
    for (std::size_t i = 0; i < rows.size(); i += static_cast<std::size_t>(every)) kept.push_back(rows[i]);
    return kept;
}

/// Whether the dictionary has the word, or its form with a small first letter.
bool isKnown(const compiler::DictionaryListing& dictionary, const std::string& word) {
    const auto isWord = [&](const std::string& form) {
        const auto entry = dictionary.lookup(form);
        return entry && !entry->isNotAWord;
    };
    std::string small = word;
    if (!small.empty() && small[0] >= 'A' && small[0] <= 'Z') small[0] = static_cast<char>(small[0] + 32);
    return isWord(word) || isWord(small);
}

Json::Value evaluateRows(const EvalArguments& arguments, const LanguageFiles& files, Latencies& latencies) {
    WordService service(files);
    const compiler::DictionaryListing dictionary = compiler::DictionaryListing::open(files.dictionary);
    MissesFile misses(arguments.missesFile);
    std::map<std::string, TypingMeasures> groups;
    for (const EvaluationRow& row : thinned(readEvaluationRows(arguments.set), arguments.every)) {
        const auto observe = [&](const std::string&, const Answer& answer) {
            latencies.add(answer.microseconds);
        };
        const PlainTouches* touches = row.touches.points.empty() ? nullptr : &row.touches;
        const Answer answer = service.type(row.typed, row.previous, touches, observe);
        misses.add(row, answer);
        const auto add = [&](const std::string& group, bool foldHamza) {
            groups.try_emplace(group, foldHamza).first->second.add(row, answer, [&] {
                return isKnown(dictionary, row.intended);
            });
        };
        for (const std::string& group : {ALL_ROWS, row.group}) {
            if (group.empty()) continue;
            add(group, false);
            if (files.language == "ar") add(group + FOLDED_SUFFIX, true);
        }
    }
    Json::Value result(Json::objectValue);
    for (const auto& [group, measures] : groups) result[group] = measures.toJson();
    return result;
}

Json::Value evaluateSentences(const EvalArguments& arguments, const LanguageFiles& files,
                              Latencies& latencies) {
    WordService service(files);
    const bool isArabic = files.language == "ar";
    SentenceMeasures strict(false);
    SentenceMeasures folded(true);
    for (const auto& sentence : thinned(readSentences(arguments.set), arguments.every)) {
        const std::vector<ForeseenWord> typed = typeSentence(sentence, service, latencies);
        strict.add(typed);
        if (isArabic) folded.add(typed);
    }
    Json::Value result(Json::objectValue);
    result[ALL_ROWS] = strict.toJson();
    if (isArabic) result[ALL_ROWS + FOLDED_SUFFIX] = folded.toJson();
    return result;
}

AnswerDigest digestRows(const EvalArguments& arguments, WordService& service) {
    AnswerDigest digest;
    const auto observe = [&](const std::string& typed, const Answer& answer) { digest.add(typed, answer); };
    for (const EvaluationRow& row : thinned(readEvaluationRows(arguments.set), arguments.every)) {
        if (!row.previous.empty()) digest.add(row.previous, service.predict(row.previous));
        service.type(row.typed, row.previous, row.touches.points.empty() ? nullptr : &row.touches, observe);
    }
    return digest;
}

AnswerDigest digestSentences(const EvalArguments& arguments, WordService& service) {
    AnswerDigest digest;
    Latencies latencies;
    for (const auto& sentence : thinned(readSentences(arguments.set), arguments.every)) {
        for (const ForeseenWord& word : typeSentence(sentence, service, latencies)) {
            digest.add(word.word, word.predicted);
            for (const Answer& answer : word.answers) digest.add(word.word, answer);
        }
    }
    return digest;
}

/// A line for the set: the digest, how many answers and words are in it, and the set's path.
int printDigest(const EvalArguments& arguments, const LanguageFiles& files, bool isText) {
    WordService service(files);
    const AnswerDigest digest = isText ? digestSentences(arguments, service) : digestRows(arguments, service);
    std::printf("%s  %ld answers  %ld words  %s\n", digest.toHex().c_str(), digest.answers(), digest.words(),
                arguments.set.c_str());
    return 0;
}

void printForPerson(const Json::Value& result) {
    for (const std::string& group : result.getMemberNames()) {
        std::printf("%s\n", group.c_str());
        for (const std::string& measure : result[group].getMemberNames()) {
            const Json::Value& value = result[group][measure];
            if (value.isIntegral()) {
                std::printf("  %-22s %8d\n", measure.c_str(), value.asInt());
            } else {
                std::printf("  %-22s %8.2f\n", measure.c_str(), value.asDouble());
            }
        }
    }
}

}  // namespace

int evaluate(const EvalArguments& arguments) {
    // A line a request would be most of what is printed, and some of what is timed.
    VPWordSuggestions::setDiagnosticsStream(nullptr);
    const LanguageFiles files = findLanguageFiles(arguments.choice);
    const bool isText = arguments.set.ends_with(".txt");
    if (arguments.digest) return printDigest(arguments, files, isText);
    Latencies latencies;
    Json::Value result =
        isText ? evaluateSentences(arguments, files, latencies) : evaluateRows(arguments, files, latencies);
    result["time"] = latencies.toJson();
    if (arguments.json) {
        std::printf("%s\n", toLine(result).c_str());
    } else {
        printForPerson(result);
    }
    return 0;
}

}  // namespace vorpel::cli
