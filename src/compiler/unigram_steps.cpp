// SPDX-License-Identifier: Apache-2.0
#include "compiler/unigram_steps.h"

#include "compiler/list_readers.h"
#include "compiler/probability_scale.h"
#include "compiler/slip_steps.h"
#include "compiler/word_text.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace vorpel::compiler {

Lexicon UnigramSteps::run() {
    readExcludes();
    readVocabularies();
    readFloorsAndSeeds();
    mixSources();
    if (recipe_.caseTwins) dropCaseTwins();
    pullSeeds();
    if (recipe_.cap) capUnseeded();
    raiseToFloors();
    readOffensives();
    if (recipe_.slips) report_->slipsDropped = dropSlips(*recipe_.slips, &lexicon_);
    limitAndScale();
    markOffensive();
    return std::move(lexicon_);
}

void UnigramSteps::readExcludes() {
    for (const SourceFile& source : recipe_.excludes) {
        std::optional<ListFile> file = opener_->open(source);
        if (!file) continue;
        readWordList(*file,
                     [this](std::string_view word) { lexicon_[lexicon_.intern(word)].isExcluded = true; });
    }
}

void UnigramSteps::readVocabularies() {
    for (const SourceFile& source : recipe_.vocabularies) {
        std::optional<ListFile> file = opener_->open(source);
        if (!file) continue;
        hasVocabulary_ = true;
        report_->unusableEntries += readVocabulary(
            *file, [this](std::string_view word) { lexicon_[lexicon_.intern(word)].isInVocabulary = true; });
    }
}

void UnigramSteps::readFloorsAndSeeds() {
    for (const SourceFile& source : recipe_.floors) {
        std::optional<ListFile> file = opener_->open(source);
        if (!file) continue;
        report_->unusableEntries += readFloors(*file, [this](std::string_view word, double probability) {
            Lexicon::Lexeme& lexeme = lexicon_[lexicon_.intern(word)];
            lexeme.isInVocabulary = true;
            lexeme.floor = std::max(lexeme.floor, probability);
        });
    }
    for (const SeedSource& source : recipe_.seeds) readSeedFile(source);
}

void UnigramSteps::readSeedFile(const SeedSource& source) {
    std::optional<ListFile> file = opener_->open(source.file);
    if (!file) return;
    readSeed(*file, [&](std::string_view word, double tier) {
        Lexicon::Lexeme& lexeme = lexicon_[lexicon_.intern(word)];
        const auto warn = [&](const char* what) {
            report_->warnings.push_back(file->place() + ": \"" + std::string(word) + "\" " + what);
        };
        if (lexeme.isSeeded()) warn("stands in several tiers; the highest counts");
        if (lexeme.isExcluded) warn("is excluded; the seed does not bring it back");
        lexeme.isInVocabulary = true;
        lexeme.staysAsSlip = lexeme.staysAsSlip || source.keepsSlips;
        if (tier > lexeme.tier) {
            lexeme.tier = tier;
            lexeme.tierMayLower = source.direction == SeedDirection::BOTH;
        }
    });
}

void UnigramSteps::mixSources() {
    double weights = 0.0;
    for (const WordSource& source : recipe_.words) weights += readWordSource(source);
    for (const ArpaSource& source : recipe_.arpas) weights += readArpaSource(source.file, source.weight);
    if (weights == 0.0) return;
    for (Lexicon::Lexeme& lexeme : lexicon_.all()) lexeme.frequency /= weights;
}

/// Returns the weight that the source brought; 0 for one that is missing or empty.
double UnigramSteps::readWordSource(const WordSource& source) {
    return source.kind == WordSourceKind::ARPA ? readArpaSource(source.file, source.weight)
                                               : readCountedSource(source);
}

double UnigramSteps::readArpaSource(const SourceFile& source, double weight) {
    std::optional<ListFile> file = opener_->open(source);
    if (!file) return 0.0;
    ArpaVisitor visitor;
    visitor.unigram = [this, weight](std::string_view word, double probability) {
        addFrequency(word, weight * probability);
    };
    report_->unusableEntries += readArpa(*file, visitor);
    return weight;
}

double UnigramSteps::readCountedSource(const WordSource& source) {
    std::optional<ListFile> file = opener_->open(source.file);
    if (!file) return 0.0;
    double total = 0.0;
    std::vector<std::pair<int, double>> counts;
    report_->unusableEntries += readWordCounts(*file, [&](std::string_view word, double count) {
        const int index = hasVocabulary_ ? lexicon_.find(word) : lexicon_.intern(word);
        if (index == Lexicon::NONE || lexicon_[index].isExcluded) return;
        if (hasVocabulary_ && !lexicon_[index].isInVocabulary) return;
        counts.emplace_back(index, count);
        total += count;
    });
    if (total == 0.0) return 0.0;
    const double divisor = source.kind == WordSourceKind::COUNTS ? total : 1.0;
    for (const auto& [index, count] : counts) lexicon_[index].frequency += source.weight * count / divisor;
    return source.weight;
}

void UnigramSteps::addFrequency(std::string_view word, double frequency) {
    const int index = hasVocabulary_ ? lexicon_.find(word) : lexicon_.intern(word);
    if (index == Lexicon::NONE || lexicon_[index].isExcluded) return;
    if (!hasVocabulary_ || lexicon_[index].isInVocabulary) lexicon_[index].frequency += frequency;
}

