// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_structure_with_buffer_policy.h"
#include "search/suggest_interface.h"

#include <memory>

namespace wordengine {

class BigramProperty;
class DicTraverseSession;
class PrevWordsInfo;
class ProximityInfo;
class SuggestionResults;
class SuggestOptions;
class UnigramProperty;

/// One opened dictionary and the searches over it. Owns both. Every operation that looks at words sets the
/// clock first, so that it sees one time throughout. No locks: callers take turns.
/// A null policy, a dictionary that could not be opened, is accepted: it has no words and takes none,
/// and `getSuggestions` throws.
class Dictionary {
public:
    /// Room for the value of a header attribute, in code points.
    static constexpr int HEADER_ATTRIBUTE_BUFFER_SIZE = 32;

    explicit Dictionary(
        DictionaryStructureWithBufferPolicy::StructurePolicyPtr dictionaryStructureWithBufferPolicy);
    ~Dictionary();
    Dictionary(const Dictionary&) = delete;
    Dictionary& operator=(const Dictionary&) = delete;

    /// Adds what a word of input may have meant. Arrays hold `inputSize` entries, 0 to WORD_LENGTH_LIMIT;
    /// any other size, or no geometry, finds nothing. A `languageWeight` below 0 is the policy's own.
    /// Throws std::runtime_error without a policy.
    void getSuggestions(const ProximityInfo* proximityInfo, DicTraverseSession* traverseSession,
                        const int* xCoordinates, const int* yCoordinates, const int* times,
                        const int* pointerIds, const int* inputCodePoints, int inputSize,
                        const PrevWordsInfo* prevWordsInfo, const SuggestOptions* suggestOptions,
                        float languageWeight, SuggestionResults* outSuggestionResults) const;

    /// Adds the words that may follow.
    void getPredictions(const PrevWordsInfo* prevWordsInfo, SuggestionResults* outSuggestionResults) const;

    /// 0 to 255, or NO_PROBABILITY for an unknown word; a null context asks for the word's own.
    int getProbability(const int* word, int length) const;
    int getNgramProbability(const PrevWordsInfo* prevWordsInfo, const int* word, int length) const;
    /// The best of the words that differ in case, accents, apostrophes and hyphens only.
    int getMaxProbabilityOfExactMatches(const int* word, int length) const;

    bool addUnigramEntry(const int* word, int length, const UnigramProperty* unigramProperty);
    bool removeUnigramEntry(const int* word, int length);
    bool addNgramEntry(const PrevWordsInfo* prevWordsInfo, const BigramProperty* bigramProperty);
    bool removeNgramEntry(const PrevWordsInfo* prevWordsInfo, const int* word, int length);
    bool flush(const char* filePath);
    bool flushWithGC(const char* filePath);
    bool needsToRunGC(bool mindsBlockByGC) const;
    void getProperty(const char* query, int queryLength, char* outResult, int maxResultLength);
    int getNextWordAndNextToken(int token, int* outCodePoints, int* outCodePointCount);

    const DictionaryStructureWithBufferPolicy* getDictionaryStructurePolicy() const {
        return dictionaryStructureWithBufferPolicy_.get();
    }

private:
    class NgramListenerForPrediction;

    // Released in the reverse order.
    const DictionaryStructureWithBufferPolicy::StructurePolicyPtr dictionaryStructureWithBufferPolicy_;
    const std::unique_ptr<SuggestInterface> gestureSuggest_;
    const std::unique_ptr<SuggestInterface> typingSuggest_;
};

}  // namespace wordengine
