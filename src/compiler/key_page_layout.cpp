// SPDX-License-Identifier: Apache-2.0
#include "compiler/key_page_layout.h"

#include "keyboard/layout/key_frame_layout.h"
#include "keyboard/layout/layout_constants.h"
#include "keyboard/model/default_keyboard.h"
#include "text/diagnostics.h"
#include "text/utf.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace vorpel::compiler {

namespace {

constexpr double SCREEN_SCALE = 2;

struct HeldKey {
    const char* language;
    char32_t key;
    std::u32string_view letters;
};

constexpr HeldKey HELD_KEYS[] = {{"ar", U'ا', U"أإآ"}};

Keyboard keyboardOf(const std::string& language) {
    if (language == "en") return defaultKeyboard(0, 0);
    if (language == "ar") return arabicKeyboard(0, 0);
    throw std::invalid_argument("no keyboard for the language \"" + language + "\"");
}

KeyFrames framesOf(const Keyboard& keyboard, int page, double width, double height) {
    const platform::PlainScreen screen(width, height, SCREEN_SCALE);
    const platform::PlainDevice device;
    const LayoutConstants constants(screen, device);
    KeyFrameLayout layout(constants, screen);
    const wordengine::Diagnostics::Silence noTrace;
    return layout.generateKeyFrames(keyboard, {0, 0, width, height}, page).value_or(KeyFrames{});
}

/// What the key types where that is one code point in a line.
std::optional<int> codePointOf(const Key& key) {
    const auto codePoints = wordengine::utf8ToCodePoints(key.outputForCase(true));
    if (!codePoints || codePoints->size() != 1 || codePoints->front() == '\n') return std::nullopt;
    return codePoints->front();
}

}  // namespace

KeyPage layOutKeyPage(const std::string& language, int page, double width, double height) {
    const Keyboard keyboard = keyboardOf(language);
    const KeyFrames frames = framesOf(keyboard, page, width, height);
    if (frames.empty()) throw std::invalid_argument("there is no page " + std::to_string(page));
    KeyPage laidOut{width, height, {}};
    for (const auto& [key, frame] : frames) {
        if (!(frame.width >= 1 && frame.height >= 1)) {
            throw std::invalid_argument("the page is too small for its keys");
        }
        if (const auto codePoint = codePointOf(*key)) {
            laidOut.keys.push_back({*codePoint, frame.x, frame.y, frame.width, frame.height});
        }
    }
    return laidOut;
}

void addHeldLetters(const std::string& language, KeyPage* page) {
    for (const HeldKey& held : HELD_KEYS) {
        if (language != held.language) continue;
        const auto key = std::ranges::find(page->keys, static_cast<int>(held.key), &KeyFrame::codePoint);
        if (key == page->keys.end()) continue;
        KeyFrame frame = *key;
        for (const char32_t letter : held.letters) {
            frame.codePoint = static_cast<int>(letter);
            page->keys.push_back(frame);
        }
    }
}

}  // namespace vorpel::compiler
