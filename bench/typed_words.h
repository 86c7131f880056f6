// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "options.h"
#include "suggestion/suggestion_provider.h"
#include "suggestion/vp_word_suggestions.h"

#include <string>
#include <vector>

namespace vorpel::bench {

/// Stands for a touch in the middle of the letter's key.
constexpr TouchPoint MIDDLE_OF_KEY{SuggestionProvider::NO_TOUCH_COORDINATE,
                                   SuggestionProvider::NO_TOUCH_COORDINATE};

/// One word to type, ready to be asked for: nothing has to be made while the clock runs.
struct TypedWord {
    std::vector<std::string> beginnings;  ///< what stands there after 1, 2, ... letters
    std::vector<TouchPoint> touches;      ///< one a letter
    std::string previous;
    std::string intended;
    std::string group;  ///< of the set; for words by length the length

    [[nodiscard]] std::size_t letters() const { return beginnings.size(); }
    [[nodiscard]] const std::string& typed() const { return beginnings.back(); }
};

/// The words of an English set in the form of `vorpel eval`, each Nth of them. Letters without a touch are
/// hit in the middle of their keys. Throws std::runtime_error as the set's reader does.
std::vector<TypedWord> readTypedWords(const std::string& set, const std::string& geometryFolder, int every);

/// The keystrokes of a row of words, one after the other and from the start again: word and letters typed.
class Keystrokes {
public:
    explicit Keystrokes(const std::vector<TypedWord>& words) : words_(words) {}

    /// Goes on to the next keystroke.
    void next() {
        if (++letters_ <= word().letters()) return;
        letters_ = 1;
        index_ = (index_ + 1) % words_.size();
    }
    [[nodiscard]] const TypedWord& word() const { return words_[index_]; }
    [[nodiscard]] std::size_t letters() const { return letters_; }

    /// Of one round.
    [[nodiscard]] static long count(const std::vector<TypedWord>& words);

private:
    const std::vector<TypedWord>& words_;
    std::size_t index_ = 0;
    std::size_t letters_ = 0;
};

}  // namespace vorpel::bench
