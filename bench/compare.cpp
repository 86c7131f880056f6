// SPDX-License-Identifier: Apache-2.0
// The engine beside two spelling checkers on the same misspelled words in the same run. The others see a
// finished word; the engine is asked after each of its letters, as it is used, and the time of them all is
// counted too.
#include "evaluation/latencies.h"
#include "evaluation/percent.h"
#include "evaluation/word_comparison.h"
#include "options.h"
#include "suggestion/suggestion_provider.h"
#include "timed_service.h"
#include "typed_words.h"

#include <json/json.h>

#include <algorithm>
#include <aspell.h>
#include <cstdio>
#include <exception>
#include <functional>
#include <hunspell/hunspell.hxx>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorpel::bench {

namespace {

using Words = std::vector<std::string>;

class AspellChecker {
public:
    explicit AspellChecker(const char* mode) {
        const std::unique_ptr<AspellConfig, void (*)(AspellConfig*)> config(new_aspell_config(),
                                                                            delete_aspell_config);
        aspell_config_replace(config.get(), "lang", "en_US");
        aspell_config_replace(config.get(), "encoding", "utf-8");
        aspell_config_replace(config.get(), "sug-mode", mode);
        AspellCanHaveError* const made = new_aspell_speller(config.get());
        if (aspell_error_number(made) != 0) throw std::runtime_error(aspell_error_message(made));
        speller_.reset(to_aspell_speller(made));
    }

    Words suggest(const std::string& word) {
        const AspellWordList* const list =
            aspell_speller_suggest(speller_.get(), word.data(), static_cast<int>(word.size()));
        if (!list) throw std::runtime_error(aspell_speller_error_message(speller_.get()));
        const std::unique_ptr<AspellStringEnumeration, void (*)(AspellStringEnumeration*)> each(
            aspell_word_list_elements(list), delete_aspell_string_enumeration);
        Words words;
        while (const char* next = aspell_string_enumeration_next(each.get())) words.emplace_back(next);
        return words;
    }

private:
    struct Delete {
        void operator()(AspellSpeller* speller) const { delete_aspell_speller(speller); }
    };
    std::unique_ptr<AspellSpeller, Delete> speller_;
};

/// What one program found, and how long a word took.
class Column {
public:
    void add(const TypedWord& word, const Words& found, const Spent& spent) {
        const std::u32string intended = cli::comparable(word.intended, false);
        const auto place = std::find_if(found.begin(), found.end(), [&](const std::string& candidate) {
            return cli::comparable(candidate, false) == intended;
        });
        inTop1_ += !found.empty() && place == found.begin();
        inTop3_ += place != found.end() && place - found.begin() < 3;
        times_.add(spent.processor);
        sum_ += spent.processor;
        ++words_;
    }

    [[nodiscard]] bool isEmpty() const { return words_ == 0; }
    [[nodiscard]] double mean() const { return words_ == 0 ? 0 : sum_ / words_; }

    [[nodiscard]] Json::Value toJson(const Column& reference) const {
        Json::Value json = times_.toJson();
        json["us_mean"] = mean();
        json["times_as_long"] = mean() / reference.mean();
        json["top1"] = cli::percent(inTop1_, words_);
        json["top3"] = cli::percent(inTop3_, words_);
        return json;
    }

private:
    cli::Latencies times_;
    double sum_ = 0;
    int words_ = 0;
    int inTop1_ = 0;
    int inTop3_ = 0;
};

bool hasTouches(const TypedWord& word) {
    return std::any_of(word.touches.begin(), word.touches.end(),
                       [](const TouchPoint& touch) { return touch.x != MIDDLE_OF_KEY.x; });
}

/// As a checker would get the words: only the letters.
TypedWord withoutTouches(TypedWord word) {
    std::fill(word.touches.begin(), word.touches.end(), MIDDLE_OF_KEY);
    return word;
}

void addChecker(const TypedWord& word, const std::function<Words(const std::string&)>& suggest,
                Column& column) {
    Words found;
    const Spent spent = timed([&] { found = suggest(word.typed()); });
    column.add(word, found, spent);
}

/// The service's times for the last letter and for all of them; what it found is the same.
void addService(const TypedWord& word, TimedService& service, Column& lastLetter, Column& allLetters) {
    Spent all = service.type(word, word.letters() - 1);
    const Spent last = service.ask(word, word.letters());
    const Words found = service.answer() ? toUtf8Strings(service.answer()->words) : Words();
    lastLetter.add(word, found, last);
    all += last;
    allLetters.add(word, found, all);
}

struct Columns {
    Column lastLetter, allLetters, touchedLastLetter, touchedAllLetters, hunspell, aspell, aspellFast;

    [[nodiscard]] Json::Value toJson() const {
        Json::Value json(Json::objectValue);
        json["vorpel, all letters"] = allLetters.toJson(allLetters);
        json["vorpel, last letter"] = lastLetter.toJson(allLetters);
        if (!touchedAllLetters.isEmpty()) {
            json["vorpel with touches, all letters"] = touchedAllLetters.toJson(allLetters);
            json["vorpel with touches, last letter"] = touchedLastLetter.toJson(allLetters);
        }
        json["hunspell"] = hunspell.toJson(allLetters);
        json["aspell, normal"] = aspell.toJson(allLetters);
        json["aspell, ultra"] = aspellFast.toJson(allLetters);
        return json;
    }
};

}  // namespace

int run(const Options& options) {
    VPWordSuggestions::setDiagnosticsStream(nullptr);
    const std::string dictionary =
        options.dictionary.empty() ? options.data + "/en_60k.dic" : options.dictionary;
    TimedService service(dictionary, options.geometry);
    Hunspell hunspell("/usr/share/hunspell/en_US.aff", "/usr/share/hunspell/en_US.dic");
    AspellChecker aspell("normal");
    AspellChecker aspellFast("ultra");
    Columns columns;
    for (const TypedWord& word : readTypedWords(options.typedWords(), options.geometry, options.every)) {
        if (cli::comparable(word.typed(), false) == cli::comparable(word.intended, false)) continue;
        addService(withoutTouches(word), service, columns.lastLetter, columns.allLetters);
        if (hasTouches(word)) addService(word, service, columns.touchedLastLetter, columns.touchedAllLetters);
        addChecker(
            word, [&](const std::string& typed) { return hunspell.suggest(typed); }, columns.hunspell);
        addChecker(
            word, [&](const std::string& typed) { return aspell.suggest(typed); }, columns.aspell);
        addChecker(
            word, [&](const std::string& typed) { return aspellFast.suggest(typed); }, columns.aspellFast);
    }
    if (columns.allLetters.isEmpty()) throw std::runtime_error("no misspelled words in the set");
    std::printf("%s", columns.toJson().toStyledString().c_str());
    return 0;
}

}  // namespace vorpel::bench
