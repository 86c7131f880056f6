// SPDX-License-Identifier: Apache-2.0
#include "keyboard/theme_file.h"

#include "keyboard/model/preference_keys.h"

#include <json/json.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <stdexcept>

namespace vorpel::cli {

namespace {

constexpr const char* COLORS[] = {preferences::KEYBOARD_BACKGROUND_COLOR, preferences::KEY_COLOR,
                                  preferences::KEY_TEXT_COLOR, preferences::KEY_BORDER_COLOR,
                                  preferences::KEY_UNDER_LINE_COLOR};

bool isColor(const Json::Value& value) {
    if (!value.isString()) return false;
    const std::string text = value.asString();
    return text.size() == 7 && text[0] == '#' &&
           text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos;
}

Json::Value readObject(const std::string& path) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error(path + ": " + std::strerror(errno));
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    Json::Value value;
    std::string errors;
    try {
        if (!Json::parseFromStream(builder, file, &value, &errors)) throw std::runtime_error(errors);
    } catch (const std::exception& error) {
        throw std::runtime_error(path + ": not JSON: " + error.what());
    }
    if (!value.isObject()) throw std::runtime_error(path + ": not an object of colours");
    return value;
}

}  // namespace

void applyThemeFile(const std::string& path, platform::UserDefaults& defaults) {
    const Json::Value theme = readObject(path);
    for (const std::string& name : theme.getMemberNames()) {
        if (std::ranges::find(COLORS, name) == std::end(COLORS)) {
            throw std::runtime_error(path + ": \"" + name + "\" is no colour of a theme");
        }
        if (!isColor(theme[name])) {
            throw std::runtime_error(path + ": \"" + name + "\" is not of the form \"#RRGGBB\"");
        }
        defaults.setString(name, theme[name].asString());
    }
    defaults.setBool(preferences::IS_KEYBOARD_THEME, true);
}

}  // namespace vorpel::cli