void UnigramSteps::dropCaseTwins() {
    std::vector<bool> isKept(lexicon_.size(), false);
    if (recipe_.caseTwins->keep) {
        if (std::optional<ListFile> file = opener_->open(*recipe_.caseTwins->keep)) {
            readWordList(*file, [&](std::string_view word) {
                const int index = lexicon_.find(word);
                if (index != Lexicon::NONE) isKept[index] = true;
            });
        }
    }
    for (int index = 0; index < lexicon_.size(); ++index) {
        Lexicon::Lexeme& capital = lexicon_[index];
        if (isKept[index] || !capital.isCandidate()) continue;
        const std::optional<std::string> smallForm = withSmallFirstLetter(capital.word);
        const int twin = smallForm ? lexicon_.find(*smallForm) : Lexicon::NONE;
        if (twin == Lexicon::NONE || !lexicon_[twin].isCandidate()) continue;
        Lexicon::Lexeme& small = lexicon_[twin];
        if (keepsCapital(capital, small)) continue;
        small.frequency += capital.frequency;
        capital.twin = twin;
        ++report_->caseTwinsDropped;
    }
}

bool UnigramSteps::keepsCapital(const Lexicon::Lexeme& capital, const Lexicon::Lexeme& small) const {
    if (capital.isSeeded()) return true;
    const double capitalShare = std::max(capital.frequency, capital.floor);
    const double smallCounted = std::max(small.frequency, small.floor);
    // A small twin that only a seed knows has no share of its own yet.
    const double smallShare = smallCounted > 0.0 ? smallCounted : small.tier;
    return capitalShare >= recipe_.caseTwins->share * (capitalShare + smallShare);
}

void UnigramSteps::pullSeeds() {
    constexpr double UNSEEN_SHARE_OF_TIER = 1.0 / 20.0;
    for (Lexicon::Lexeme& lexeme : lexicon_.all()) {
        if (!lexeme.isSeeded() || !lexeme.isCandidate()) continue;
        const double counted = lexeme.frequency + lexeme.tier * UNSEEN_SHARE_OF_TIER;
        const double pulled = std::exp((2.0 * std::log(lexeme.tier) + std::log(counted)) / 3.0);
        lexeme.frequency = lexeme.tierMayLower ? pulled : std::max(lexeme.frequency, pulled);
    }
}

void UnigramSteps::capUnseeded() {
    for (Lexicon::Lexeme& lexeme : lexicon_.all()) {
        if (lexeme.isSeeded() || lexeme.frequency <= recipe_.cap->above) continue;
        lexeme.frequency =
            recipe_.cap->above * std::pow(lexeme.frequency / recipe_.cap->above, recipe_.cap->exponent);
    }
}

void UnigramSteps::raiseToFloors() {
    for (Lexicon::Lexeme& lexeme : lexicon_.all())
        lexeme.frequency = std::max(lexeme.frequency, lexeme.floor);
}

void UnigramSteps::limitAndScale() {
    std::vector<Lexicon::Lexeme*> words;
    for (Lexicon::Lexeme& lexeme : lexicon_.all()) {
        if (lexeme.isCandidate()) words.push_back(&lexeme);
        if (lexeme.isExcluded) ++report_->excludedWords;
    }
    std::ranges::sort(words, [](const Lexicon::Lexeme* a, const Lexicon::Lexeme* b) {
        return std::tuple(!a->isSeeded(), -a->frequency, a->word) <
               std::tuple(!b->isSeeded(), -b->frequency, b->word);
    });
    size_t kept = words.size();
    if (recipe_.limit.words) {
        const auto seeded = std::ranges::count_if(words, &Lexicon::Lexeme::isSeeded);
        kept = std::min(kept, static_cast<size_t>(std::max<int64_t>(*recipe_.limit.words, seeded)));
    }
    report_->wordsBeyondLimit = static_cast<int>(words.size() - kept);
    words.resize(kept);
    for (Lexicon::Lexeme* lexeme : words) lexeme->probability = toScale(recipe_.scale, lexeme->frequency);
}

void UnigramSteps::readOffensives() {
    for (const SourceFile& source : recipe_.offensives) {
        std::optional<ListFile> file = opener_->open(source);
        if (!file) continue;
        readWordList(*file,
                     [this](std::string_view word) { lexicon_[lexicon_.intern(word)].isOffensive = true; });
    }
}

void UnigramSteps::markOffensive() {
    std::vector<int> capitals;
    for (int index = 0; index < lexicon_.size(); ++index) {
        if (lexicon_[index].isOffensive && lexicon_.findInDictionary(lexicon_[index].word) == Lexicon::NONE) {
            ++report_->unknownOffensiveWords;
        }
        if (!lexicon_[index].probability || lexicon_[index].isOffensive) continue;
        const std::optional<std::string> smallForm = withSmallFirstLetter(lexicon_[index].word);
        const int twin = smallForm ? lexicon_.find(*smallForm) : Lexicon::NONE;
        if (twin != Lexicon::NONE && lexicon_[twin].isOffensive) capitals.push_back(index);
    }
    for (const int index : capitals) lexicon_[index].isOffensive = true;
    for (Lexicon::Lexeme& lexeme : lexicon_.all()) {
        if (!lexeme.probability || !lexeme.isOffensive) continue;
        lexeme.probability = 0;
        ++report_->offensiveWords;
    }
}

}  // namespace vorpel::compiler
