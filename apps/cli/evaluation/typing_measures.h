// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "evaluation/evaluation_set.h"

#include <json/json.h>

#include <functional>
#include <string>

namespace vorpel::cli {

/// What became of the words of one group of rows. Comparisons ignore letter case.
class TypingMeasures {
public:
    /// With `foldHamza` alefs with and without hamza count as one letter.
    explicit TypingMeasures(bool foldHamza) : foldHamza_(foldHamza) {}

    /// `isKnown`: whether the intended word is in the dictionary; asked for missed words only.
    void add(const EvaluationRow& row, const Answer& answer, const std::function<bool()>& isKnown);

    /// Shares in percent, counts as they are.
    [[nodiscard]] Json::Value toJson() const;

private:
    void countRanks(const std::u32string& intended, const Answer& answer, bool isError,
                    const std::function<bool()>& isKnown);

    bool foldHamza_;
    int rows_ = 0;
    int errors_ = 0;
    int wrongAtLast_ = 0;   ///< the text after auto-correction is not what was meant
    int changes_ = 0;       ///< auto-correction changed what was typed
    int rightChanges_ = 0;  ///< and what it made of it was meant
    int mended_ = 0;        ///< errors that auto-correction put right
    int falseFires_ = 0;    ///< typed right and changed
    int keptVisible_ = 0;   ///< the typed word is among the first three
    int foundInTop1_ = 0, foundInTop3_ = 0, foundInTop10_ = 0;
    int errorsInTop1_ = 0, errorsInTop3_ = 0, errorsInTop10_ = 0;
    int missedUnknown_ = 0, missedUnfound_ = 0, missedLower_ = 0;
};

}  // namespace vorpel::cli
