// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// What is done to a node in one step of the search: the letter was meant as typed, or a slip is assumed.
enum CorrectionType {
    CORRECTION_MATCH = 0,
    CORRECTION_PROXIMITY = 1,
    CORRECTION_ADDITIONAL_PROXIMITY = 2,
    CORRECTION_SUBSTITUTION = 3,
    CORRECTION_OMISSION = 4,
    CORRECTION_INSERTION = 5,
    CORRECTION_TRANSPOSITION = 6,
    CORRECTION_COMPLETION = 7,
    CORRECTION_TERMINAL = 8,
    CORRECTION_TERMINAL_INSERTION = 9,
    CORRECTION_NEW_WORD_SPACE_OMISSION = 10,
    CORRECTION_NEW_WORD_SPACE_SUBSTITUTION = 11,
};

}  // namespace wordengine
