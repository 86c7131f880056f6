// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "suggestion/suggestion_provider.h"
#include "suggestion/vp_word_suggestions.h"
#include "text/utf.h"

#include <cstddef>
#include <string>
#include <vector>

namespace vorpel {

inline constexpr TouchPoint NO_TOUCH{SuggestionProvider::NO_TOUCH_COORDINATE,
                                     SuggestionProvider::NO_TOUCH_COORDINATE};

/// A word with the touches that it was typed by, one a letter (code point); letters beyond the last have
/// none.
struct TypedWord {
    std::u32string letters;
    std::vector<TouchPoint> touches;

    [[nodiscard]] TouchPoint touchOf(std::size_t letter) const {
        return letter < touches.size() ? touches[letter] : NO_TOUCH;
    }

    /// A word service learns a letter's touch only from the request that ends with the letter, so a word
    /// must be typed into it as a person does. `request(typed so far, touch of its last letter)` is called
    /// for each letter from the one at `first` on.
    template <typename Request>
    void typeLetters(std::size_t first, Request&& request) const {
        for (std::size_t i = first; i < letters.size(); ++i) {
            request(wordengine::utf32ToUtf8(std::u32string_view(letters).substr(0, i + 1)), touchOf(i));
        }
    }
};

}  // namespace vorpel
