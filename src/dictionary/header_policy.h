// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_header_structure_policy.h"
#include "dictionary/format_utils.h"
#include "dictionary/header_read_write_utils.h"

#include <vector>

namespace wordengine {

class BufferWithExtendableBuffer;
class ReadOnlyByteArrayView;

/// The attributes of a dictionary as typed settings, with a default for each. A copy of the file's bytes:
/// it does not need them afterwards.
class HeaderPolicy final : public DictionaryHeaderStructurePolicy {
public:
    static constexpr const char* MULTIPLE_WORDS_DEMOTION_RATE_KEY = "MULTIPLE_WORDS_DEMOTION_RATE";
    static constexpr const char* REQUIRES_GERMAN_UMLAUT_PROCESSING_KEY = "REQUIRES_GERMAN_UMLAUT_PROCESSING";
    static constexpr const char* IS_DECAYING_DICT_KEY = "USES_FORGETTING_CURVE";
    static constexpr const char* DATE_KEY = "date";
    static constexpr const char* LAST_DECAYED_TIME_KEY = "LAST_DECAYED_TIME";
    static constexpr const char* UNIGRAM_COUNT_KEY = "UNIGRAM_COUNT";
    static constexpr const char* BIGRAM_COUNT_KEY = "BIGRAM_COUNT";
    static constexpr const char* EXTENDED_REGION_SIZE_KEY = "EXTENDED_REGION_SIZE";
    static constexpr const char* HAS_HISTORICAL_INFO_KEY = "HAS_HISTORICAL_INFO";
    static constexpr const char* LOCALE_KEY = "locale";
    static constexpr const char* FORGETTING_CURVE_OCCURRENCES_TO_LEVEL_UP_KEY =
        "FORGETTING_CURVE_OCCURRENCES_TO_LEVEL_UP";
    static constexpr const char* FORGETTING_CURVE_PROBABILITY_VALUES_TABLE_ID_KEY =
        "FORGETTING_CURVE_PROBABILITY_VALUES_TABLE_ID";
    static constexpr const char* FORGETTING_CURVE_DURATION_TO_LEVEL_DOWN_IN_SECONDS_KEY =
        "FORGETTING_CURVE_DURATION_TO_LEVEL_DOWN_IN_SECONDS";
    static constexpr const char* MAX_UNIGRAM_COUNT_KEY = "MAX_UNIGRAM_COUNT";
    static constexpr const char* MAX_BIGRAM_COUNT_KEY = "MAX_BIGRAM_COUNT";

    static constexpr int DEFAULT_MULTIPLE_WORDS_DEMOTION_RATE = 100;
    static constexpr float MULTIPLE_WORD_COST_MULTIPLIER_SCALE = 100.0f;
    static constexpr int DEFAULT_FORGETTING_CURVE_OCCURRENCES_TO_LEVEL_UP = 2;
    static constexpr int DEFAULT_FORGETTING_CURVE_PROBABILITY_VALUES_TABLE_ID = 3;
    static constexpr int DEFAULT_FORGETTING_CURVE_DURATION_TO_LEVEL_DOWN_IN_SECONDS = 30 * 24 * 60 * 60;
    static constexpr int DEFAULT_MAX_UNIGRAM_COUNT = 10000;
    static constexpr int DEFAULT_MAX_BIGRAM_COUNT = 10000;

    /// From the bytes of a file that begins with a header.
    HeaderPolicy(ReadOnlyByteArrayView dict, FormatUtils::FORMAT_VERSION formatVersion);
    /// For a new dictionary: nothing counted yet, whatever the map says.
    HeaderPolicy(FormatUtils::FORMAT_VERSION formatVersion, const std::vector<int>& locale,
                 const AttributeMap* attributeMap);
    explicit HeaderPolicy(const HeaderPolicy* headerPolicy) : HeaderPolicy(*headerPolicy) {}
    HeaderPolicy(const HeaderPolicy&) = default;

    int getFormatVersionNumber() const override;
    int getSize() const override { return size_; }
    const AttributeMap* getAttributeMap() const override { return &attributeMap_; }
    bool requiresGermanUmlautProcessing() const override { return requiresGermanUmlautProcessing_; }
    float getMultiWordCostMultiplier() const override { return multiWordCostMultiplier_; }
    void readHeaderValueOrQuestionMark(const char* key, int* outValue, int outValueSize) const override;
    bool shouldBoostExactMatches() const override { return !isDecayingDict_; }
    const std::vector<int>* getLocale() const override { return &locale_; }
    bool supportsBeginningOfSentence() const override { return formatVersion_ >= FormatUtils::VERSION_402; }

    bool isDecayingDict() const { return isDecayingDict_; }
    /// Times in seconds since the epoch.
    int getDate() const { return date_; }
    int getLastDecayedTime() const { return lastDecayedTime_; }
    int getUnigramCount() const { return unigramCount_; }
    int getBigramCount() const { return bigramCount_; }
    int getExtendedRegionSize() const { return extendedRegionSize_; }
    bool hasHistoricalInfoOfWords() const { return hasHistoricalInfo_; }
    int getForgettingCurveOccurrencesToLevelUp() const { return forgettingCurveOccurrencesToLevelUp_; }
    int getForgettingCurveProbabilityValuesTableId() const {
        return forgettingCurveProbabilityValuesTableId_;
    }
    int getForgettingCurveDurationToLevelDown() const { return forgettingCurveDurationToLevelDown_; }
    int getMaxUnigramCount() const { return maxUnigramCount_; }
    int getMaxBigramCount() const { return maxBigramCount_; }

    /// Writes a whole header from position 0; false at the first write that fails.
    bool fillInAndWriteHeaderToBuffer(bool updatesLastDecayedTime, int unigramCount, int bigramCount,
                                      int extendedRegionSize, BufferWithExtendableBuffer* outBuffer) const;

    void fillInHeader(bool updatesLastDecayedTime, int unigramCount, int bigramCount, int extendedRegionSize,
                      AttributeMap* outAttributeMap) const;

private:
    static AttributeMap createAttributeMapAndReadAllAttributes(ReadOnlyByteArrayView dict);
    void readSettings();
    std::vector<int> readLocale() const;
    float readMultipleWordCostMultiplier() const;
    bool readBool(const char* key) const;
    int readInt(const char* key, int defaultValue) const;

    FormatUtils::FORMAT_VERSION formatVersion_;
    HeaderReadWriteUtils::DictionaryFlags dictionaryFlags_;
    int size_;
    AttributeMap attributeMap_;
    std::vector<int> locale_;
    float multiWordCostMultiplier_;
    bool requiresGermanUmlautProcessing_;
    bool isDecayingDict_;
    int date_;
    int lastDecayedTime_;
    int unigramCount_;
    int bigramCount_;
    int extendedRegionSize_;
    bool hasHistoricalInfo_;
    int forgettingCurveOccurrencesToLevelUp_;
    int forgettingCurveProbabilityValuesTableId_;
    int forgettingCurveDurationToLevelDown_;
    int maxUnigramCount_;
    int maxBigramCount_;
};

}  // namespace wordengine
