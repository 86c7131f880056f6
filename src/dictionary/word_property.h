// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "text/engine_constants.h"

#include <utility>
#include <vector>

namespace wordengine {

/// What a dictionary knows, or is to be told, about one word by itself.
class UnigramProperty {
public:
    class ShortcutProperty {
    public:
        ShortcutProperty(std::vector<int> targetCodePoints, int probability)
            : targetCodePoints_(std::move(targetCodePoints)), probability_(probability) {}

        const std::vector<int>& getTargetCodePoints() const { return targetCodePoints_; }
        int getProbability() const { return probability_; }

    private:
        std::vector<int> targetCodePoints_;
        int probability_;
    };

    UnigramProperty() = default;
    UnigramProperty(bool representsBeginningOfSentence, bool isNotAWord, bool isBlacklisted, int probability,
                    int timestamp, int level, int count, std::vector<ShortcutProperty> shortcuts = {})
        : representsBeginningOfSentence_(representsBeginningOfSentence),
          isNotAWord_(isNotAWord),
          isBlacklisted_(isBlacklisted),
          probability_(probability),
          timestamp_(timestamp),
          level_(level),
          count_(count),
          shortcuts_(std::move(shortcuts)) {}

    bool representsBeginningOfSentence() const { return representsBeginningOfSentence_; }
    bool isNotAWord() const { return isNotAWord_; }
    bool isBlacklisted() const { return isBlacklisted_; }
    int getProbability() const { return probability_; }
    /// Seconds since the epoch, or -1 in formats without history.
    int getTimestamp() const { return timestamp_; }
    int getLevel() const { return level_; }
    int getCount() const { return count_; }
    const std::vector<ShortcutProperty>& getShortcuts() const { return shortcuts_; }

private:
    bool representsBeginningOfSentence_ = false;
    bool isNotAWord_ = false;
    bool isBlacklisted_ = false;
    int probability_ = NO_PROBABILITY;
    int timestamp_ = -1;
    int level_ = 0;
    int count_ = 0;
    std::vector<ShortcutProperty> shortcuts_;
};

/// One word that may follow another, and how likely.
class BigramProperty {
public:
    BigramProperty(std::vector<int> targetCodePoints, int probability, int timestamp, int level, int count)
        : targetCodePoints_(std::move(targetCodePoints)),
          probability_(probability),
          timestamp_(timestamp),
          level_(level),
          count_(count) {}

    const std::vector<int>& getTargetCodePoints() const { return targetCodePoints_; }
    int getProbability() const { return probability_; }
    int getTimestamp() const { return timestamp_; }
    int getLevel() const { return level_; }
    int getCount() const { return count_; }

private:
    std::vector<int> targetCodePoints_;
    int probability_;
    int timestamp_;
    int level_;
    int count_;
};

/// Everything that a dictionary holds about one word; empty for a word that it does not have.
class WordProperty {
public:
    WordProperty() = default;
    WordProperty(const std::vector<int>* codePoints, const UnigramProperty* unigramProperty,
                 const std::vector<BigramProperty>* bigrams)
        : codePoints_(*codePoints), unigramProperty_(*unigramProperty), bigrams_(*bigrams) {}

    const std::vector<int>& getCodePoints() const { return codePoints_; }
    const UnigramProperty& getUnigramProperty() const { return unigramProperty_; }
    const std::vector<BigramProperty>& getBigramProperties() const { return bigrams_; }

private:
    std::vector<int> codePoints_;
    UnigramProperty unigramProperty_;
    std::vector<BigramProperty> bigrams_;
};

}  // namespace wordengine
