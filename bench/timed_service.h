// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/memory_user_defaults.h"
#include "platform/posix/folder_bundle.h"
#include "stopwatch.h"
#include "suggestion/vp_word_suggestions.h"
#include "typed_words.h"

#include <optional>
#include <string>

namespace vorpel::bench {

/// An English word service that says how long it took.
class TimedService {
public:
    TimedService(const std::string& dictionary, const std::string& geometryFolder)
        : bundle_({geometryFolder}), service_(bundle_, defaults_) {
        service_.initializeTheAutoCorrectionModuleForDicPath(dictionary, geometryFolder, "en");
        service_.useTouchPoint = true;
    }

    /// Asks for the first letters of a word.
    Spent ask(const TypedWord& word, std::size_t letters) {
        return timed([&] {
            answer_ = service_.getRankedSuggestionsForWord(word.beginnings[letters - 1], word.previous,
                                                           word.touches[letters - 1]);
        });
    }

    /// Asks for all beginnings of a word up to the given number of letters, the time of them all.
    Spent type(const TypedWord& word, std::size_t letters) {
        Spent total;
        for (std::size_t i = 1; i <= letters; ++i) total += ask(word, i);
        return total;
    }

    Spent predict(const std::string& previous) {
        return timed([&] { answer_ = service_.getRankedPredictions(previous); });
    }

    /// Of the last question; nothing when it failed.
    [[nodiscard]] const std::optional<RankedSuggestions>& answer() const { return answer_; }

    [[nodiscard]] VPWordSuggestions& service() { return service_; }

private:
    platform::FolderBundle bundle_;
    platform::MemoryUserDefaults defaults_;
    VPWordSuggestions service_;
    std::optional<RankedSuggestions> answer_;
};

}  // namespace vorpel::bench
