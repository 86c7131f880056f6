// SPDX-License-Identifier: Apache-2.0
// How often a request takes memory from the heap: inside the search, and in the whole word service.
#include "allocation_counter.h"
#include "dictionary/dictionary_structure_with_buffer_policy_factory.h"
#include "dictionary/prev_words_info.h"
#include "options.h"
#include "search/dic_traverse_session.h"
#include "search/dictionary.h"
#include "search/results/suggestion_results.h"
#include "search/suggest.h"
#include "search/suggest_options.h"
#include "search/typing/typing_suggest_policy_factory.h"
#include "suggestion/proximity_provider.h"
#include "text/utf.h"
#include "timed_service.h"
#include "typed_words.h"

#include <json/json.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <functional>

namespace vorpel::bench {

namespace {

struct Taken {
    long allocations = 0;
    long bytes = 0;
};

template <typename Question>
Taken counted(Question&& question) {
    const AllocationCounter counter;
    question();
    return {AllocationCounter::allocations(), AllocationCounter::bytes()};
}

/// The search without the service around it: everything that a request needs is made before the count.
class BareSearch {
public:
    BareSearch(const std::string& dictionary, const std::string& geometryFolder)
        : proximity_(geometryFolder, "en"),
          bytes_(static_cast<int>(std::filesystem::file_size(dictionary))),
          dictionary_(wordengine::DictionaryStructureWithBufferPolicyFactory::newPolicyForExistingDictFile(
              dictionary.c_str(), 0, bytes_, false)),
          session_(
              bytes_ >=
              wordengine::DicTraverseSession::DICTIONARY_SIZE_THRESHOLD_TO_USE_LARGE_CACHE_FOR_SUGGESTION),
          suggest_(wordengine::TypingSuggestPolicyFactory::getTypingSuggestPolicy()) {}

    Taken ask(const TypedWord& word, std::size_t letters) {
        const std::u32string previous = wordengine::utf8ToUtf32Lenient(word.previous);
        const std::vector<int> before(previous.begin(), previous.end());
        const wordengine::PrevWordsInfo context(before.data(), static_cast<int>(before.size()), false);
        const std::array<int, 4> none{};
        const wordengine::SuggestOptions options(none.data(), static_cast<int>(none.size()));
        place(word, letters);
        session_.init(&dictionary_, &context, &options);
        wordengine::SuggestionResults results(VPWordSuggestions::MAX_RESULTS);
        const auto* const keys = proximity_.getProximity(input_[letters - 1]);
        return counted([&] {
            suggest_.getSuggestions(keys, &session_, xs_.data(), ys_.data(), times_.data(), ids_.data(),
                                    input_.data(), static_cast<int>(letters), -1.0f, &results);
        });
    }

private:
    using Inputs = std::array<int, wordengine::WORD_LENGTH_LIMIT>;

    void place(const TypedWord& word, std::size_t letters) {
        const std::u32string typed = wordengine::utf8ToUtf32Lenient(word.beginnings[letters - 1]);
        for (std::size_t i = 0; i < letters; ++i) {
            input_[i] = static_cast<int>(typed[i]);
            const KeyCoordinate* const key = proximity_.getKeyCoordinate(input_[i]);
            const bool isTouched = word.touches[i].x != MIDDLE_OF_KEY.x;
            xs_[i] = static_cast<int>(isTouched ? word.touches[i].x : key->x);
            ys_[i] = static_cast<int>(isTouched ? word.touches[i].y : key->y);
        }
    }

    ProximityProvider proximity_;
    int bytes_;
    wordengine::Dictionary dictionary_;
    wordengine::DicTraverseSession session_;
    wordengine::Suggest<wordengine::TypingSuggestPolicy> suggest_;
    Inputs input_{}, xs_{}, ys_{}, times_{}, ids_{};
};

using Question = std::function<Taken(const TypedWord& word, std::size_t letters)>;

/// The first request of all, and the others.
Json::Value count(const std::vector<TypedWord>& words, const Question& ask) {
    Keystrokes keystrokes(words);
    const long requests = Keystrokes::count(words);
    Taken first, sum;
    long most = 0;
    long without = 0;
    for (long i = 0; i < requests; ++i) {
        keystrokes.next();
        const Taken taken = ask(keystrokes.word(), keystrokes.letters());
        if (i == 0) {
            first = taken;
            continue;
        }
        sum.allocations += taken.allocations;
        sum.bytes += taken.bytes;
        most = std::max(most, taken.allocations);
        without += taken.allocations == 0;
    }
    const auto others = static_cast<double>(std::max(requests - 1, 1L));
    Json::Value json(Json::objectValue);
    json["requests"] = static_cast<Json::Int64>(requests);
    json["first"] = static_cast<Json::Int64>(first.allocations);
    json["later_mean"] = static_cast<double>(sum.allocations) / others;
    json["later_most"] = static_cast<Json::Int64>(most);
    json["later_bytes_mean"] = static_cast<double>(sum.bytes) / others;
    json["later_without_any_percent"] = 100 * static_cast<double>(without) / others;
    return json;
}

}  // namespace

int run(const Options& options) {
    VPWordSuggestions::setDiagnosticsStream(nullptr);
    const std::vector<TypedWord> words =
        readTypedWords(options.typedWords(), options.geometry, options.every);
    Json::Value result(Json::objectValue);
    for (const SizedDictionary& dictionary : dictionariesOf(options)) {
        BareSearch search(dictionary.path, options.geometry);
        result[dictionary.name]["search"] = count(
            words, [&](const TypedWord& word, std::size_t letters) { return search.ask(word, letters); });
        TimedService service(dictionary.path, options.geometry);
        result[dictionary.name]["service"] = count(words, [&](const TypedWord& word, std::size_t letters) {
            return counted([&] { service.ask(word, letters); });
        });
    }
    std::printf("%s", result.toStyledString().c_str());
    return 0;
}

}  // namespace vorpel::bench
