// SPDX-License-Identifier: Apache-2.0
// A geometry file of any bytes: read by every reader there is, and searched with.
#include "compiler/version2_writer.h"
#include "dictionary/v2/patricia_trie_policy.h"
#include "plain_grid.h"
#include "proximity/proximity_info_state.h"
#include "search/dic_traverse_session.h"
#include "search/dictionary.h"
#include "search/results/suggestion_results.h"
#include "suggestion/geometry_file.h"
#include "suggestion/proximity_provider.h"
#include "support/answer_check.h"
#include "support/memory_file.h"
#include "text/diagnostics.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using vorpel::GeometryFile;
using vorpel::ProximityProvider;
using wordengine::ProximityInfo;

constexpr int MAX_RESULTS = 18;

const wordengine::Dictionary& smallDictionary() {
    static const wordengine::Dictionary dictionary = [] {
        wordengine::Diagnostics::setStream(nullptr);
        const vorpel::testing::MemoryFile file(vorpel::compiler::Version2Writer::write(
            {{},
             {{.word = "a", .probability = 200},
              {.word = "to", .probability = 210, .bigrams = {{"the", 11}}},
              {.word = "the", .probability = 220},
              {.word = "then", .probability = 150},
              {.word = "no", .probability = 160},
              {.word = "سلام", .probability = 120}}}));
        return wordengine::Dictionary(std::make_unique<wordengine::PatriciaTriePolicy>(
            wordengine::MmappedBuffer::openBuffer(file.path().c_str(), false)));
    }();
    return dictionary;
}

/// The places of a word's touches: around the keys that the file names.
std::vector<int> touches(const std::vector<float>& centers, int farthest) {
    std::vector<int> places = {0, -1, farthest, farthest / 2};
    for (size_t i = 0; i < std::min<size_t>(centers.size(), 3); ++i) {
        places.push_back(static_cast<int>(centers[i]));
    }
    return places;
}

void searchWith(const ProximityInfo* keyboard, const GeometryFile& file) {
    std::vector<int> xs = touches(file.sweetSpotCenterXs, file.keyboardMinWidth);
    std::vector<int> ys = touches(file.sweetSpotCenterYs, file.keyboardHeight);
    std::vector<int> word = {'t', 'h', 'e', 'n', 0x633, 0x644, 'a'};
    for (size_t i = 0; i < std::min<size_t>(file.keyCharCodes.size(), 2); ++i) word[i] = file.keyCharCodes[i];
    const size_t length = std::min({xs.size(), ys.size(), word.size()});
    wordengine::DicTraverseSession session(false);
    for (size_t typed = 1; typed <= length; ++typed) {
        wordengine::SuggestionResults results(MAX_RESULTS);
        smallDictionary().getSuggestions(keyboard, &session, xs.data(), ys.data(), nullptr, nullptr,
                                         word.data(), static_cast<int>(typed), nullptr, nullptr, -1.0f,
                                         &results);
        vorpel::testing::checkAnswer(results.getSuggestionsVector(), MAX_RESULTS);
    }
    // A drawn word: no search draws on it yet, the touch model takes it in all the same.
    const std::vector<int> times = {0, 10, 20, 20, 35, 50, 60};
    wordengine::ProximityInfoState state;
    state.initInputParams(0, 1.0f, keyboard, nullptr, static_cast<int>(length), xs.data(), ys.data(),
                          times.data(), nullptr, true);
}

/// The frames of a keyboard on the screen, made of the file's numbers.
void useAsLiveKeys(const std::string& path, const GeometryFile& file) {
    const int keys = std::min(file.keyCount, 40);
    if (keys < 0) return;
    const ProximityProvider provider("en_US", file.keyboardMinWidth, file.keyboardHeight,
                                     file.mostCommonKeyWidth, file.mostCommonKeyHeight, keys,
                                     file.keyXCoordinates.data(), file.keyYCoordinates.data(),
                                     file.keyWidths.data(), file.keyHeights.data(), file.keyCharCodes.data(),
                                     file.keyCharCodes.data(), path, path);
    if (keys > 0) searchWith(provider.getProximity(file.keyCharCodes[0]), file);
}

void computeNeighbours(ProximityProvider* provider, const GeometryFile& file) {
    // Cells of a keyboard are some pixels wide; this is about the frames, not about millions of cells.
    const int cellWidth = std::max(file.keyboardMinWidth / 32, 1);
    const int cellHeight = std::max(file.keyboardHeight / 16, 1);
    const int keys = std::min(file.keyCount, 3);
    provider->computeNearestNeighbours(
        file.keyboardMinWidth, file.keyboardHeight, file.mostCommonKeyWidth, file.mostCommonKeyHeight, keys,
        keys, file.keyXCoordinates.data(), file.keyYCoordinates.data(), file.keyWidths.data(),
        file.keyHeights.data(), cellWidth, cellHeight, file.keyCharCodes.data(), file.keyCharCodes.data());
    static std::array<int, 8192> upper, lower;
    provider->getProximityCharsArrays(upper.data(), lower.data());
}

void makePlainGrid(const std::string& path) {
    try {
        const vorpel::TouchPoint place = vorpel::cli::PlainGrid("en", path).carryOver({31, 42}, 320, 216);
        vorpel::testing::require(std::isfinite(place.x) && std::isfinite(place.y), "a place is a number");
    } catch (const std::runtime_error&) {
        // A letter without a key.
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const vorpel::testing::MemoryFile memory(std::span(data, size));
    const std::string path = memory.path();
    try {
        vorpel::loadProximityChars(path);
    } catch (const std::runtime_error&) {
        // May be of use for the rest all the same.
    }
    GeometryFile file;
    try {
        file = GeometryFile::load(path);
    } catch (const std::runtime_error&) {
        return 0;
    }
    ProximityProvider provider("", "en");
    const ProximityInfo* const keyboard = provider.createNewProximityInstance(path);
    searchWith(keyboard, file);
    useAsLiveKeys(path, file);
    computeNeighbours(&provider, file);
    makePlainGrid(path);
    return 0;
}
