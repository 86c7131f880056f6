// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "language_files.h"
#include "plain_grid.h"
#include "platform/memory_user_defaults.h"
#include "platform/posix/folder_bundle.h"
#include "suggestion/vp_word_suggestions.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorpel::cli {

struct ScoredWord {
    std::string word;
    int score = 0;
    std::string kind;  ///< "correction", "whitelist", "shortcut" or "prediction"
};

struct Answer {
    std::vector<ScoredWord> words;
    bool autoCorrects = false;  ///< the first word may replace what was typed
    double microseconds = 0;    ///< spent in the word service
};

/// Touches on a plain grid, one a letter (code point) of the word; a letter may lack one.
struct PlainTouches {
    double width = PlainGrid::DEFAULT_WIDTH;
    double height = PlainGrid::DEFAULT_HEIGHT;
    std::vector<std::optional<TouchPoint>> points;
};

/// One long-lived word service for one language, typed into letter by letter as a person would.
class WordService {
public:
    /// Called after each letter with what has been typed so far and the answer to it.
    using Observer = std::function<void(const std::string& typed, const Answer& answer)>;

    explicit WordService(const LanguageFiles& files);

    /// Types a word; the answer to its last letter. With no letter at all the answer is empty. The
    /// time is that of all letters.
    Answer type(const std::string& word, const std::string& previous, const PlainTouches* touches = nullptr,
                const Observer& observer = nullptr);

    Answer predict(const std::string& previous);

    [[nodiscard]] const wordengine::SearchStatistics* searchStatistics() const {
        return service_->searchStatistics();
    }

private:
    [[nodiscard]] std::vector<TouchPoint> carryOver(const PlainTouches& touches) const;

    platform::FolderBundle bundle_;
    platform::MemoryUserDefaults defaults_;
    std::unique_ptr<VPWordSuggestions> service_;
    PlainGrid grid_;
};

}  // namespace vorpel::cli
