// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/keyboard_fixture.h"
#include "keyboard/scripted_words.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vorpel::testing {

/// Keeps what a host is told.
class CommittedWords final : public VorpelWordCommitDelegate {
public:
    std::vector<std::string> words;
    void wordCommitted(const std::string& word) override { words.push_back(word); }
};

/// A keyboard whose words come from a script.
template <class Base>
class ScriptedKeyboard final : public Base {
public:
    template <typename... Options>
    ScriptedKeyboard(platform::Platform& platform, WordScript& script, const Options&... options)
        : Base(platform, options...), script_(script) {
        Base::setUp();
    }

    using Base::currentActiveInputView;

protected:
    WordServiceFactory makeWordServiceFactory() override {
        return [this] { return std::make_unique<ScriptedWords>(script_); };
    }

private:
    WordScript& script_;
};

/// A keyboard with a bar and a scripted word service: the plain class, or, with options, the one that hosts
/// embed.
class SessionStage : public Stage {
public:
    explicit SessionStage(WordScript words, const TypingOptions* options = nullptr, Setting setting = {})
        : SessionStage(std::make_unique<WordScript>(std::move(words)), options, setting) {}
    ~SessionStage() { controller.reset(); }

    std::unique_ptr<WordScript> script;
    CommittedWords committed;

    [[nodiscard]] VPKeyboardViewController& session() const {
        return static_cast<VPKeyboardViewController&>(*controller);
    }
    [[nodiscard]] VPSuggestionsBanner& banner() const { return *session().suggestionsBanner(); }
    void correct(bool on) { platform.userDefaults.setBool(preferences::kAutoCorrection, on); }

    /// Types with time for an answer behind each key.
    void write(const std::string& keys) {
        for (const std::string& key : platform::characters(keys)) {
            const bool isSign = key == ".";
            if (isSign) touch("123");
            if (key == "\n") touch("return");
            if (key != "\n") type(key);
            platform.settle();
            if (isSign) touch("ABC");
        }
    }

    void tapLabel(int number) {
        window.layoutIfNeeded();
        ui::Button& label = *banner().wordLabels().at(static_cast<std::size_t>(number - 1));
        advance(0.5);
        down(0, label.bounds().offsetBy(label.convertToWindow({0, 0})).center());
        up(0);
        platform.settle();
    }

    /// "text | first | second | third", with "!" behind the second when it is about to go in, and "settings"
    /// in place of the labels when they are hidden.
    [[nodiscard]] std::string seen() {
        std::string all = text() + " |";
        for (const ui::Button* const label : banner().wordLabels()) {
            if (label->isHidden()) return text() + " | settings";
            all += " " + (label->currentTitle().empty() ? "-" : label->currentTitle());
            if (label->tag() == 2 && session().correctionPending()) all += "!";
        }
        return all;
    }

private:
    SessionStage(std::unique_ptr<WordScript> words, const TypingOptions* options, const Setting& setting)
        : Stage(setting,
                [&](platform::Platform& parts) -> std::unique_ptr<KeyboardViewController> {
                    if (!options) {
                        return std::make_unique<ScriptedKeyboard<VPKeyboardViewController>>(parts, *words);
                    }
                    return std::make_unique<ScriptedKeyboard<VorpelKeyboardViewController>>(parts, *words,
                                                                                            *options);
                }),
          script(std::move(words)) {
        controller->setCallBackDelegate(&committed);
        controller->viewWillAppear();
        controller->viewDidAppear();
        controller->textDidChange();
        platform.settle();
    }
};

inline constexpr TypingOptions ALL_OPTIONS = TypingOptions::all();

}  // namespace vorpel::testing
