// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/model_costs.h"
#include "search/model_keyboard.h"
#include "search/results/suggested_word.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace wordengine::testing {

/// What a path deviates in, as bits.
namespace PathError {
inline constexpr unsigned Case = 1;
inline constexpr unsigned Accent = 2;
inline constexpr unsigned Digraph = 4;
inline constexpr unsigned JoinerLeftOut = 8;
inline constexpr unsigned Edit = 16;
inline constexpr unsigned NearKey = 32;
inline constexpr unsigned Completion = 64;
inline constexpr unsigned NewWord = 128;
}  // namespace PathError

enum class DigraphHalf { None, First, Second };

/// Letters that people leave out on purpose.
inline bool isJoiner(char32_t letter) {
    return letter == U'\'' || letter == U'-';
}

/// One way through the words so far.
struct BruteForcePath {
    std::u32string wordsBefore = {};  ///< each with a space behind it
    std::u32string wordBefore = {};   ///< the last of them, or what stands before the input
    std::u32string prefix = {};       ///< of the current word
    int index = 0;                    ///< points used up
    double spatial = 0;
    double language = 0;
    int nearKeys = 0;
    int edits = 0;
    int completions = 0;
    unsigned errors = 0;
    DigraphHalf half = DigraphHalf::None;

    char32_t last() const { return prefix.empty() ? U'\0' : prefix.back(); }
    bool isLaterWord() const { return !wordsBefore.empty(); }
    bool isLoneLetterAgain() const { return isLaterWord() && prefix.size() == 1 && wordBefore.size() == 1; }

    BruteForcePath with(char32_t letter) const {
        BruteForcePath longer = *this;
        longer.prefix += letter;
        return longer;
    }
    void pay(double cost, unsigned error) {
        spatial += cost;
        errors |= error;
    }
    void payEdit(double cost) {
        pay(cost, PathError::Edit);
        ++edits;
    }
};

/// A finished path.
struct BruteForceWord {
    std::u32string text;
    double distance;
    unsigned errors;
    int index;  ///< points used up by letters
    bool hasSeveralWords;
    bool isShown;
    bool isOffensive;
    bool beginsCapital;

    bool isExact() const { return (errors & ~7u) == 0; }
    /// A joiner may have been left out besides.
    bool isNearlyExact() const { return (errors & ~15u) == 0; }
    /// A capitalised offensive word may be typed by accident, so it does not count as meant.
    int type() const {
        return SuggestedWord::KIND_CORRECTION |
               (isOffensive ? SuggestedWord::KIND_FLAG_POSSIBLY_OFFENSIVE : 0) |
               (isExact() && !(isOffensive && beginsCapital) ? SuggestedWord::KIND_FLAG_EXACT_MATCH : 0) |
               (isNearlyExact() ? SuggestedWord::KIND_FLAG_EXACT_MATCH_WITH_INTENTIONAL_OMISSION : 0);
    }
    /// Exact ones first, then the cheap ones.
    bool isBetterThan(const BruteForceWord& other) const {
        return isExact() != other.isExact() ? isExact() : distance < other.distance;
    }
    double bonus() const {
        if (!isExact()) return 0;
        return 1.1 - (errors & PathError::Case ? 0.01 : 0) - (errors & PathError::Accent ? 0.02 : 0) -
               (errors & PathError::Digraph ? 0.03 : 0);
    }
};

/// Puts letters to points.
class BruteForcePen {
public:
    BruteForcePen(const ModelKeyboard& keyboard, const TypedWord& typed)
        : keyboard_(keyboard), typed_(typed) {}

    int points() const { return static_cast<int>(typed_.codePoints.size()); }
    char32_t typedAt(int point) const {
        return static_cast<char32_t>(typed_.codePoints[static_cast<size_t>(point)]);
    }
    bool isNearSpace(int point) const { return keyboard_.isNearSpace(touchAt(point)); }

    /// From the point to the letter's key, squared, at most a whole key width.
    double keyWidths(int point, char32_t letter) const {
        const char32_t key = smallBaseOf(letter);
        if (!keyboard_.hasKey(key)) return isJoiner(key) ? 0 : 1e7;
        return std::min(1.0, keyboard_.squaredKeyWidths(touchAt(point), key));
    }

    /// Whether the point may stand for the letter without a correction.
    bool fits(int point, char32_t letter) const {
        if (smallBaseOf(typedAt(point)) == smallBaseOf(letter) || typedAt(point) == letter) return true;
        return keyboard_.isNear(touchAt(point), smallBaseOf(letter));
    }

    /// Whether the key hit at the point lies beside those hit before and after it.
    bool isBesideNeighbourPoint(int point) const {
        return isListedAt(point - 1, typedAt(point)) || isListedAt(point + 1, typedAt(point));
    }

    /// Empty for a letter that is no umlaut.
    static std::u32string umlautHalves(char32_t letter) {
        constexpr std::u32string_view UMLAUTS = U"\u00E4\u00F6\u00FC";
        return UMLAUTS.find(smallOf(letter)) == std::u32string_view::npos
                   ? U""
                   : std::u32string{smallBaseOf(letter), U'e'};
    }

    /// Charges the path's last letter, and takes a point for it.
    void typeOrComplete(BruteForcePath* path) const {
        if (path->index < points()) {
            type(path);
        } else {
            path->pay(path->index == points() ? price::FIRST_COMPLETED : price::COMPLETED,
                      PathError::Completion);
            ++path->completions;
        }
        ++path->index;
    }

private:
    Touch touchAt(int point) const {
        return {typed_.xs[static_cast<size_t>(point)], typed_.ys[static_cast<size_t>(point)]};
    }

    bool isListedAt(int point, char32_t letter) const {
        if (point < 0 || point >= points()) return false;
        return typedAt(point) == letter ||
               (smallOf(letter) == letter && keyboard_.isNear(touchAt(point), letter));
    }

    static char32_t letterToType(const BruteForcePath& path) {
        if (path.half == DigraphHalf::None) return path.last();
        return umlautHalves(path.last())[path.half == DigraphHalf::First ? 0 : 1];
    }

    void type(BruteForcePath* path) const {
        const char32_t letter = letterToType(*path);
        path->spatial += price::OF_KEY_WIDTHS * aimFactor(keyWidths(path->index, letter));
        if (smallBaseOf(typedAt(path->index)) != smallBaseOf(letter)) {
            path->pay(path->index == 0 ? price::NEAR_KEY_AT_START : price::NEAR_KEY, PathError::NearKey);
            if (path->nearKeys++ == 0) path->spatial += price::FIRST_NEAR_KEY;
        } else {
            path->errors |= path->half != DigraphHalf::None ? PathError::Digraph
                                                            : deviation(typedAt(path->index), letter);
        }
        if (path->prefix.size() == 2 && path->isLaterWord() && isCapital(path->prefix[0])) {
            path->spatial += price::CAPITAL_IN_LATER_WORD;
        }
    }

    /// Compares with what the key stands for in this layout; a letter without a key is like none.
    unsigned deviation(char32_t typed, char32_t meant) const {
        const char32_t key = keyboard_.typedBy(smallOf(typed));
        if (key == meant) return 0;
        if (key == 0) return PathError::Case | PathError::Accent;
        if (smallOf(key) == smallOf(meant)) return PathError::Case;
        return baseOf(key) == baseOf(meant) ? PathError::Accent : PathError::Case | PathError::Accent;
    }

    const ModelKeyboard& keyboard_;
    const TypedWord& typed_;
};

}  // namespace wordengine::testing
