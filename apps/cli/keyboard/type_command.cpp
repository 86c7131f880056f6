// SPDX-License-Identifier: Apache-2.0
#include "commands.h"
#include "keyboard/columns.h"
#include "keyboard/key_finder.h"
#include "keyboard/keyboard_stage.h"
#include "platform/characters.h"
#include "text/diagnostics.h"

#include <cstdio>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorpel::cli {

namespace {

/// How far touches stray from the middle of a key, as a share of its size.
constexpr double STRAY = 0.18;

/// Somebody who types on a staged keyboard and reads the field after each key.
class Typist {
public:
    Typist(KeyboardStage& stage, int seed)
        : stage_(stage), random_(static_cast<unsigned>(seed)), strays_(seed != 0) {}

    void type(const std::string& character) {
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

private:
    [[nodiscard]] const KeyPlane& plane() const { return stage_.controller().plane(); }
    [[nodiscard]] int page() const { return stage_.controller().currentMode(); }

    void press(const Key& key) {
        const std::string name = nameOfKey(key);
        stage_.tap(aimAt(stage_.frameOf(key)));
        std::printf("%s %s\n", padded(name, 10).c_str(), onOneLine(stage_.field().text()).c_str());
    }

    ui::Point aimAt(const ui::Rect& frame) {
        ui::Point point = frame.center();
        if (!strays_) return point;
        std::normal_distribution<double> stray(0, STRAY);
        point.x += stray(random_) * frame.width;
        point.y += stray(random_) * frame.height;
        return point;
    }

    static std::string onOneLine(std::string text) {
        for (std::size_t at = 0; (at = text.find('\n', at)) != std::string::npos; at += 3) {
            text.replace(at, 1, "⏎");
        }
        return text;
    }

    KeyboardStage& stage_;
    std::mt19937 random_;
    bool strays_;
};

}  // namespace

int typeText(const TypeArguments& arguments) {
    wordengine::Diagnostics::setStream(nullptr);
    KeyboardStage stage(arguments.stage);
    Typist typist(stage, arguments.jitter);
    for (const std::string& character : platform::characters(arguments.text)) typist.type(character);
    if (!arguments.picture.empty()) stage.savePicture(arguments.picture);
    return 0;
}

}  // namespace vorpel::cli
