// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/brute_force_path.h"
#include "search/model_costs.h"
#include "search/model_keyboard.h"
#include "search/model_language.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace wordengine::testing {

/// Follows every way in which the input may stand for words of the dictionary, one word and one letter at
/// a time: no trie, no queues, no limits. Exponential, so for small dictionaries only.
class BruteForceSearch {
public:
    BruteForceSearch(const ModelWords& words, const ModelKeyboard& keyboard, const TypedWord& typed,
                     std::u32string previous = {})
        : words_(words), pen_(keyboard, typed) {
        BruteForcePath root;
        root.wordBefore = words.find(previous) ? std::move(previous) : std::u32string();
        expand(root);
    }

    /// In no order.
    const std::vector<BruteForceWord>& found() const { return found_; }
    /// Whether a decision hung on less than what 32-bit sums lose: the engine may take the other one.
    bool isCloseCall() const { return isCloseCall_; }
    /// How many nodes the engine comes to hold at once that have this point before them, the ones that wait
    /// for it to look back included.
    int nodesAt(int point) const {
        const auto i = static_cast<size_t>(point);
        return expanded_[i] + (i > 0 ? waiting_[i - 1] : 0);
    }
    int mostNodesAtOnce() const {
        int most = 0;
        for (int i = 0; i < static_cast<int>(expanded_.size()); ++i) most = std::max(most, nodesAt(i));
        return most;
    }

private:
    static constexpr double MOST_COST_A_POINT = 0.095;

    /// The letters that may follow in some word.
    std::u32string lettersBehind(const std::u32string& prefix) const {
        std::u32string letters;
        for (auto word = words_.words.upper_bound(prefix); word != words_.words.end(); ++word) {
            if (!word->first.starts_with(prefix)) break;
            const char32_t letter = word->first[prefix.size()];
            if (letters.empty() || letters.back() != letter) letters += letter;
        }
        return letters;
    }

    bool allowsCorrections(const BruteForcePath& path) {
        const double costAPoint = path.spatial / (path.index + 1);
        isCloseCall_ |= std::abs(costAPoint - MOST_COST_A_POINT) < 1e-6;
        return costAPoint < MOST_COST_A_POINT;
    }

    void expand(const BruteForcePath& path) {
        ++expanded_[static_cast<size_t>(path.index)];
        if (path.half != DigraphHalf::None) {
            BruteForcePath next = path;
            pen_.typeOrComplete(&next);
            next.half = DigraphHalf::None;
            settle(next);
            return;
        }
        const bool corrects = allowsCorrections(path);
        const bool hasNextPoint = path.index < pen_.points() - 1;
        if (corrects && hasNextPoint && words_.find(path.prefix) && pen_.isNearSpace(path.index)) {
            startNextWord(path, true);
        }
        for (const char32_t letter : lettersBehind(path.prefix)) tryLetter(path, letter, corrects);
        if (!corrects || !hasNextPoint) return;
        ++waiting_[static_cast<size_t>(path.index)];
        trySwap(path);
        tryExtraLetter(path);
    }

    void tryLetter(const BruteForcePath& path, char32_t letter, bool corrects) {
        BruteForcePath child = path.with(letter);
        if (path.index >= pen_.points()) {
            pen_.typeOrComplete(&child);
            settle(child);
            return;
        }
        if (words_.usesUmlauts && !pen_.umlautHalves(letter).empty()) tryUmlaut(child);
        const bool mayBeLeftOut =
            isJoiner(path.last()) || smallBaseOf(letter) != smallBaseOf(pen_.typedAt(path.index));
        if ((corrects || isJoiner(letter)) && mayBeLeftOut) tryOmission(child);
        if (!pen_.fits(path.index, letter)) {
            if (!corrects) return;
            child.payEdit(price::SUBSTITUTED);
        }
        pen_.typeOrComplete(&child);
        settle(child);
    }

    void tryUmlaut(BruteForcePath path) {
        path.half = DigraphHalf::First;
        pen_.typeOrComplete(&path);
        path.half = DigraphHalf::Second;
        settle(path);
    }

    /// The path's last letter was not typed.
    void tryOmission(const BruteForcePath& path) {
        for (const char32_t letter : lettersBehind(path.prefix)) {
            if (!pen_.fits(path.index, letter)) continue;
            BruteForcePath behind = path.with(letter);
            if (isJoiner(path.last())) {
                behind.pay(path.last() == U'-' ? price::OMITTED_HYPHEN : 0, PathError::JoinerLeftOut);
            } else {
                behind.payEdit(behind.prefix.size() == 2 ? price::OMITTED_FIRST
                               : letter == path.last()   ? price::OMITTED_DOUBLE
                                                         : price::OMITTED);
            }
            pen_.typeOrComplete(&behind);
            settle(behind);
        }
    }

