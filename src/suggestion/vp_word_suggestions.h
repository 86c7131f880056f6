// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "suggestion/ranked_suggestions.h"
#include "suggestion/resource_fault.h"
#include "vorpel/export.h"

#include <cstdio>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace wordengine {
struct SearchStatistics;
}

namespace vorpel {

class SuggestionProvider;

namespace platform {
class Bundle;
class UserDefaults;
}  // namespace platform

/// A touch in points, origin at the top left of the keyboard.
struct TouchPoint {
    double x = 0;
    double y = 0;
};

/// In points.
struct KeyboardSize {
    double width = 0;
    double height = 0;
};

/// The frame of one live key in points.
struct LiveKeyFrame {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
};

/// How far a touch was from the middle of its key, as a share of the whole keyboard's width and height: it
/// holds for every size of the keyboard.
struct KeyOffset {
    double x = 0;
    double y = 0;
};

/// The word service as the rest of a keyboard sees it: what a partly typed word may become, and what
/// may follow a finished one. Strings are UTF-8.
///
/// The language is the text stored under "Language": "en" is English, all else Arabic. The
/// dictionary is the bundle's "en_US.dic" or "ar_SA.dic"; the geometry files lie in the bundle's own
/// folder. Without a usable dictionary or geometry every answer is empty, and `findFault` says why. An
/// unreadable geometry file makes `create` throw std::runtime_error with the file and the reason.
///
/// Not thread-safe: create, ask and dismiss on one thread, or on one serial queue. Different objects may
/// be used on different threads.
class VORPEL_EXPORT VPWordSuggestions {
public:
    /// The most words in an answer.
    static constexpr int MAX_RESULTS = 18;

    /// Both references must outlive the object.
    static std::unique_ptr<VPWordSuggestions> create(const platform::Bundle& bundle,
                                                     const platform::UserDefaults& defaults);

    /// With live key frames and the key caps parallel to them, in place of the stored key centres;
    /// touches reach the engine. A missing frame counts as an empty one.
    static std::unique_ptr<VPWordSuggestions> create(const platform::Bundle& bundle,
                                                     const platform::UserDefaults& defaults,
                                                     std::vector<std::optional<LiveKeyFrame>> keyFrames,
                                                     std::vector<std::string> keyChars, double width,
                                                     double height);

    /// Not set up yet: requests answer with nothing until a set-up step has run.
    VPWordSuggestions(const platform::Bundle& bundle, const platform::UserDefaults& defaults);
    ~VPWordSuggestions();
    VPWordSuggestions(const VPWordSuggestions&) = delete;
    VPWordSuggestions& operator=(const VPWordSuggestions&) = delete;

    void setUp();
    void setUpWithCustomValues();

    /// Opens the given dictionary and geometry folder in place of the bundle's.
    void initializeTheAutoCorrectionModuleForDicPath(const std::string& dictionaryPath,
                                                     const std::string& proximityDirectory,
                                                     const std::string& language);

    /// The words that the typed word may become, best first; the typed word itself is left out.
    /// `coordinate` is the touch of the word's last letter; it counts when `useTouchPoint` is set, and
    /// a coordinate of 10000 stands for no touch. `canAutoCorrect`: the first word may replace what
    /// was typed. It is left alone when the request fails. An empty word or one of more than 48 code
    /// points has no answer; so long a previous word counts as none.
    std::vector<std::string> getSuggestionsForWord(const std::string& word, const std::string& previousWord,
                                                   TouchPoint coordinate, bool* canAutoCorrect);

    /// As the other, with a touch for each of the word's code points, whatever earlier requests said of
    /// them. A letter without one, or beyond the list, counts as touched on the middle of its key, and so
    /// do all of them unless `useTouchPoint` is set.
    std::vector<std::string> getSuggestionsForWord(const std::string& word, const std::string& previousWord,
                                                   const std::vector<std::optional<KeyOffset>>& offsets,
                                                   bool* canAutoCorrect);

    /// As `getSuggestionsForWord`, with scores and kinds; nothing when the request failed.
    std::optional<RankedSuggestions> getRankedSuggestionsForWord(const std::string& word,
                                                                 const std::string& previousWord,
                                                                 TouchPoint coordinate);

    /// The words that may follow `previousWord`, most likely first. `word` and `coordinate` play no
    /// part; `canAutoCorrect` becomes false.
    std::vector<std::string> getPredicWord(const std::string& word, const std::string& previousWord,
                                           TouchPoint coordinate, bool* canAutoCorrect);

    /// As `getPredicWord`, with scores and kinds; nothing when the request failed.
    std::optional<RankedSuggestions> getRankedPredictions(const std::string& previousWord);

    /// Releases the engine. Drop the object afterwards.
    void dismissWordSuggestor();

    /// Whether the touch reaches the engine; otherwise the key's stored centre stands for it.
    bool useTouchPoint = false;

    /// Nothing before set-up has begun, then whether it has ended.
    [[nodiscard]] std::optional<bool> isReady() const;

    /// Where the library's own plain lines go: standard output unless set, nowhere for null. Set it
    /// before the first request; it holds for the whole program.
    static void setDiagnosticsStream(std::FILE* stream);

    /// What is missing or damaged among the files of the language; nothing when the service can answer.
    /// Looks at the files' outlines only: a dictionary may still hold wrong bytes, whose words are then
    /// missing from the answers. Live key frames need no geometry file of their own.
    [[nodiscard]] std::optional<ResourceFault> findFault() const;

    /// The keyboard whose points touches are given in, from the geometry of the small letters; nothing
    /// without one.
    [[nodiscard]] std::optional<KeyboardSize> keyboardSize() const;

    /// The point that stands for a letter typed without a touch; nothing for a letter without a key.
    [[nodiscard]] std::optional<TouchPoint> keyCenter(char32_t letter) const;

    /// What the last search did, for diagnosis; null before set-up.
    [[nodiscard]] const wordengine::SearchStatistics* searchStatistics() const;

private:
    VORPEL_INTERNAL void beginSetUp();
    VORPEL_INTERNAL void endSetUp(const char* message);
    [[nodiscard]] VORPEL_INTERNAL std::optional<std::string> findGeometryFault() const;

    template <typename Request>
    auto answer(Request&& request) -> std::optional<decltype(request())>;

    const platform::Bundle& bundle_;
    const platform::UserDefaults& defaults_;
    mutable std::mutex readinessMutex_;
    std::optional<bool> isReady_;
    std::vector<std::optional<LiveKeyFrame>> keyFrames_;
    std::vector<std::string> keyChars_;
    double screenWidth_ = 0;
    double screenHeight_ = 0;
    std::string language_;
    std::optional<std::string> geometryFolder_;  ///< none with live key frames
    std::unique_ptr<SuggestionProvider> suggestor_;
};

}  // namespace vorpel
