// SPDX-License-Identifier: Apache-2.0
#include "suggestion/word_request.h"

#include "dictionary/prev_words_info.h"
#include "search/suggest_options.h"
#include "suggestion/vp_word_suggestions.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <array>

namespace vorpel {

namespace {

using WordBuffer = std::array<int, wordengine::WORD_LENGTH_LIMIT>;

constexpr std::size_t OPTION_COUNT = 4;

WordBuffer toBuffer(const std::u32string& word) {
    WordBuffer buffer;
    buffer.fill(wordengine::NO_CODE_POINT);
    std::copy_n(word.begin(), std::min(word.size(), buffer.size()), buffer.begin());
    return buffer;
}

/// A word that is too long for the buffer is no context at all, rather than half of one.
wordengine::PrevWordsInfo makeContext(const std::u32string& prevWord) {
    const WordBuffer buffer = toBuffer(prevWord);
    return {buffer.data(), static_cast<int>(prevWord.size()), false};
}

}  // namespace

RankedSuggestions getRankedSuggestionForInput(const std::u32string& word, const std::u32string& prevWord,
                                              SuggestionProvider* provider,
                                              SuggestionProvider::KeyCoordinate* coordinate) {
    WordBuffer buffer = toBuffer(word);
    wordengine::PrevWordsInfo context = makeContext(prevWord);
    const std::array<int, OPTION_COUNT> optionValues{};
    wordengine::SuggestOptions options(optionValues.data(), static_cast<int>(optionValues.size()));
    return provider->rankSuggestions(VPWordSuggestions::MAX_RESULTS, buffer.data(),
                                     static_cast<int>(word.size()), &context, &options, coordinate);
}

std::vector<std::string> getSuggestionForInput(const std::u32string& word, const std::u32string& prevWord,
                                               SuggestionProvider* provider, bool& outFirst, bool& outSecond,
                                               SuggestionProvider::KeyCoordinate* coordinate) {
    const RankedSuggestions ranked = getRankedSuggestionForInput(word, prevWord, provider, coordinate);
    outFirst = ranked.refused;
    outSecond = ranked.canAutoCorrect;
    return toUtf8Strings(ranked.words);
}

RankedSuggestions getRankedPredictionForInput(const std::u32string& prevWord, SuggestionProvider* provider) {
    wordengine::PrevWordsInfo context = makeContext(prevWord);
    RankedSuggestions ranked;
    ranked.words = provider->rankPredictions(VPWordSuggestions::MAX_RESULTS, &context);
    return ranked;
}

std::vector<std::string> getPredictionForInput(const std::u32string& /*word*/, const std::u32string& prevWord,
                                               SuggestionProvider* provider, bool& /*outFirst*/,
                                               bool& /*outSecond*/,
                                               SuggestionProvider::KeyCoordinate* /*coordinate*/) {
    return toUtf8Strings(getRankedPredictionForInput(prevWord, provider).words);
}

}  // namespace vorpel
