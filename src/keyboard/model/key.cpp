// SPDX-License-Identifier: Apache-2.0
#include "keyboard/model/key.h"

#include "platform/characters.h"

namespace vorpel {

namespace {

/// Gives every key of the process its number. Keys are made on the main thread only.
int counter = 0;

std::string eitherOf(const std::optional<std::string>& wanted, const std::optional<std::string>& other) {
    if (wanted) return *wanted;
    return other.value_or("");
}

}  // namespace

Key::Key(KeyType keyType) : type(keyType), hashValue_(counter++) {}

Key::Key(const Key& key) : Key(key.type) {
    uppercaseKeyCap = key.uppercaseKeyCap;
    lowercaseKeyCap = key.lowercaseKeyCap;
    uppercaseOutput = key.uppercaseOutput;
    lowercaseOutput = key.lowercaseOutput;
    toMode = key.toMode;
}

void Key::setLetter(std::string_view letter) {
    lowercaseOutput = platform::lowercased(letter);
    uppercaseOutput = letter == ".com" ? *lowercaseOutput : platform::uppercased(letter);
    lowercaseKeyCap = lowercaseOutput;
    uppercaseKeyCap = uppercaseOutput;
}

std::string Key::outputForCase(bool uppercase) const {
    return uppercase ? eitherOf(uppercaseOutput, lowercaseOutput)
                     : eitherOf(lowercaseOutput, uppercaseOutput);
}

std::string Key::keyCapForCase(bool uppercase) const {
    return uppercase ? eitherOf(uppercaseKeyCap, lowercaseKeyCap)
                     : eitherOf(lowercaseKeyCap, uppercaseKeyCap);
}

bool Key::isCharacter() const {
    return type == KeyType::Character || type == KeyType::SpecialCharacter || type == KeyType::Period;
}

bool Key::isReturn() const {
    return type == KeyType::Return || (type >= KeyType::Return_II && type <= KeyType::Return_Done);
}

bool Key::isSpecial() const {
    return (type >= KeyType::Shift && type <= KeyType::LaunchEmoji) || type == KeyType::Settings ||
           isReturn();
}

bool Key::isLandscapeSpecific() const {
    return type >= KeyType::adjust_Left;
}

}  // namespace vorpel
