// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "suggestion/vp_word_suggestions.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorpel {

/// The last few thousand bytes before the cursor, as far as the keyboard knows: what the field said when it
/// last spoke up, and what was typed since. Fields answer late, in part or never, so what they say is weighed
/// against what was typed. UTF-8. Main thread only.
class TextRecord {
public:
    enum class Told {
        Known,     ///< nothing new, or an answer that may be late: what was typed stands
        Different  ///< the text is another one, or the cursor stands elsewhere
    };

    /// The field has spoken up. Where it did not show the last stroke at once, an answer may be late, for no
    /// more than two seconds; `now` is in seconds on any clock that goes forward.
    Told tell(const std::optional<std::string>& before, const std::optional<std::string>& after, double now);

    /// The field's answer counts, whatever was typed.
    void take(const std::optional<std::string>& before, const std::optional<std::string>& after);

    /// `offset` is that of the touch, for a text of one letter that was touched; `answer` is what the field
    /// says now.
    void insert(const std::string& text, const std::optional<KeyOffset>& offset,
                const std::optional<std::string>& answer, double now);

    /// The character before the cursor, or the selection, is gone.
    void deleteBackward(const std::optional<std::string>& answer);

    /// The keyboard has asked the field to move its cursor by so many characters, and this is what it says
    /// now.
    void moveCursor(int characters, const std::optional<std::string>& before,
                    const std::optional<std::string>& after);

    /// Nothing when nothing is known.
    [[nodiscard]] std::optional<std::string> before() const;

    /// Whether these last bytes surely stand in the field: they may be deleted.
    [[nodiscard]] bool isSure(std::size_t size) const;

    /// For each code point of the word that the text ends with.
    [[nodiscard]] std::vector<std::optional<KeyOffset>> offsetsOf(std::string_view word) const;

private:
    struct Stroke {
        std::size_t end = 0;  // in typed_, behind what it typed
        std::optional<KeyOffset> offset;
        double time = 0;
    };

    void deleteTold(const std::optional<std::string>& answer);
    void forgetOldStrokes();
    [[nodiscard]] bool shows(const std::optional<std::string>& answer) const;
    [[nodiscard]] bool mayBeLate(std::string_view answer, double now, std::size_t* missing) const;

    std::optional<std::string> told_;
    std::optional<std::string> after_;
    std::string typed_;
    std::vector<Stroke> strokes_;
    std::size_t sureFrom_ = 0;  // in typed_: what is before may have been changed by somebody else
    bool isAnswerSure_ = true;  // the same of told_
    bool isPrompt_ = false;     // the field showed the last stroke at once
};

}  // namespace vorpel