    void trySwap(const BruteForcePath& path) {
        for (const char32_t first : lettersBehind(path.prefix)) {
            if (!pen_.fits(path.index + 1, first)) continue;
            for (const char32_t second : lettersBehind(path.prefix + first)) {
                if (!pen_.fits(path.index, second)) continue;
                BruteForcePath swapped = path.with(first).with(second);
                swapped.payEdit(price::SWAPPED +
                                price::OF_KEY_WIDTHS * (pen_.keyWidths(path.index + 1, first) +
                                                        pen_.keyWidths(path.index, second)));
                swapped.index += 2;
                settle(swapped);
            }
        }
    }

    void tryExtraLetter(const BruteForcePath& path) {
        const char32_t letter = pen_.typedAt(path.index + 1);
        if (lettersBehind(path.prefix).find(letter) == std::u32string::npos) return;
        BruteForcePath child = path.with(letter);
        double cost = child.prefix.size() == 1 ? price::INSERTED_FIRST : 0;
        cost += pen_.typedAt(path.index) == letter        ? price::INSERTED_TWICE
                : pen_.isBesideNeighbourPoint(path.index) ? price::INSERTED_NEAR
                                                          : price::INSERTED;
        child.payEdit(cost + price::OF_KEY_WIDTHS * pen_.keyWidths(path.index + 1, letter));
        child.index += 2;
        settle(child);
    }

    /// What a path is good for once a letter has been taken in.
    void settle(const BruteForcePath& path) {
        if (path.spatial + path.language >= 1e7) return;
        const bool isWord = words_.find(path.prefix) != nullptr;
        const bool isAtEnd = path.index >= pen_.points();
        if (isWord && !path.isLoneLetterAgain()) {
            finish(path);
            if (!isAtEnd) startNextWord(path, false);
        }
        if (!lettersBehind(path.prefix).empty() && !(isAtEnd && path.isLaterWord())) expand(path);
    }

    void finish(BruteForcePath path) {
        if (path.edits + path.completions >= static_cast<int>(path.prefix.size())) return;
        const int unused = pen_.points() - path.index;
        const int index = path.index;
        if (unused > 0) path.payEdit(price::INSERTED_BEHIND * unused);
        if (path.isLaterWord()) path.spatial += price::SEVERAL_WORDS_AT_END;
        if (path.nearKeys > 0) path.spatial += price::NEAR_KEY_AT_END;
        if (path.edits > 0) path.spatial += price::EDIT_AT_END;
        path.language += languageOf(path);
        const ModelWord& word = *words_.find(path.prefix);
        found_.push_back({path.wordsBefore + path.prefix, path.spatial + path.language, path.errors, index,
                          path.isLaterWord(), !word.isNotAWord, word.probability == 0,
                          isCapital(path.prefix[0])});
    }

    double languageOf(const BruteForcePath& path) const {
        const bool isNotAWord = words_.find(path.prefix)->isNotAWord;
        if (path.isLaterWord() && (isNotAWord || path.isLoneLetterAgain())) return 1e7 * price::LANGUAGE;
        return languageCost(words_.probabilityAfter(path.wordBefore, path.prefix));
    }

    void startNextWord(const BruteForcePath& path, bool letterWasHit) {
        const int probability = words_.find(path.prefix)->probability;
        const bool isShortCapital = path.prefix.size() < 4 && isCapital(path.prefix[0]);
        if (probability < (isShortCapital ? 120 : 40)) return;
        BruteForcePath next = path;
        next.language += languageOf(path);
        const double cost = letterWasHit ? price::SPACE_HIT_AS_LETTER + price::NEW_WORD : price::NEW_WORD;
        next.pay(cost * words_.furtherWordFactor(), PathError::NewWord);
        next.index += letterWasHit ? 1 : 0;
        next.wordsBefore += path.prefix + U" ";
        next.wordBefore = path.prefix;
        next.prefix.clear();
        next.half = DigraphHalf::None;
        if (next.spatial + next.language < 1e7) expand(next);
    }

    const ModelWords& words_;
    BruteForcePen pen_;
    std::vector<BruteForceWord> found_;
    std::array<int, 128> expanded_{};
    std::array<int, 128> waiting_{};
    bool isCloseCall_ = false;
};

}  // namespace wordengine::testing
