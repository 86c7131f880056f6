// SPDX-License-Identifier: Apache-2.0
#include "compiler/pair_steps.h"

#include "compiler/list_readers.h"
#include "compiler/probability_scale.h"

#include <algorithm>
#include <set>
#include <string>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace vorpel::compiler {

std::vector<WordPair> PairSteps::run() {
    totals_.assign(lexicon_.size(), 0.0);
    seedCounts_.assign(lexicon_.size(), 0);
    readSeeds();
    readCounts();
    mergeCounts();
    judgeCounts();
    limitPerWord();
    limitAll();
    report_->seedPairs = static_cast<int>(seeds_.size());
    report_->pairs = static_cast<int>(seeds_.size() + counted_.size());
    return strengthened();
}

void PairSteps::readSeeds() {
    for (const PairsSeedSource& source : recipe_.pairsSeeds) {
        std::optional<ListFile> file = opener_->open(source.file);
        if (!file) continue;
        readPairsSeed(*file, [&](const auto& words) { addSeed(words, source, *file); });
    }
    std::set<std::pair<int, int>> known;
    std::erase_if(seeds_,
                  [&known](const Candidate& pair) { return !known.emplace(pair.first, pair.second).second; });
}

void PairSteps::addSeed(const std::vector<std::string_view>& words, const PairsSeedSource& source,
                        const ListFile& file) {
    const auto skip = [&](std::string_view word, const char* why) {
        ++report_->seedPairsSkipped;
        report_->warnings.push_back(file.place() + ": \"" + std::string(word) + "\" " + why);
    };
    const int first = lexicon_.findInDictionary(words[0]);
    if (first == Lexicon::NONE) return skip(words[0], "is not in the dictionary; its pairs are skipped");
    for (size_t i = 1; i < words.size(); ++i) {
        const int wanted = std::max(source.top - source.step * seedCounts_[first]++, 0);
        const int second = lexicon_.findInDictionary(words[i]);
        if (second == Lexicon::NONE) {
            skip(words[i], "is not in the dictionary; the pair is skipped");
        } else if (lexicon_[second].isOffensive) {
            skip(words[i], "is offensive; the pair is skipped");
        } else {
            seeds_.push_back({first, second, 0.0, 0.0, wanted, true});
        }
    }
}

void PairSteps::readCounts() {
    for (const NgramSource& source : recipe_.ngrams) {
        std::optional<ListFile> file = opener_->open(source.file);
        if (!file) continue;
        report_->unusableEntries +=
            readPairCounts(*file, [&](std::string_view first, std::string_view second, double count) {
                addCount(first, second, source.weight * count);
            });
    }
    for (const ArpaSource& source : recipe_.arpas) readArpaCounts(source);
}

void PairSteps::readArpaCounts(const ArpaSource& source) {
    std::optional<ListFile> file = opener_->open(source.file);
    if (!file) return;
    std::unordered_map<std::string, double> unigrams;
    ArpaVisitor visitor;
    visitor.unigram = [&](std::string_view word, double probability) {
        unigrams[std::string(word)] = probability;
    };
    visitor.bigram = [&](std::string_view first, std::string_view second, double probability) {
        const auto known = unigrams.find(std::string(first));
        if (known == unigrams.end()) return;
        addCount(first, second, source.weight * source.tokens * known->second * probability);
    };
    readArpa(*file, visitor);
}

void PairSteps::addCount(std::string_view first, std::string_view second, double count) {
    const int firstIndex = lexicon_.findInDictionary(first);
    if (firstIndex == Lexicon::NONE) return;
    totals_[firstIndex] += count;
    const int secondIndex = lexicon_.findInDictionary(second);
    if (secondIndex == Lexicon::NONE || lexicon_[secondIndex].isOffensive) return;
    counted_.push_back({firstIndex, secondIndex, count, 0.0, 0, false});
}

/// One candidate a pair, and none for the pairs that were written by hand.
void PairSteps::mergeCounts() {
    const auto key = [](const Candidate& pair) { return std::pair(pair.first, pair.second); };
    // Stable, so that equal pairs are summed in the order of the sources.
    std::ranges::stable_sort(counted_, {}, key);
    std::vector<Candidate> merged;
    for (const Candidate& pair : counted_) {
        if (merged.empty() || key(merged.back()) != key(pair)) {
            merged.push_back(pair);
        } else {
            merged.back().count += pair.count;
        }
    }
    std::set<std::pair<int, int>> seeded;
    for (const Candidate& seed : seeds_) seeded.insert(key(seed));
    std::erase_if(merged, [&](const Candidate& pair) { return seeded.contains(key(pair)); });
    counted_ = std::move(merged);
}

void PairSteps::judgeCounts() {
    std::erase_if(counted_, [this](Candidate& pair) { return !isWorthAPlace(&pair); });
}

bool PairSteps::isWorthAPlace(Candidate* pair) {
    constexpr double LEAST_COUNT = 0.05;
    if (pair->count < recipe_.pairs.minimum) {
        ++report_->pairsBelowMinimum;
        return false;
    }
    pair->share = std::max(pair->count - recipe_.pairs.discount, LEAST_COUNT) /
                  (totals_[pair->first] + recipe_.pairs.prior);
    pair->wanted = toScale(recipe_.scale, pair->share);
    if (pair->wanted > *lexicon_[pair->second].probability) return true;
    ++report_->pairsThatTellNothing;
    return false;
}

void PairSteps::limitPerWord() {
    std::ranges::sort(counted_, [this](const Candidate& a, const Candidate& b) {
        if (a.first != b.first) return a.first < b.first;
        if (a.share != b.share) return a.share > b.share;
        return precedesByCodePoints(a, b);
    });
    std::vector<int> taken(lexicon_.size(), 0);
    for (const Candidate& seed : seeds_) ++taken[seed.first];
    const size_t before = counted_.size();
    std::erase_if(counted_,
                  [&](const Candidate& pair) { return ++taken[pair.first] > recipe_.pairs.perWord; });
    report_->pairsBeyondPerWord = static_cast<int>(before - counted_.size());
}

void PairSteps::limitAll() {
    if (!recipe_.limit.pairs) return;
    const size_t limit = static_cast<size_t>(*recipe_.limit.pairs);
    const size_t room = limit > seeds_.size() ? limit - seeds_.size() : 0;
    if (counted_.size() <= room) return;
    std::ranges::sort(counted_, [this](const Candidate& a, const Candidate& b) {
        return a.count != b.count ? a.count > b.count : precedesByCodePoints(a, b);
    });
    report_->pairsBeyondLimit = static_cast<int>(counted_.size() - room);
    counted_.resize(room);
}

bool PairSteps::precedesByCodePoints(const Candidate& a, const Candidate& b) const {
    return std::tuple(lexicon_[a.first].word, lexicon_[a.second].word) <
           std::tuple(lexicon_[b.first].word, lexicon_[b.second].word);
}

std::vector<WordPair> PairSteps::strengthened() const {
    std::vector<WordPair> pairs;
    for (const auto* part : {&seeds_, &counted_}) {
        for (const Candidate& pair : *part) {
            const int unigram = *lexicon_[pair.second].probability;
            pairs.push_back({pair.first, pair.second, strengthNearest(unigram, pair.wanted)});
        }
    }
    std::ranges::sort(pairs, [this](const WordPair& a, const WordPair& b) {
        return std::tuple(a.first, -a.strength, lexicon_[a.second].word) <
               std::tuple(b.first, -b.strength, lexicon_[b.second].word);
    });
    return pairs;
}

}  // namespace vorpel::compiler
