// SPDX-License-Identifier: Apache-2.0
// How long the keyboard takes to be there, to be drawn, and to answer a finger. The figures are milliseconds
// on the wall; beside them stands how often the same picture could have been filled with one colour.
#include "keyboard/key_finder.h"
#include "keyboard_figures.h"
#include "options.h"
#include "suggestion/vp_word_suggestions.h"
#include "ui/cairo/cairo_painter.h"
#include "ui/cairo/handles.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace vorpel::bench {

namespace {

/// A word service that nobody would wait for.
class SlowWords final : public WordService {
public:
    static constexpr auto DELAY = std::chrono::milliseconds(50);

    WordAnswer suggest(const WordRequest& /*request*/) override {
        std::this_thread::sleep_for(DELAY);
        return {};
    }
    std::vector<std::string> predict(const std::string& /*previousWord*/) override {
        std::this_thread::sleep_for(DELAY);
        return {};
    }
};

ui::Point middleOf(Shown& shown, const char* text) {
    const auto& controller = shown.stage.controller();
    return shown.stage.frameOf(*cli::findKey(controller.plane(), controller.currentMode(), text)).center();
}

void measureDrawing(Figures& figures, Shown& shown) {
    figures.measure(
        "fill", [] {},
        [&] {
            const ui::ContextHandle context(cairo_create(shown.bitmap.surface()));
            ui::CairoPainter painter(context.get(), shown.resources);
            painter.fill(ui::Rect{0, 0, WIDTH, HEIGHT}, ui::Color::white());
        });
    figures.measure(
        "repaint", [] {}, [&] { shown.paintAll(); });
}

void measurePress(Figures& figures, Shown& shown) {
    const ui::Point key = middleOf(shown, "e");
    ui::Window& window = shown.stage.window();
    const auto settle = [&] {
        shown.stage.advance(0.2);
        shown.paint();
    };
    figures.measure("press_to_text", settle, [&] {
        window.touchDown(1, key);
        window.touchUp(1, key);
    });
    const auto release = [&] {
        window.touchUp(1, key);
        settle();
    };
    figures.measure("press_to_popup_drawn", release, [&] {
        window.touchDown(1, key);
        shown.paint();
    });
    release();
    bool numbers = false;
    figures.measure("page_change_drawn", settle, [&] {
        numbers = !numbers;
        shown.stage.controller().setCurrentMode(numbers ? 1 : 0);
        shown.paint();
    });
}

/// From a finger's end to the words in the bar, with the built dictionary.
void measureWords(Figures& figures) {
    cli::StageShape shape = largePhone();
    shape.hasBar = true;
    Shown shown(shape);
    ui::Window& window = shown.stage.window();
    const std::string text = "the quick brown fox jumps over the lazy dog ";
    std::size_t at = 0;
    ui::Point key;
    const auto down = [&] {
        shown.stage.advance(0.2);
        shown.paint();
        const std::string letter(1, text[at++ % text.size()]);
        key = middleOf(shown, letter == " " ? "space" : letter.c_str());
        window.touchDown(1, key);
    };
    figures.measure("touch_to_words", down, [&] {
        window.touchUp(1, key);
        shown.stage.settle();
    });
}

/// The field does not wait for words.
void measureWithSlowWords(Figures& figures) {
    cli::StageShape shape = largePhone();
    shape.words = [] { return std::make_unique<SlowWords>(); };
    Shown shown(shape);
    ui::Window& window = shown.stage.window();
    const ui::Point key = middleOf(shown, "e");
    const auto down = [&] {
        shown.stage.advance(0.2);
        window.touchDown(1, key);
    };
    figures.measure("touch_to_text_with_slow_words", down, [&] { window.touchUp(1, key); });
}

}  // namespace

int run(const Options& options) {
    VPWordSuggestions::setDiagnosticsStream(nullptr);
    setenv("VORPEL_DATA", options.geometry.c_str(), 0);
    Figures figures(std::max(ROUNDS / options.every, 2));
    // Before anything else has read the fonts.
    std::unique_ptr<Shown> shown;
    const double first = millisecondsOf([&] { shown = std::make_unique<Shown>(); });
    measureDrawing(figures, *shown);
    measurePress(figures, *shown);
    measureWords(figures);
    measureWithSlowWords(figures);
    measureEmoji(figures);
    figures.json()["start_to_first_frame"] = first;
    figures.json()["second_start_to_frame"] = millisecondsOf([] { const Shown again; });
    std::printf("%s", figures.json().toStyledString().c_str());
    return 0;
}

}  // namespace vorpel::bench
