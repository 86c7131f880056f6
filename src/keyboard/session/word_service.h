// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/platform.h"
#include "suggestion/vp_word_suggestions.h"
#include "ui/geometry.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorpel {

/// Stands for no touch, in both coordinates.
inline constexpr double NO_TOUCH = 10000;

/// The word being typed, as the word service is asked about it.
struct WordRequest {
    std::string word;
    std::string previousWord;
    ui::Point touchPoint;  ///< of the last letter, in the view of the keys
    /// Of each code point; nothing for one that was not touched. Only where touches count.
    std::vector<std::optional<KeyOffset>> offsets;
};

struct WordAnswer {
    std::vector<std::string> words;  ///< best first
    bool canAutoCorrect = false;     ///< the first may replace the word
};

/// The word half as a session uses it. Made, asked and destroyed on the session's serial queue alone. What
/// it throws counts as no answer.
class WordService {
public:
    virtual ~WordService() = default;
    virtual WordAnswer suggest(const WordRequest& request) = 0;
    virtual std::vector<std::string> predict(const std::string& previousWord) = 0;
};

using WordServiceFactory = std::function<std::unique_ptr<WordService>()>;

/// Whether the places of touches reach the engine.
enum class TouchUse { Ignored, ByLetter };

/// Opens the dictionary and the geometry of the language that is stored at the moment of the call. The
/// platform's bundle and preferences must outlive what it makes.
[[nodiscard]] WordServiceFactory wordServiceFactory(const platform::Platform& platform, TouchUse use);

}  // namespace vorpel
