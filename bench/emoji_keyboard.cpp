// SPDX-License-Identifier: Apache-2.0
#include "keyboard_figures.h"

#include <fstream>
#include <malloc.h>
#include <stdexcept>
#include <string>

namespace vorpel::bench {

namespace {

constexpr int CHANGES = 1000;
constexpr int PAGES = EMOJI_PAGE_COUNT;

long residentKibibytes() {
    std::ifstream file("/proc/self/status");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("VmRSS:")) return std::stol(line.substr(6));
    }
    throw std::runtime_error("/proc/self/status: cannot be read");
}

/// Half way between two pages, and on to the next: what a finger that draws the pages along needs drawn.
void measureScrolling(Figures& figures, Shown& shown) {
    ui::PagedScrollView& pages = shown.stage.controller().getSecondEmoction_Keyboardview().emojiButtonView();
    double offset = 0;
    const auto move = [&] {
        offset = offset >= PAGES - 2 ? 0.5 : offset + 0.37;
        pages.setScrollOffset(offset);
    };
    figures.measure(
        "emoji_scroll_drawn", [] {},
        [&] {
            move();
            shown.paint();
        });
}

void measureMemory(Figures& figures, Shown& shown) {
    VPEmoticonKeyboardView& emoji = shown.stage.controller().getSecondEmoction_Keyboardview();
    const auto turn = [&](int changes) {
        for (int change = 0; change < changes; ++change) {
            emoji.setCurrentIndex(change * 4 % PAGES);
            shown.paint();
            shown.stage.advance(0.5);
            shown.paint();
        }
    };
    // Every page, and the pictures of every emoji in sight, have been made when it counts.
    turn(4 * PAGES);
    const auto heldBefore = mallinfo2().uordblks;
    const long before = residentKibibytes();
    turn(CHANGES);
    Json::Value& memory = figures.json()["emoji_pages"];
    memory["changes"] = CHANGES;
    memory["before_kib"] = Json::Int64(before);
    memory["after_kib"] = Json::Int64(residentKibibytes());
    memory["blocks"] = Json::Int64(mallinfo2().uordblks) - Json::Int64(heldBefore);
}

}  // namespace

void measureEmoji(Figures& figures) {
    Shown shown;
    VPKeyboardViewController& controller = shown.stage.controller();
    // The first time fonts and pictures are read; a person opens the page again and again.
    const double first = millisecondsOf([&] {
        controller.launchEmoji();
        shown.paint();
    });
    const auto close = [&] {
        controller.dismissTheEmoction();
        shown.stage.advance(0.5);
        shown.paint();
    };
    figures.measure("emoji_open_drawn", close, [&] {
        controller.launchEmoji();
        shown.paint();
    });
    figures.json()["emoji_first_open"] = first;
    measureScrolling(figures, shown);
    measureMemory(figures, shown);
}

}  // namespace vorpel::bench
