// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/dic_traverse_session.h"
#include "search/dictionary.h"
#include "suggestion/proximity_provider.h"
#include "suggestion/ranked_suggestions.h"
#include "text/engine_constants.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace wordengine {
class PrevWordsInfo;
class SuggestionResults;
class SuggestOptions;
}  // namespace wordengine

namespace vorpel {

/// Ties one opened dictionary, one store of key geometry and one search session together, and ranks
/// what the search finds. Construction is the slow step (it maps the dictionary and fills the pools
/// of the search); make one a language and keep it. One thread at a time.
class SuggestionProvider {
public:
    using KeyCoordinate = ProximityProvider::KeyCoordinate;

    /// The coordinate that stands for "no touch: take the key's own centre".
    static constexpr int NO_TOUCH_COORDINATE = 10000;
    static constexpr float AUTO_CORRECTION_THRESHOLD = 0.15f;

    /// Geometry from the files of a folder. An unusable dictionary is noticed at the first request,
    /// which throws std::runtime_error; an unreadable geometry file throws here.
    SuggestionProvider(const std::string& dictionaryPath, const std::string& proximityDirectory,
                       const std::string& language);

    /// Geometry from live key frames: `keyCount` entries in each array, sizes in points.
    SuggestionProvider(const std::string& language, const std::string& dictionaryPath, int width, int height,
                       int keyCount, int* keyCodes, int* upperKeyCodes, int* xs, int* ys, int* widths,
                       int* heights, const std::string& lowerGeometryPath,
                       const std::string& upperGeometryPath);

    ~SuggestionProvider();
    SuggestionProvider(const SuggestionProvider&) = delete;
    SuggestionProvider& operator=(const SuggestionProvider&) = delete;

    /// The ranked words for a partly typed word of 1 to 48 code points, as UTF-8. `coordinate` is the
    /// touch of the last letter. Earlier letters keep the coordinates of earlier requests. A word of any
    /// other length has no answer.
    std::vector<std::string> getSuggestions(int maxResults, int* word, int wordLength,
                                            wordengine::PrevWordsInfo* prevWordsInfo,
                                            wordengine::SuggestOptions* options, bool& refused,
                                            bool& canAutoCorrect, KeyCoordinate* coordinate);

    /// Where the code point at an index below 48 was touched, for the requests that follow.
    void placeTouch(int codePoint, std::size_t index, const KeyCoordinate& coordinate);

    /// As `getSuggestions`, with the full records. Without any geometry the answer is empty.
    RankedSuggestions rankSuggestions(int maxResults, int* word, int wordLength,
                                      wordengine::PrevWordsInfo* prevWordsInfo,
                                      wordengine::SuggestOptions* options, KeyCoordinate* coordinate);

    /// The words that may follow a finished word, most likely first, as UTF-8.
    std::vector<std::string> getPredictions(int maxResults, wordengine::PrevWordsInfo* prevWordsInfo);

    /// As `getPredictions`, with the full records.
    std::vector<wordengine::SuggestedWord> rankPredictions(int maxResults,
                                                           wordengine::PrevWordsInfo* prevWordsInfo);

    std::vector<std::string> getEmptySuggestions(int maxResults, wordengine::PrevWordsInfo* prevWordsInfo);

    bool isWhiteListedWord(const wordengine::SuggestedWord& word) const;
    bool suggestionExceedsAutoCorrectionThreshold(const wordengine::SuggestedWord& suggestion,
                                                  const int* typedWord, int typedLength,
                                                  float threshold) const;
    bool shouldBlockAutoCorrectionBySafetyNet(const int* typedWord, int typedLength, const int* suggestion,
                                              int suggestionLength) const;

    /// The last word if it is on the whitelist, else an empty string.
    std::string getWhitelistedWordOrNull(const std::vector<wordengine::SuggestedWord>& words) const;

    /// Removes the words that equal the typed one and have a kind; whether there was any.
    bool getSuggestedWordsExcludingTypedWordsForRecorrection(std::vector<wordengine::SuggestedWord>& words,
                                                             const std::string& typedWord) const;

    /// Why the dictionary is of no use; nothing when it seems whole.
    [[nodiscard]] std::optional<std::string> findDictionaryFault() const;

    [[nodiscard]] const ProximityProvider& geometry() const { return *proximityProvider_; }

    /// What the last search did, for diagnosis.
    [[nodiscard]] const wordengine::SearchStatistics& searchStatistics() const;

    /// The size of a file in bytes narrowed to 32 bits, -1 when it cannot be opened or is no
    /// plain file.
    static long get_file_size(const std::string& path);

private:
    void openDictionary(const std::string& dictionaryPath);
    void judge(RankedSuggestions& ranked, const int* word, int wordLength,
               const std::string& typedWord) const;

    std::string dictionaryPath_;
    float languageWeight_ = -1.0f;
    std::array<int, wordengine::WORD_LENGTH_LIMIT> xCoordinates_{};
    std::array<int, wordengine::WORD_LENGTH_LIMIT> yCoordinates_{};
    std::array<int, wordengine::WORD_LENGTH_LIMIT> times_{};
    std::array<int, wordengine::WORD_LENGTH_LIMIT> pointerIds_{};
    // Released in the reverse order: the dictionary first, the geometry last.
    std::unique_ptr<ProximityProvider> proximityProvider_;
    std::unique_ptr<wordengine::DicTraverseSession> session_;
    std::unique_ptr<wordengine::Dictionary> dictionary_;
};

/// A word as UTF-8 of at most 49 bytes, cut on a character boundary.
std::string toUtf8(const wordengine::SuggestedWord& word);
std::vector<std::string> toUtf8Strings(const std::vector<wordengine::SuggestedWord>& words);

}  // namespace vorpel
