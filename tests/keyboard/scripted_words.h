// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/session/word_service.h"

#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorpel::testing {

/// What a word service is to say, and what it was asked. Outlives the service.
struct WordScript {
    std::map<std::string, WordAnswer> suggestions;
    std::map<std::string, std::vector<std::string>> predictions;
    bool dies = false;       ///< at the next question
    bool isMissing = false;  ///< cannot be made
    std::vector<std::string> asked = {};
    int made = 0;
    int dismissed = 0;
};

class ScriptedWords final : public WordService {
public:
    explicit ScriptedWords(WordScript& script) : script_(script) {
        if (script.isMissing) throw std::runtime_error("no such file");
        ++script_.made;
    }
    ~ScriptedWords() override { ++script_.dismissed; }
    ScriptedWords(const ScriptedWords&) = delete;
    ScriptedWords& operator=(const ScriptedWords&) = delete;

    WordAnswer suggest(const WordRequest& request) override {
        ask(request.previousWord + "/" + request.word);
        const auto found = script_.suggestions.find(request.word);
        return found == script_.suggestions.end() ? WordAnswer{} : found->second;
    }

    std::vector<std::string> predict(const std::string& previousWord) override {
        ask(previousWord + "/");
        const auto found = script_.predictions.find(previousWord);
        return found == script_.predictions.end() ? std::vector<std::string>{} : found->second;
    }

private:
    void ask(const std::string& question) {
        script_.asked.push_back(question);
        if (script_.dies) throw std::runtime_error("the file is gone");
    }

    WordScript& script_;
};

}  // namespace vorpel::testing
