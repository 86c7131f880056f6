// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/historical_info.h"
#include "dictionary/v4/ver4_dict_constants.h"
#include "text/engine_constants.h"

namespace wordengine {

/// One entry of a word's list of pairs: the word that follows, by its terminal id, and how likely. An
/// entry without a target is a place that another pair may take. A plain value.
class BigramEntry {
public:
    BigramEntry(bool hasNext, int probability, int targetTerminalId)
        : hasNext_(hasNext), probability_(probability), targetTerminalId_(targetTerminalId) {}
    BigramEntry(bool hasNext, int probability, const HistoricalInfo* historicalInfo, int targetTerminalId)
        : hasNext_(hasNext),
          probability_(probability),
          historicalInfo_(*historicalInfo),
          targetTerminalId_(targetTerminalId) {}

    /// Without target, probability and history.
    [[nodiscard]] BigramEntry getInvalidatedEntry() const {
        return {hasNext_, NO_PROBABILITY, Ver4DictConstants::NOT_A_TERMINAL_ID};
    }
    [[nodiscard]] BigramEntry updateHasNextAndGetEntry(bool hasNext) const {
        return {hasNext, probability_, &historicalInfo_, targetTerminalId_};
    }
    [[nodiscard]] BigramEntry updateTargetTerminalIdAndGetEntry(int targetTerminalId) const {
        return {hasNext_, probability_, &historicalInfo_, targetTerminalId};
    }
    [[nodiscard]] BigramEntry updateProbabilityAndGetEntry(int probability) const {
        return {hasNext_, probability, &historicalInfo_, targetTerminalId_};
    }
    [[nodiscard]] BigramEntry updateHistoricalInfoAndGetEntry(const HistoricalInfo* historicalInfo) const {
        return {hasNext_, probability_, historicalInfo, targetTerminalId_};
    }

    [[nodiscard]] bool isValid() const { return targetTerminalId_ != Ver4DictConstants::NOT_A_TERMINAL_ID; }
    /// Whether reading may go on behind this entry; what comes there may still be the list's end.
    [[nodiscard]] bool hasNext() const { return hasNext_; }
    [[nodiscard]] int getProbability() const { return probability_; }
    [[nodiscard]] bool hasHistoricalInfo() const { return historicalInfo_.isValid(); }
    [[nodiscard]] const HistoricalInfo* getHistoricalInfo() const { return &historicalInfo_; }
    [[nodiscard]] int getTargetTerminalId() const { return targetTerminalId_; }

private:
    bool hasNext_;
    int probability_;
    HistoricalInfo historicalInfo_;
    int targetTerminalId_;
};

}  // namespace wordengine
