// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vorpel {

/// One placed key: what it is, what its face shows and what it types in each case, and the page it leads to.
/// Two keys are equal only when they are the same key, whatever they type. Main thread only.
class Key {
public:
    /// The order is part of what tables and range tests rely on.
    enum class KeyType {
        Character = 0,
        SpecialCharacter,
        Shift,
        Backspace,
        ModeChange,
        KeyboardChange,
        LaunchEmoji,
        Period,
        Space,
        Return,
        Settings,
        Return_II,
        Return_Send,
        Return_Search,
        Return_Done,
        adjust_Left,
        adjust_Right,
        dismiss_Self,
        Other
    };

    explicit Key(KeyType type);

    /// A key with the same texts and an identity of its own.
    Key(const Key& key);
    Key& operator=(const Key&) = delete;

    KeyType type;
    std::optional<std::string> uppercaseKeyCap;
    std::optional<std::string> lowercaseKeyCap;
    std::optional<std::string> uppercaseOutput;
    std::optional<std::string> lowercaseOutput;
    std::optional<int> toMode;  ///< the page that a mode key leads to

    /// Never stored: it differs from run to run.
    [[nodiscard]] int hashValue() const { return hashValue_; }

    /// Caps and outputs of a letter in both cases. ".com" never shouts.
    void setLetter(std::string_view letter);

    /// What stands in for a missing case is the other one; without both, nothing.
    [[nodiscard]] std::string outputForCase(bool uppercase) const;
    [[nodiscard]] std::string keyCapForCase(bool uppercase) const;

    [[nodiscard]] bool isCharacter() const;
    [[nodiscard]] bool isSpecial() const;
    [[nodiscard]] bool isReturn() const;
    [[nodiscard]] bool isSpace() const { return type == KeyType::Space; }
    [[nodiscard]] bool isLandscapeSpecific() const;
    [[nodiscard]] bool hasOutput() const { return uppercaseOutput || lowercaseOutput; }

    friend bool operator==(const Key& a, const Key& b) { return a.hashValue_ == b.hashValue_; }

private:
    int hashValue_;
};

}  // namespace vorpel
