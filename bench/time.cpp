// SPDX-License-Identifier: Apache-2.0
// How long a keystroke, a prediction and opening take, by the dictionary's words and by the letters typed.
#include "dictionary/dictionary_structure_with_buffer_policy_factory.h"
#include "evaluation/latencies.h"
#include "options.h"
#include "search/search_statistics.h"
#include "timed_service.h"
#include "typed_words.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>

namespace vorpel::bench {

namespace {

constexpr int OPENINGS = 100;
constexpr int LONGEST = 20;
constexpr int ROUNDS_BY_LENGTH = 2;
const std::string DICTIONARY_BY_LENGTH = "60k";

struct Sample {
    Spent spent;
    bool isContinued = false;  ///< the search went on from the one before
};

/// How the times of a benchmark are spread, and the share of searches that went on from the one before.
class Spread {
public:
    void add(const Sample& sample) {
        processor_.add(sample.spent.processor);
        wall_.add(sample.spent.wall);
        continued_ += sample.isContinued;
        ++count_;
    }

    void report(benchmark::UserCounters& counters) const {
        const auto note = [&](const Json::Value& times, const std::string& prefix) {
            counters[prefix + "p50"] = times["us_median"].asDouble();
            counters[prefix + "p95"] = times["us_p95"].asDouble();
            counters[prefix + "p99"] = times["us_p99"].asDouble();
        };
        note(processor_.toJson(), "");
        note(wall_.toJson(), "wall_");
        counters["continued"] = static_cast<double>(continued_) / static_cast<double>(count_);
    }

private:
    cli::Latencies processor_, wall_;
    long continued_ = 0;
    long count_ = 0;
};

/// Runs a question that times itself, so often that each word has its turn.
void measure(const std::string& name, long iterations, const std::function<Sample()>& question) {
    const auto run = [question](benchmark::State& state) {
        Spread spread;
        for (auto _ : state) {
            const Sample sample = question();
            state.SetIterationTime(sample.spent.processor * 1e-6);
            spread.add(sample);
        }
        spread.report(state.counters);
    };
    benchmark::RegisterBenchmark(name.c_str(), run)
        ->Iterations(std::max(iterations, 1L))
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond);
}

/// The sessions stay open until the end, as a keyboard's do; the first words warm them up.
std::shared_ptr<TimedService> openWarm(const SizedDictionary& dictionary, const Options& options,
                                       const std::vector<TypedWord>& words) {
    auto service = std::make_shared<TimedService>(dictionary.path, options.geometry);
    for (std::size_t i = 0; i < std::min<std::size_t>(words.size(), 20); ++i) {
        service->type(words[i], words[i].letters());
    }
    return service;
}

Sample ask(TimedService& service, const TypedWord& word, std::size_t letters) {
    const Spent spent = service.ask(word, letters);
    return {spent, service.service().searchStatistics()->continuedCachedSearch};
}

/// What a person typing waits for, letter by letter through running text.
void addKeystrokes(const std::shared_ptr<TimedService>& service, const std::string& size,
                   const std::vector<TypedWord>& words) {
    auto keystrokes = std::make_shared<Keystrokes>(words);
    measure("keystroke/" + size, Keystrokes::count(words), [=] {
        keystrokes->next();
        return ask(*service, keystrokes->word(), keystrokes->letters());
    });
}

void addPredictions(const std::shared_ptr<TimedService>& service, const std::string& size,
                    const std::vector<TypedWord>& words) {
    auto index = std::make_shared<std::size_t>(0);
    measure("prediction/" + size, static_cast<long>(words.size()),
            [=, &words] { return Sample{service->predict(words[(*index)++ % words.size()].previous)}; });
}

void addOpening(const SizedDictionary& dictionary, const Options& options) {
    const auto opening = [](const auto& open) {
        return Sample{timed([&] { benchmark::DoNotOptimize(open().get()); })};
    };
    measure("open_service/" + dictionary.name, OPENINGS, [=] {
        return opening([&] { return std::make_unique<TimedService>(dictionary.path, options.geometry); });
    });
    const int bytes = static_cast<int>(std::filesystem::file_size(dictionary.path));
    measure("open_dictionary/" + dictionary.name, OPENINGS, [=] {
        return opening([&] {
            return wordengine::DictionaryStructureWithBufferPolicyFactory::newPolicyForExistingDictFile(
                dictionary.path.c_str(), 0, bytes, false);
        });
    });
}

/// The request after one more letter, whose search goes on from the one before; and the request for the same
/// beginning after a letter was deleted, whose search starts anew.
void addByLength(const std::shared_ptr<TimedService>& service, const std::vector<TypedWord>& words,
                 std::size_t length) {
    auto index = std::make_shared<std::size_t>(0);
    const auto take = [=, &words]() -> const TypedWord& { return words[(*index)++ % words.size()]; };
    const long rounds = ROUNDS_BY_LENGTH * static_cast<long>(words.size());
    measure("keystroke_continued/letters:" + std::to_string(length), rounds, [=] {
        const TypedWord& word = take();
        service->type(word, length - 1);
        return ask(*service, word, length);
    });
    measure("keystroke_fresh/letters:" + std::to_string(length), rounds, [=] {
        const TypedWord& word = take();
        service->type(word, length + 1);
        return ask(*service, word, length);
    });
}

using WordsByLength = std::map<std::size_t, std::vector<TypedWord>>;

WordsByLength readWordsByLength(const Options& options) {
    WordsByLength byLength;
    for (TypedWord& word :
         readTypedWords(options.data + "/lengths_en.tsv", options.geometry, options.every)) {
        const auto length = static_cast<std::size_t>(std::stoi(word.group));
        byLength[length].push_back(std::move(word));
    }
    return byLength;
}

}  // namespace

int run(const Options& options) {
    VPWordSuggestions::setDiagnosticsStream(nullptr);
    const std::vector<TypedWord> words =
        readTypedWords(options.typedWords(), options.geometry, options.every);
    const WordsByLength byLength = readWordsByLength(options);
    for (const SizedDictionary& dictionary : dictionariesOf(options)) {
        const auto service = openWarm(dictionary, options, words);
        addKeystrokes(service, dictionary.name, words);
        addPredictions(service, dictionary.name, words);
        addOpening(dictionary, options);
        if (dictionary.name != DICTIONARY_BY_LENGTH && options.dictionary.empty()) continue;
        for (const auto& [length, fitting] : byLength) {
            if (length <= LONGEST) addByLength(service, fitting, length);
        }
    }
    int argc = static_cast<int>(options.others.size());
    std::vector<char*> arguments = options.others;
    benchmark::Initialize(&argc, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(argc, arguments.data())) return 2;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

}  // namespace vorpel::bench
