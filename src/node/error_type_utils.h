// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace wordengine {

/// What a path through the dictionary deviates in from the input, as a set of flags.
class ErrorTypeUtils {
public:
    using ErrorType = uint32_t;

    static constexpr ErrorType NOT_AN_ERROR = 0x0;
    static constexpr ErrorType MATCH_WITH_CASE_ERROR = 0x1;
    static constexpr ErrorType MATCH_WITH_ACCENT_ERROR = 0x2;
    static constexpr ErrorType MATCH_WITH_DIGRAPH = 0x4;
    /// A letter that people leave out on purpose, such as an apostrophe.
    static constexpr ErrorType INTENTIONAL_OMISSION = 0x8;
    static constexpr ErrorType EDIT_CORRECTION = 0x10;
    static constexpr ErrorType PROXIMITY_CORRECTION = 0x20;
    static constexpr ErrorType COMPLETION = 0x40;
    static constexpr ErrorType NEW_WORD = 0x80;

    static constexpr ErrorType ERRORS_TREATED_AS_AN_EXACT_MATCH =
        MATCH_WITH_CASE_ERROR | MATCH_WITH_ACCENT_ERROR | MATCH_WITH_DIGRAPH;
    static constexpr ErrorType ERRORS_TREATED_AS_AN_EXACT_MATCH_WITH_INTENTIONAL_OMISSION =
        ERRORS_TREATED_AS_AN_EXACT_MATCH | INTENTIONAL_OMISSION;

    ErrorTypeUtils() = delete;

    static constexpr bool isExactMatch(ErrorType containedErrorTypes) {
        return (containedErrorTypes & ~ERRORS_TREATED_AS_AN_EXACT_MATCH) == 0;
    }
    /// True for plain exact matches too.
    static constexpr bool isExactMatchWithIntentionalOmission(ErrorType containedErrorTypes) {
        return (containedErrorTypes & ~ERRORS_TREATED_AS_AN_EXACT_MATCH_WITH_INTENTIONAL_OMISSION) == 0;
    }
    static constexpr bool isEditCorrectionError(ErrorType errorType) {
        return (errorType & EDIT_CORRECTION) != 0;
    }
    static constexpr bool isProximityCorrectionError(ErrorType errorType) {
        return (errorType & PROXIMITY_CORRECTION) != 0;
    }
    static constexpr bool isCompletion(ErrorType errorType) { return (errorType & COMPLETION) != 0; }
};

}  // namespace wordengine
