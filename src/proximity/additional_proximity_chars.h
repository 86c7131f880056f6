// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// Vowels that a locale's typists mix up wherever they lie on the keyboard.
class AdditionalProximityChars {
public:
    AdditionalProximityChars() = delete;

    /// How many there are for the primary code point; 0 for a null locale or one without tables.
    static int getAdditionalCharsSize(const char* locale, int primaryCodePoint);

    /// That many code points, valid for ever, or null.
    static const int* getAdditionalChars(const char* locale, int primaryCodePoint);
};

}  // namespace wordengine
