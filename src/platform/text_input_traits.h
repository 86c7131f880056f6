// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>

namespace vorpel::platform {

/// What a text field says of itself. The values are part of what hosts and stored pages rely on.

enum class AutocapitalizationType { None = 0, Words = 1, Sentences = 2, AllCharacters = 3 };

enum class KeyboardType {
    Default = 0,
    AsciiCapable = 1,
    NumbersAndPunctuation = 2,
    Url = 3,
    NumberPad = 4,
    PhonePad = 5,
    NamePhonePad = 6,
    EmailAddress = 7,
    DecimalPad = 8,
    Twitter = 9,
    WebSearch = 10
};

enum class ReturnKeyType {
    Default = 0,
    Go = 1,
    Google = 2,
    Join = 3,
    Next = 4,
    Route = 5,
    Search = 6,
    Send = 7,
    Yahoo = 8,
    Done = 9,
    EmergencyCall = 10,
    Continue = 11
};

enum class KeyboardAppearance { Default = 0, Dark = 1, Light = 2 };

/// All of them together; absent where a field does not say.
struct TextInputTraits {
    std::optional<AutocapitalizationType> autocapitalizationType;
    std::optional<KeyboardType> keyboardType;
    std::optional<ReturnKeyType> returnKeyType;
    std::optional<KeyboardAppearance> keyboardAppearance;
    std::optional<bool> isSecureTextEntry = {};  ///< shows bullets: a password, a pin
    std::optional<bool> isSensitive = {};        ///< shown, but not to be remembered
};

}  // namespace vorpel::platform
