// SPDX-License-Identifier: Apache-2.0
#include "commands.h"
#include "keyboard/columns.h"
#include "keyboard/layout/key_frame_layout.h"
#include "keyboard/model/default_keyboard.h"
#include "text/diagnostics.h"

#include <json/json.h>

#include <cstdio>
#include <optional>
#include <stdexcept>
#include <string>

namespace vorpel::cli {

namespace {

const char* nameOf(Key::KeyType type) {
    static constexpr const char* NAMES[] = {"Character",    "SpecialCharacter", "Shift",       "Backspace",
                                            "ModeChange",   "KeyboardChange",   "LaunchEmoji", "Period",
                                            "Space",        "Return",           "Settings",    "Return_II",
                                            "Return_Send",  "Return_Search",    "Return_Done", "adjust_Left",
                                            "adjust_Right", "dismiss_Self",     "Other"};
    return NAMES[static_cast<std::size_t>(type)];
}

Json::Value orNull(const std::optional<std::string>& text) {
    return text ? Json::Value(*text) : Json::Value();
}

Json::Value describe(const Key& key, const ui::Rect& frame) {
    Json::Value described;
    described["type"] = nameOf(key.type);
    described["lowercaseKeyCap"] = orNull(key.lowercaseKeyCap);
    described["uppercaseKeyCap"] = orNull(key.uppercaseKeyCap);
    described["lowercaseOutput"] = orNull(key.lowercaseOutput);
    described["uppercaseOutput"] = orNull(key.uppercaseOutput);
    described["toMode"] = key.toMode ? Json::Value(*key.toMode) : Json::Value();
    for (const double measure : {frame.x, frame.y, frame.width, frame.height}) {
        described["frame"].append(measure);
    }
    return described;
}

/// The output of a key as one can see it.
std::string visible(const std::string& output) {
    if (output == "\n") return "\\n";
    return output == " " ? "blank" : output;
}

void printLine(const Key& key, const ui::Rect& frame) {
    const std::string output = visible(key.outputForCase(false));
    const std::string target = key.toMode ? " -> page " + std::to_string(*key.toMode) : "";
    std::printf("%-16s %s %s  %8.2f %8.2f %8.2f %8.2f%s\n", nameOf(key.type),
                padded(key.keyCapForCase(false), 6).c_str(), padded(output, 6).c_str(), frame.x, frame.y,
                frame.width, frame.height, target.c_str());
}

KeyFrames framesOf(const PageArguments& arguments, const Keyboard& keyboard) {
    const double screenWidth = arguments.screenWidth > 0 ? arguments.screenWidth : arguments.width;
    const platform::PlainScreen screen(screenWidth, screenWidth, arguments.scale);
    const platform::PlainDevice device(arguments.pad ? platform::UserInterfaceIdiom::Pad
                                                     : platform::UserInterfaceIdiom::Phone);
    const LayoutConstants constants(screen, device);
    KeyFrameLayout layout(constants, screen);
    const wordengine::Diagnostics::Silence noTrace;
    const auto frames =
        layout.generateKeyFrames(keyboard, {0, 0, arguments.width, arguments.height}, arguments.page);
    if (!frames || frames->empty()) {
        throw std::runtime_error("there is no page " + std::to_string(arguments.page));
    }
    return *frames;
}

}  // namespace

int describePage(const PageArguments& arguments) {
    const Keyboard keyboard = arguments.language == "ar" ? arabicKeyboard(0, 0) : defaultKeyboard(0, 0);
    const KeyFrames frames = framesOf(arguments, keyboard);
    if (!arguments.json) {
        for (const auto& [key, frame] : frames) printLine(*key, frame);
        return 0;
    }
    Json::Value page;
    page["language"] = arguments.language;
    page["page"] = arguments.page;
    page["width"] = arguments.width;
    page["height"] = arguments.height;
    std::size_t index = 0;
    for (const KeyRow& row : keyboard.pages[static_cast<std::size_t>(arguments.page)].rows) {
        Json::Value keys(Json::arrayValue);
        for (std::size_t k = 0; k < row.size(); ++k, ++index) {
            keys.append(describe(*frames[index].first, frames[index].second));
        }
        page["rows"].append(std::move(keys));
    }
    Json::StreamWriterBuilder builder;
    builder["indentation"] = "";
    builder["emitUTF8"] = true;
    std::printf("%s\n", Json::writeString(builder, page).c_str());
    return 0;
}

}  // namespace vorpel::cli
