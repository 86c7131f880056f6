// SPDX-License-Identifier: Apache-2.0
#include "proximity/additional_proximity_chars.h"

#include <string_view>

namespace wordengine {

namespace {

constexpr std::string_view LOCALE_EN_US = "en";
constexpr int EN_US_ADDITIONAL_CHARS_SIZE = 4;
constexpr int EN_US_ADDITIONAL_A[EN_US_ADDITIONAL_CHARS_SIZE] = {'e', 'i', 'o', 'u'};
constexpr int EN_US_ADDITIONAL_E[EN_US_ADDITIONAL_CHARS_SIZE] = {'a', 'i', 'o', 'u'};
constexpr int EN_US_ADDITIONAL_I[EN_US_ADDITIONAL_CHARS_SIZE] = {'a', 'e', 'o', 'u'};
constexpr int EN_US_ADDITIONAL_O[EN_US_ADDITIONAL_CHARS_SIZE] = {'a', 'e', 'i', 'u'};
constexpr int EN_US_ADDITIONAL_U[EN_US_ADDITIONAL_CHARS_SIZE] = {'a', 'e', 'i', 'o'};

}  // namespace

int AdditionalProximityChars::getAdditionalCharsSize(const char* locale, int primaryCodePoint) {
    return getAdditionalChars(locale, primaryCodePoint) != nullptr ? EN_US_ADDITIONAL_CHARS_SIZE : 0;
}

const int* AdditionalProximityChars::getAdditionalChars(const char* locale, int primaryCodePoint) {
    if (locale == nullptr || !std::string_view(locale).starts_with(LOCALE_EN_US)) return nullptr;
    switch (primaryCodePoint) {
        case 'a':
            return EN_US_ADDITIONAL_A;
        case 'e':
            return EN_US_ADDITIONAL_E;
        case 'i':
            return EN_US_ADDITIONAL_I;
        case 'o':
            return EN_US_ADDITIONAL_O;
        case 'u':
            return EN_US_ADDITIONAL_U;
        default:
            return nullptr;
    }
}

}  // namespace wordengine
