// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/session/word_case.h"

#include <optional>
#include <string>
#include <vector>

namespace vorpel {

/// What an answer of the word service does to the three labels; one without a value stays as it is.
struct LabelTitles {
    std::optional<std::string> first;
    std::optional<std::string> second;
    std::optional<std::string> third;
    bool autoCorrect = false;  ///< the second is to replace the typed word at its end

    friend bool operator==(const LabelTitles&, const LabelTitles&) = default;
};

/// What was asked and answered.
struct AnsweredWord {
    std::string typed;
    WordCase wordCase;
    std::vector<std::string> words;  ///< best first
    bool canAutoCorrect = false;     ///< as the word service judges
    bool isCorrecting = false;       ///< as the person wants it
};

/// How the words are spread over the labels.
enum class LabelPlan {
    Fixed,    ///< with auto-correction the best word has the second label whether or not it is to be put in
    Distinct  ///< no word stands on two labels, and nothing of an earlier word stays
};

/// With auto-correction the typed word in other capitals is no suggestion and stops a correction, and
/// several words are never put in by themselves. The typed word of a pending correction is quoted on the
/// first label. Any thread.
[[nodiscard]] LabelTitles labelsFor(AnsweredWord answer, LabelPlan plan);

}  // namespace vorpel
