// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/historical_info.h"
#include "dictionary/v4/ver4_dict_constants.h"
#include "text/engine_constants.h"

#include <cstdint>

namespace wordengine {

/// What a dictionary that learns keeps for one word: flags, and either a probability that stands or
/// the history from which one is worked out. A plain value.
class ProbabilityEntry {
public:
    ProbabilityEntry() = default;
    ProbabilityEntry(int flags, int probability)
        : flags_(static_cast<uint8_t>(flags)), probability_(probability) {}
    ProbabilityEntry(int flags, int probability, const HistoricalInfo& historicalInfo)
        : flags_(static_cast<uint8_t>(flags)), probability_(probability), historicalInfo_(historicalInfo) {}

    [[nodiscard]] ProbabilityEntry createEntryWithUpdatedProbability(int probability) const {
        return {flags_, probability, historicalInfo_};
    }
    [[nodiscard]] ProbabilityEntry createEntryWithUpdatedHistoricalInfo(const HistoricalInfo* info) const {
        return {flags_, probability_, *info};
    }

    [[nodiscard]] int getFlags() const { return flags_; }
    [[nodiscard]] int getProbability() const { return probability_; }
    [[nodiscard]] const HistoricalInfo* getHistoricalInfo() const { return &historicalInfo_; }
    [[nodiscard]] bool hasHistoricalInfo() const { return historicalInfo_.isValid(); }

    /// Whether the probability comes back from its one byte as it went in. Where there is history
    /// nobody reads the byte, so anything goes.
    [[nodiscard]] static bool canBeStored(int probability, bool hasHistoricalInfo) {
        return hasHistoricalInfo || (probability >= 0 && probability <= UINT8_MAX);
    }

    /// 56 bits at most. Level, count and probability are cut to their low byte.
    [[nodiscard]] uint64_t encode(bool hasHistoricalInfo) const {
        uint64_t encoded = flags_;
        if (!hasHistoricalInfo) {
            return append(encoded, Ver4DictConstants::PROBABILITY_SIZE, probability_);
        }
        encoded = append(encoded, Ver4DictConstants::TIME_STAMP_FIELD_SIZE, historicalInfo_.getTimeStamp());
        encoded = append(encoded, Ver4DictConstants::WORD_LEVEL_FIELD_SIZE, historicalInfo_.getLevel());
        return append(encoded, Ver4DictConstants::WORD_COUNT_FIELD_SIZE, historicalInfo_.getCount());
    }

    [[nodiscard]] static ProbabilityEntry decode(uint64_t encoded, bool hasHistoricalInfo) {
        int pos = 0;
        const auto next = [&](int size) {
            pos += size;
            return readFromEncodedEntry(encoded, size, pos - size);
        };
        if (!hasHistoricalInfo) {
            const int probability = next(Ver4DictConstants::PROBABILITY_SIZE);
            return {next(Ver4DictConstants::FLAGS_IN_PROBABILITY_FILE_SIZE), probability};
        }
        const int count = next(Ver4DictConstants::WORD_COUNT_FIELD_SIZE);
        const int level = next(Ver4DictConstants::WORD_LEVEL_FIELD_SIZE);
        const int timestamp = next(Ver4DictConstants::TIME_STAMP_FIELD_SIZE);
        return {next(Ver4DictConstants::FLAGS_IN_PROBABILITY_FILE_SIZE), NO_PROBABILITY,
                HistoricalInfo(timestamp, level, count)};
    }

private:
    static constexpr uint64_t maskOf(int size) { return (uint64_t{1} << (8 * size)) - 1; }

    static uint64_t append(uint64_t encoded, int size, int value) {
        return (encoded << (8 * size)) | (static_cast<uint64_t>(value) & maskOf(size));
    }

    /// `size` bytes from byte `pos` on, counted from the lowest.
    static int readFromEncodedEntry(uint64_t encoded, int size, int pos) {
        return static_cast<int>(static_cast<uint32_t>((encoded >> (8 * pos)) & maskOf(size)));
    }

    uint8_t flags_ = 0;
    int probability_ = NO_PROBABILITY;
    HistoricalInfo historicalInfo_;
};

}  // namespace wordengine
