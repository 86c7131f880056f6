// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/input_view_controller.h"
#include "platform/plain_text_field.h"
#include "platform/system_sound.h"
#include "platform/text_checker.h"

#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vorpel::testing {

/// A host with one plain field that keeps what its keyboard asked of it.
class RecordingHost final : public platform::InputHost {
public:
    platform::PlainTextField field;
    platform::InterfaceOrientation orientation = platform::InterfaceOrientation::Portrait;

    int dismissals = 0;
    int advances = 0;                            ///< to the next input mode
    std::optional<std::string> primaryLanguage;  ///< the last one set
    std::vector<double> heights;                 ///< all that were asked for, in order

    [[nodiscard]] platform::TextDocumentProxy& textDocumentProxy() override { return field; }
    [[nodiscard]] platform::InterfaceOrientation interfaceOrientation() const override { return orientation; }
    void dismissKeyboard() override { ++dismissals; }
    void advanceToNextInputMode() override { ++advances; }
    void setPrimaryLanguage(const std::string& language) override { primaryLanguage = language; }
    void setHeight(double height) override { heights.push_back(height); }
};

/// Keeps the numbers of the sounds instead of making them. Any thread.
class RecordingSound final : public platform::SystemSound {
public:
    void play(int number) override {
        const std::lock_guard lock(mutex_);
        played_.push_back(number);
    }

    [[nodiscard]] std::vector<int> played() const {
        const std::lock_guard lock(mutex_);
        return played_;
    }

private:
    mutable std::mutex mutex_;
    std::vector<int> played_;
};

/// Learns as long as it lives.
class MemoryTextChecker final : public platform::TextChecker {
public:
    std::set<std::string> words;

    void learnWord(const std::string& word) override { words.insert(word); }
    [[nodiscard]] bool hasLearnedWord(const std::string& word) const override { return words.contains(word); }
};

}  // namespace vorpel::testing
