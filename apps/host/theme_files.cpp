// SPDX-License-Identifier: Apache-2.0
#include "theme_files.h"

#include "data_folders.h"
#include "keyboard/model/preference_keys.h"

#include <json/json.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace vorpel::host {

namespace {

namespace fs = std::filesystem;

constexpr const char* MEMBERS[] = {
    preferences::KEYBOARD_BACKGROUND_COLOR, preferences::KEY_COLOR,
    preferences::SUGGESTION_BAR_COLOR,      preferences::SUGGESTION_DIVIDER_COLOR,
    preferences::SUGGESTION_TEXT_COLOR,     preferences::KEY_TEXT_COLOR,
    preferences::KEY_BORDER_COLOR,          preferences::KEY_UNDER_LINE_COLOR,
    preferences::IS_THEME_DARK_TYPE};

bool isColor(const Json::Value& value) {
    if (!value.isString()) return false;
    const std::string text = value.asString();
    return text.size() == 7 && text[0] == '#' &&
           text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos;
}

/// The members of one theme file, by the name under which they are stored.
class ThemeReader {
public:
    explicit ThemeReader(const std::string& path) : path_(path) {
        std::ifstream file(path);
        if (!file) fail(std::strerror(errno));
        Json::CharReaderBuilder builder;
        Json::CharReaderBuilder::strictMode(&builder.settings_);
        std::string errors;
        try {
            if (!Json::parseFromStream(builder, file, &members_, &errors)) throw std::runtime_error(errors);
        } catch (const std::exception& error) {
            fail("not JSON: " + onOneLine(error.what()));
        }
        if (!members_.isObject()) fail("not an object of colours");
        for (const std::string& name : members_.getMemberNames()) {
            if (std::ranges::find(MEMBERS, name) == std::end(MEMBERS))
                fail(quoted(name) + " is no part of a theme");
        }
    }

    [[nodiscard]] std::string color(const char* name) const {
        if (!isColor(member(name))) fail(quoted(name) + " is not of the form \"#RRGGBB\"");
        return member(name).asString();
    }

    [[nodiscard]] bool truth(const char* name) const {
        if (!member(name).isBool()) fail(quoted(name) + " is neither true nor false");
        return member(name).asBool();
    }

private:
    [[nodiscard]] const Json::Value& member(const char* name) const {
        if (!members_.isMember(name)) fail(quoted(name) + " is missing");
        return members_[name];
    }

    static std::string quoted(const std::string& name) { return "\"" + name + "\""; }

    /// The parser tells line and column on a line of their own.
    static std::string onOneLine(std::string text) {
        while (!text.empty() && text.back() == '\n') text.pop_back();
        std::ranges::replace(text, '\n', ' ');
        return text;
    }

    [[noreturn]] void fail(const std::string& reason) const {
        throw std::runtime_error(path_ + ": " + reason);
    }

    const std::string& path_;
    Json::Value members_;
};

/// "deep-blue.json" is "Deep blue".
std::string nameOf(const fs::path& file) {
    std::string name = file.stem().string();
    std::ranges::replace(name, '-', ' ');
    if (!name.empty()) name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(name[0])));
    return name;
}

std::vector<fs::path> themeFilesOf(const fs::path& dataFolder) {
    std::vector<fs::path> files;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(dataFolder / "themes", error)) {
        if (entry.path().extension() == ".json") files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

}  // namespace

KeyboardThemeModel readTheme(const std::string& path) {
    const ThemeReader file(path);
    return {
        file.color(preferences::KEYBOARD_BACKGROUND_COLOR), file.color(preferences::KEY_COLOR),
        file.color(preferences::SUGGESTION_BAR_COLOR),      file.color(preferences::SUGGESTION_DIVIDER_COLOR),
        file.color(preferences::SUGGESTION_TEXT_COLOR),     file.color(preferences::KEY_TEXT_COLOR),
        file.color(preferences::KEY_BORDER_COLOR),          file.color(preferences::KEY_UNDER_LINE_COLOR),
        file.truth(preferences::IS_THEME_DARK_TYPE)};
}

std::vector<NamedTheme> findThemes(const platform::FaultReport& report) {
    std::vector<NamedTheme> themes;
    for (const fs::path& folder : dataFolders()) {
        for (const fs::path& file : themeFilesOf(folder)) {
            try {
                themes.push_back({nameOf(file), readTheme(file.string())});
            } catch (const std::runtime_error& error) {
                if (report) report(error.what());
            }
        }
        if (!themes.empty()) break;
    }
    return themes;
}

}  // namespace vorpel::host
