// SPDX-License-Identifier: Apache-2.0
#include "commands.h"
#include "keyboard/columns.h"
#include "keyboard/emoji_finger.h"
#include "keyboard/key_finder.h"
#include "keyboard/keyboard_stage.h"
#include "platform/characters.h"
#include "text/diagnostics.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <iterator>
#include <numeric>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorpel::cli {

namespace {

/// How far touches stray from the middle of a key, as a share of its shorter side.
constexpr double STRAY = 0.18;

// Of the column of the text, in characters.
constexpr std::size_t TEXT_WIDTH = 28;

/// Somebody who types on a staged keyboard and reads the field and the bar after each key.
class Typist {
public:
    Typist(KeyboardStage& stage, const TypeArguments& arguments)
        : stage_(stage),
          emoji_(stage),
          random_(static_cast<unsigned>(arguments.jitter)),
          strays_(arguments.jitter != 0),
          takesWords_(arguments.takesWords) {}

    void type(const std::string& text) {
        const std::vector<std::string> characters = platform::characters(text);
        for (std::size_t at = 0; at < characters.size();) {
            typeCharacter(characters[at++]);
            if (takesWords_) at = takeWord(characters, at);
        }
    }

private:
    [[nodiscard]] const KeyPlane& plane() const { return stage_.controller().plane(); }
    [[nodiscard]] int page() const { return stage_.controller().currentMode(); }

    void typeCharacter(const std::string& character) {
        if (const auto emojiPage = emoji_.pageWith(character)) return typeEmoji(character, *emojiPage);
        if (emoji_.isOpen()) {
            emoji_.close();
            print("ABC");
        }
        const std::string text = character == "\r\n" ? "\n" : character;
        const auto path = pathToKey(plane(), page(), text);
        if (!path) throw std::runtime_error("no key types \"" + character + "\"");
        for (const Key* const modeKey : *path) press(*modeKey);
        const Key& key = *findKey(plane(), page(), text);
        // A small letter is touched as it is: what the keyboard makes a capital by itself is to be seen.
        const bool needsShift = key.lowercaseOutput != text && !uppercase(stage_.controller().shiftState());
        const Key* const shift = needsShift ? findKey(plane(), page(), "shift") : nullptr;
        if (shift) press(*shift);
        press(key);
    }

    void typeEmoji(const std::string& emoji, int emojiPage) {
        if (!emoji_.isOpen()) {
            const Key* const key = findKey(plane(), page(), "emoji");
            if (!key) throw std::runtime_error("the page has no key for emoji, and no key types " + emoji);
            press(*key);
        }
        if (emoji_.page() != emojiPage) {
            emoji_.showPage(emojiPage);
            print(emojiPageNames()[static_cast<std::size_t>(emojiPage)]);
        }
        emoji_.tapEmoji(emoji);
        print(emoji);
    }

    /// Taps the word that is being typed where the bar shows it, which brings its blank.
    /// @return where to go on typing
    std::size_t takeWord(const std::vector<std::string>& characters, std::size_t at) {
        const auto isBlank = [](const std::string& character) { return character == " "; };
        const auto typedEnd = characters.begin() + static_cast<std::ptrdiff_t>(at);
        const auto end = std::find_if(typedEnd, characters.end(), isBlank);
        auto begin = typedEnd;
        while (begin != characters.begin() && !isBlank(*(begin - 1))) --begin;
        if (begin == typedEnd || end == typedEnd) return at;
        const std::string word = std::accumulate(begin, end, std::string());
        // As the frame before the touch would have.
        stage_.window().layoutIfNeeded();
        for (ui::Button* const label : stage_.banner().wordLabels()) {
            if (label->isHidden() ||
                platform::lowercased(label->currentTitle()) != platform::lowercased(word)) {
                continue;
            }
            stage_.tap(label->bounds().offsetBy(label->convertToWindow({0, 0})).center());
            print("(" + word + ")");
            return static_cast<std::size_t>(end - characters.begin()) + (end == characters.end() ? 0 : 1);
        }
        return at;
    }

    void press(const Key& key) {
        const std::string name = nameOfKey(key);
        stage_.tap(aimAt(stage_.frameOf(key)));
        print(name);
    }

    void print(const std::string& name) {
        std::printf("%s %s %s\n", padded(name, 10).c_str(),
                    padded(onOneLine(stage_.field().text()), TEXT_WIDTH).c_str(), bar().c_str());
    }

    /// The three labels, and which of them is about to replace the word.
    [[nodiscard]] std::string bar() {
        std::string words;
        for (ui::Button* const label : stage_.banner().wordLabels()) {
            if (!words.empty()) words += " | ";
            words += label->isHidden() || label->currentTitle().empty() ? "-" : label->currentTitle();
        }
        words = "[" + words + "]";
        if (!stage_.controller().correctionPending()) return words;
        return words + " -> " + stage_.banner().wordLabel_2.currentTitle();
    }

    ui::Point aimAt(const ui::Rect& frame) {
        ui::Point point = frame.center();
        if (!strays_) return point;
        // A finger strays no farther on a wide key.
        std::normal_distribution<double> stray(0, STRAY * std::min(frame.width, frame.height));
        point.x += stray(random_);
        point.y += stray(random_);
        return point;
    }

    static std::string onOneLine(std::string text) {
        for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 3) {
            text.replace(at, 1, "⏎");
        }
        return text;
    }

    KeyboardStage& stage_;
    EmojiFinger emoji_;
    std::mt19937 random_;
    bool strays_;
    bool takesWords_;
};

}  // namespace

int typeText(const TypeArguments& arguments) {
    wordengine::Diagnostics::setStream(nullptr);
    KeyboardStage stage(arguments.stage);
    Typist(stage, arguments).type(arguments.text);
    if (!arguments.picture.empty()) stage.savePicture(arguments.picture);
    return 0;
}

}  // namespace vorpel::cli
