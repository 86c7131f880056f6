// SPDX-License-Identifier: Apache-2.0
#include "dictionary/header_policy.h"

#include "storage/buffer_with_extendable_buffer.h"
#include "storage/byte_array_view.h"
#include "text/engine_constants.h"
#include "text/time_keeper.h"

#include <algorithm>

namespace wordengine {

HeaderPolicy::HeaderPolicy(ReadOnlyByteArrayView dict, FormatUtils::FORMAT_VERSION formatVersion)
    : formatVersion_(formatVersion),
      dictionaryFlags_(HeaderReadWriteUtils::getFlags(dict)),
      size_(HeaderReadWriteUtils::getHeaderSize(dict)),
      attributeMap_(createAttributeMapAndReadAllAttributes(dict)),
      locale_(readLocale()),
      unigramCount_(readInt(UNIGRAM_COUNT_KEY, 0)),
      bigramCount_(readInt(BIGRAM_COUNT_KEY, 0)),
      extendedRegionSize_(readInt(EXTENDED_REGION_SIZE_KEY, 0)) {
    readSettings();
}

HeaderPolicy::HeaderPolicy(FormatUtils::FORMAT_VERSION formatVersion, const std::vector<int>& locale,
                           const AttributeMap* attributeMap)
    : formatVersion_(formatVersion),
      dictionaryFlags_(HeaderReadWriteUtils::createAndGetDictionaryFlagsUsingAttributeMap(attributeMap)),
      size_(0),
      attributeMap_(*attributeMap),
      locale_(locale),
      unigramCount_(0),
      bigramCount_(0),
      extendedRegionSize_(0) {
    readSettings();
}

void HeaderPolicy::readSettings() {
    const int now = TimeKeeper::peekCurrentTime();
    multiWordCostMultiplier_ = readMultipleWordCostMultiplier();
    requiresGermanUmlautProcessing_ = readBool(REQUIRES_GERMAN_UMLAUT_PROCESSING_KEY);
    isDecayingDict_ = readBool(IS_DECAYING_DICT_KEY);
    date_ = readInt(DATE_KEY, now);
    lastDecayedTime_ = readInt(LAST_DECAYED_TIME_KEY, now);
    hasHistoricalInfo_ = readBool(HAS_HISTORICAL_INFO_KEY);
    forgettingCurveOccurrencesToLevelUp_ = readInt(FORGETTING_CURVE_OCCURRENCES_TO_LEVEL_UP_KEY,
                                                   DEFAULT_FORGETTING_CURVE_OCCURRENCES_TO_LEVEL_UP);
    forgettingCurveProbabilityValuesTableId_ = readInt(FORGETTING_CURVE_PROBABILITY_VALUES_TABLE_ID_KEY,
                                                       DEFAULT_FORGETTING_CURVE_PROBABILITY_VALUES_TABLE_ID);
    forgettingCurveDurationToLevelDown_ = readInt(FORGETTING_CURVE_DURATION_TO_LEVEL_DOWN_IN_SECONDS_KEY,
                                                  DEFAULT_FORGETTING_CURVE_DURATION_TO_LEVEL_DOWN_IN_SECONDS);
    maxUnigramCount_ = readInt(MAX_UNIGRAM_COUNT_KEY, DEFAULT_MAX_UNIGRAM_COUNT);
    maxBigramCount_ = readInt(MAX_BIGRAM_COUNT_KEY, DEFAULT_MAX_BIGRAM_COUNT);
}

int HeaderPolicy::getFormatVersionNumber() const {
    return FormatUtils::getFormatVersion(formatVersion_);
}

void HeaderPolicy::readHeaderValueOrQuestionMark(const char* key, int* outValue, int outValueSize) const {
    if (outValueSize < 1) return;
    std::vector<int> keyCodePoints;
    HeaderReadWriteUtils::insertCharactersIntoVector(key, &keyCodePoints);
    const auto entry = attributeMap_.find(keyCodePoints);
    static const std::vector<int> QUESTION_MARK{'?'};
    const std::vector<int>& value = entry == attributeMap_.end() ? QUESTION_MARK : entry->second;
    const size_t length = std::min(value.size(), static_cast<size_t>(outValueSize - 1));
    std::copy_n(value.begin(), length, outValue);
    outValue[length] = 0;
}

bool HeaderPolicy::fillInAndWriteHeaderToBuffer(bool updatesLastDecayedTime, int unigramCount,
                                                int bigramCount, int extendedRegionSize,
                                                BufferWithExtendableBuffer* outBuffer) const {
    AttributeMap attributeMap(attributeMap_);
    fillInHeader(updatesLastDecayedTime, unigramCount, bigramCount, extendedRegionSize, &attributeMap);
    int writingPos = 0;
    if (!HeaderReadWriteUtils::writeDictionaryVersion(outBuffer, formatVersion_, &writingPos) ||
        !HeaderReadWriteUtils::writeDictionaryFlags(outBuffer, dictionaryFlags_, &writingPos)) {
        return false;
    }
    // The size is known only at the end.
    int headerSizeFieldPos = writingPos;
    return HeaderReadWriteUtils::writeDictionaryHeaderSize(outBuffer, 0, &writingPos) &&
           HeaderReadWriteUtils::writeHeaderAttributes(outBuffer, &attributeMap, &writingPos) &&
           HeaderReadWriteUtils::writeDictionaryHeaderSize(outBuffer, writingPos, &headerSizeFieldPos);
}

void HeaderPolicy::fillInHeader(bool updatesLastDecayedTime, int unigramCount, int bigramCount,
                                int extendedRegionSize, AttributeMap* outAttributeMap) const {
    HeaderReadWriteUtils::setIntAttribute(outAttributeMap, UNIGRAM_COUNT_KEY, unigramCount);
    HeaderReadWriteUtils::setIntAttribute(outAttributeMap, BIGRAM_COUNT_KEY, bigramCount);
    HeaderReadWriteUtils::setIntAttribute(outAttributeMap, EXTENDED_REGION_SIZE_KEY, extendedRegionSize);
    HeaderReadWriteUtils::setIntAttribute(outAttributeMap, DATE_KEY, TimeKeeper::peekCurrentTime());
    HeaderReadWriteUtils::setCodePointVectorAttribute(outAttributeMap, LOCALE_KEY, locale_);
    if (updatesLastDecayedTime) {
        HeaderReadWriteUtils::setIntAttribute(outAttributeMap, LAST_DECAYED_TIME_KEY,
                                              TimeKeeper::peekCurrentTime());
    }
}

HeaderPolicy::AttributeMap HeaderPolicy::createAttributeMapAndReadAllAttributes(ReadOnlyByteArrayView dict) {
    AttributeMap attributeMap;
    HeaderReadWriteUtils::fetchAllHeaderAttributes(dict, &attributeMap);
    return attributeMap;
}

std::vector<int> HeaderPolicy::readLocale() const {
    return HeaderReadWriteUtils::readCodePointVectorAttributeValue(&attributeMap_, LOCALE_KEY);
}

float HeaderPolicy::readMultipleWordCostMultiplier() const {
    const int demotionRate = readInt(MULTIPLE_WORDS_DEMOTION_RATE_KEY, DEFAULT_MULTIPLE_WORDS_DEMOTION_RATE);
    if (demotionRate < 1) return WEIGHT_CEILING_FLOAT;
    return MULTIPLE_WORD_COST_MULTIPLIER_SCALE / static_cast<float>(demotionRate);
}

bool HeaderPolicy::readBool(const char* key) const {
    return HeaderReadWriteUtils::readBoolAttributeValue(&attributeMap_, key, false);
}

int HeaderPolicy::readInt(const char* key, int defaultValue) const {
    return HeaderReadWriteUtils::readIntAttributeValue(&attributeMap_, key, defaultValue);
}

}  // namespace wordengine
