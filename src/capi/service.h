// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/memory_user_defaults.h"
#include "platform/posix/folder_bundle.h"
#include "suggestion/typed_word.h"
#include "suggestion/vp_word_suggestions.h"
#include "vorpel/vorpel.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

/// What is behind the handle: a word service, what has been typed into it, and its last answer. Errors are
/// exceptions here.
struct vorpel_service {
public:
    /// Opens the files. `dictionary` may be empty.
    vorpel_service(const std::string& folder, const std::string& language, const std::string& dictionary);

    void suggest(const std::string& word, const std::string& previous, std::span<const vorpel_point> points);
    void predict(const std::string& previous);

    /// Of the last request that was made. The words stay until the next one.
    [[nodiscard]] vorpel_answer answer() const;

    [[nodiscard]] vorpel::KeyboardSize keyboardSize() const { return keyboardSize_; }
    [[nodiscard]] vorpel_point keyCenter(uint32_t letter) const;

private:
    struct Typed {
        vorpel::TypedWord word;
        std::string previous;
    };

    [[nodiscard]] bool goesOnFromTyped(const vorpel::TypedWord& word, const std::string& previous) const;
    void setAnswer(const std::optional<vorpel::RankedSuggestions>& ranked);
    void forgetAnswer();

    vorpel::platform::FolderBundle bundle_;
    vorpel::platform::MemoryUserDefaults defaults_;
    vorpel::VPWordSuggestions words_;
    vorpel::KeyboardSize keyboardSize_;
    std::optional<Typed> typed_;  ///< none when a request was broken off
    std::vector<std::string> texts_;
    std::vector<vorpel_word> answer_;
    bool mayReplace_ = false;
};
