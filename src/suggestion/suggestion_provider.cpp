// SPDX-License-Identifier: Apache-2.0
#include "suggestion/suggestion_provider.h"

#include "dictionary/dictionary_structure_with_buffer_policy_factory.h"
#include "dictionary/prev_words_info.h"
#include "search/results/autocorrection_threshold_utils.h"
#include "search/results/suggestion_results.h"
#include "search/suggest_options.h"
#include "suggestion/dictionary_fault.h"
#include "text/char_utils.h"
#include "text/diagnostics.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

namespace vorpel {

using wordengine::SuggestedWord;
using wordengine::SuggestionResults;

namespace {

constexpr int UTF8_BUFFER_SIZE = 50;
constexpr int SHORTEST_GUARDED_WORD = 4;
// Far beyond any screen, and small enough that squares of differences stay well inside a float.
constexpr float FARTHEST_TOUCH = 100000.0f;

std::string toUtf8(const int* codePoints, int count) {
    char buffer[UTF8_BUFFER_SIZE];
    const int size = wordengine::CharUtils::codePointsToUtf8(codePoints, count, buffer, UTF8_BUFFER_SIZE);
    return {buffer, static_cast<std::size_t>(size)};
}

int truncateTouch(float value) {
    if (std::isnan(value)) return SuggestionProvider::NO_TOUCH_COORDINATE;
    return static_cast<int>(std::clamp(value, -FARTHEST_TOUCH, FARTHEST_TOUCH));
}

/// Best score first; among equal scores the order in which the queue gave the words up stands, which
/// is the longer word first.
std::vector<SuggestedWord> drainByScore(const SuggestionResults& results) {
    auto queue = results.getSuggestedWords();
    std::vector<SuggestedWord> words;
    words.reserve(queue.size());
    for (; !queue.empty(); queue.pop()) words.push_back(queue.top());
    std::stable_sort(words.begin(), words.end(), [](const SuggestedWord& left, const SuggestedWord& right) {
        return left.getScore() > right.getScore();
    });
    return words;
}

}  // namespace

std::string toUtf8(const SuggestedWord& word) {
    return toUtf8(word.getCodePoint(), word.getCodePointCount());
}

std::vector<std::string> toUtf8Strings(const std::vector<SuggestedWord>& words) {
    std::vector<std::string> strings;
    strings.reserve(words.size());
    for (const SuggestedWord& word : words) strings.push_back(toUtf8(word));
    return strings;
}

SuggestionProvider::SuggestionProvider(const std::string& dictionaryPath,
                                       const std::string& proximityDirectory, const std::string& language)
    : proximityProvider_(std::make_unique<ProximityProvider>(proximityDirectory, language)) {
    openDictionary(dictionaryPath);
}

SuggestionProvider::SuggestionProvider(const std::string& language, const std::string& dictionaryPath,
                                       int width, int height, int keyCount, int* keyCodes, int* upperKeyCodes,
                                       int* xs, int* ys, int* widths, int* heights,
                                       const std::string& lowerGeometryPath,
                                       const std::string& upperGeometryPath) {
    // The first key's size stands in for the commonest one: the letters come first.
    const int keyWidth = keyCount > 0 ? widths[0] : 0;
    const int keyHeight = keyCount > 0 ? heights[0] : 0;
    std::string locale = language;
    proximityProvider_ = std::make_unique<ProximityProvider>(
        locale.data(), width, height, keyWidth, keyHeight, keyCount, xs, ys, widths, heights, upperKeyCodes,
        keyCodes, lowerGeometryPath, upperGeometryPath);
    openDictionary(dictionaryPath);
}

SuggestionProvider::~SuggestionProvider() = default;

void SuggestionProvider::openDictionary(const std::string& dictionaryPath) {
    dictionaryPath_ = dictionaryPath;
    const int size = static_cast<int>(get_file_size(dictionaryPath));
    auto policy = wordengine::DictionaryStructureWithBufferPolicyFactory::newPolicyForExistingDictFile(
        dictionaryPath.c_str(), 0, size, false);
    dictionary_ = std::make_unique<wordengine::Dictionary>(std::move(policy));
    session_ = std::make_unique<wordengine::DicTraverseSession>(
        size >= wordengine::DicTraverseSession::DICTIONARY_SIZE_THRESHOLD_TO_USE_LARGE_CACHE_FOR_SUGGESTION);
}

long SuggestionProvider::get_file_size(const std::string& path) {
    std::error_code error;
    // Opening a pipe would wait for somebody to write into it.
    if (!std::filesystem::is_regular_file(path, error)) return -1;
    std::ifstream file(path, std::ios::binary | std::ios::ate);
    if (!file) return -1;
    return static_cast<int>(static_cast<std::streamoff>(file.tellg()));
}

std::vector<std::string> SuggestionProvider::getSuggestions(int maxResults, int* word, int wordLength,
                                                            wordengine::PrevWordsInfo* prevWordsInfo,
                                                            wordengine::SuggestOptions* options,
                                                            bool& refused, bool& canAutoCorrect,
                                                            KeyCoordinate* coordinate) {
    const RankedSuggestions ranked =
        rankSuggestions(maxResults, word, wordLength, prevWordsInfo, options, coordinate);
    refused = ranked.refused;
    canAutoCorrect = ranked.canAutoCorrect;
    return toUtf8Strings(ranked.words);
}

RankedSuggestions SuggestionProvider::rankSuggestions(int maxResults, int* word, int wordLength,
                                                      wordengine::PrevWordsInfo* prevWordsInfo,
                                                      wordengine::SuggestOptions* options,
                                                      KeyCoordinate* coordinate) {
    if (wordLength < 1 || wordLength > wordengine::WORD_LENGTH_LIMIT) return {};
    // The last letter alone chooses the layout: a word that ends in a capital searches the capitals' page.
    const int lastCodePoint = word[wordLength - 1];
    wordengine::ProximityInfo* proximityInfo = proximityProvider_->getProximity(lastCodePoint);
    if (!proximityInfo) return {};
    placeTouch(lastCodePoint, static_cast<std::size_t>(wordLength - 1), *coordinate);
    SuggestionResults results(maxResults);
    dictionary_->getSuggestions(proximityInfo, session_.get(), xCoordinates_.data(), yCoordinates_.data(),
                                times_.data(), pointerIds_.data(), word, wordLength, prevWordsInfo, options,
                                languageWeight_, &results);

    const std::string typedWord = toUtf8(word, wordLength);
    RankedSuggestions ranked;
    for (SuggestedWord& candidate : drainByScore(results)) {
        if (toUtf8(candidate) == typedWord) {
            ranked.typedWordFound = true;
        } else {
            ranked.words.push_back(std::move(candidate));
        }
    }
    judge(ranked, word, wordLength, typedWord);
    return ranked;
}

void SuggestionProvider::placeTouch(int codePoint, std::size_t index, const KeyCoordinate& coordinate) {
    const KeyCoordinate key = proximityProvider_->keyCenter(codePoint);
    const int touchX = truncateTouch(coordinate.x);
    const int touchY = truncateTouch(coordinate.y);
    xCoordinates_[index] = touchX == NO_TOUCH_COORDINATE ? truncateTouch(key.x) : touchX;
    yCoordinates_[index] = touchY == NO_TOUCH_COORDINATE ? truncateTouch(key.y) : touchY;
}

void SuggestionProvider::judge(RankedSuggestions& ranked, const int* word, int wordLength,
                               const std::string& typedWord) const {
    const bool firstIsWhitelisted = !ranked.words.empty() && isWhiteListedWord(ranked.words.front());
    // Only a whitelisted word must show that the typed word was no result itself.
    const bool allowed = !firstIsWhitelisted || (typedWord.size() > 1 && !ranked.typedWordFound);
    ranked.refused = !typedWord.empty() && !allowed;
    ranked.canAutoCorrect = !ranked.words.empty() && !ranked.typedWordFound && allowed &&
                            suggestionExceedsAutoCorrectionThreshold(ranked.words.front(), word, wordLength,
                                                                     AUTO_CORRECTION_THRESHOLD);
}

std::vector<SuggestedWord> SuggestionProvider::rankPredictions(int maxResults,
                                                               wordengine::PrevWordsInfo* prevWordsInfo) {
    SuggestionResults results(maxResults);
    dictionary_->getPredictions(prevWordsInfo, &results);
    return drainByScore(results);
}

std::vector<std::string> SuggestionProvider::getPredictions(int maxResults,
                                                            wordengine::PrevWordsInfo* prevWordsInfo) {
    return toUtf8Strings(rankPredictions(maxResults, prevWordsInfo));
}

std::vector<std::string> SuggestionProvider::getEmptySuggestions(int maxResults,
                                                                 wordengine::PrevWordsInfo* prevWordsInfo) {
    return getPredictions(maxResults, prevWordsInfo);
}

bool SuggestionProvider::isWhiteListedWord(const SuggestedWord& word) const {
    return word.getType() == SuggestedWord::KIND_WHITELIST;
}

bool SuggestionProvider::suggestionExceedsAutoCorrectionThreshold(const SuggestedWord& suggestion,
                                                                  const int* typedWord, int typedLength,
                                                                  float threshold) const {
    if (isWhiteListedWord(suggestion)) return true;
    const float normalizedScore = wordengine::AutocorrectionThresholdUtils::calcNormalizedScore(
        typedWord, typedLength, suggestion.getCodePoint(), suggestion.getCodePointCount(),
        suggestion.getScore());
    // Written so that a score that is no number fails too.
    if (!(normalizedScore >= threshold)) return false;
    return !shouldBlockAutoCorrectionBySafetyNet(typedWord, typedLength, suggestion.getCodePoint(),
                                                 suggestion.getCodePointCount());
}

bool SuggestionProvider::shouldBlockAutoCorrectionBySafetyNet(const int* typedWord, int typedLength,
                                                              const int* suggestion,
                                                              int suggestionLength) const {
    if (typedLength < SHORTEST_GUARDED_WORD) return false;
    const int allowedDistance = typedLength / 2 + 1;
    return wordengine::AutocorrectionThresholdUtils::editDistance(typedWord, typedLength, suggestion,
                                                                  suggestionLength) > allowedDistance;
}

std::string SuggestionProvider::getWhitelistedWordOrNull(const std::vector<SuggestedWord>& words) const {
    if (words.empty() || !isWhiteListedWord(words.back())) return {};
    return toUtf8(words.back());
}

bool SuggestionProvider::getSuggestedWordsExcludingTypedWordsForRecorrection(
    std::vector<SuggestedWord>& words, const std::string& typedWord) const {
    const auto isTypedWord = [&](const SuggestedWord& word) {
        wordengine::Diagnostics::print("currentSuggestion.getType(): %d\n", word.getType());
        return word.getType() != 0 && toUtf8(word) == typedWord;
    };
    return std::erase_if(words, isTypedWord) > 0;
}

std::optional<std::string> SuggestionProvider::findDictionaryFault() const {
    return vorpel::findDictionaryFault(dictionaryPath_, dictionary_->getDictionaryStructurePolicy());
}

const wordengine::SearchStatistics& SuggestionProvider::searchStatistics() const {
    return session_->getStatistics();
}

}  // namespace vorpel
