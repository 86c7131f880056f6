// SPDX-License-Identifier: Apache-2.0
#include "keyboard/alternatives/alternatives_table.h"

#include "platform/characters.h"
#include "text/diagnostics.h"

#include <json/json.h>

#include <algorithm>
#include <fstream>
#include <memory>
#include <stdexcept>

namespace vorpel {

namespace {

using wordengine::Diagnostics;

// More would not find room above a key.
constexpr Json::ArrayIndex MOST_TEXTS = 24;

// Longer is no letter any more.
constexpr std::size_t MOST_BYTES = 32;

std::string readText(const std::string& key, const Json::Value& value) {
    if (!value.isString()) throw std::runtime_error("\"" + key + "\" offers something that is no text");
    std::string text = value.asString();
    if (text.empty() || text.size() > MOST_BYTES || !platform::isWellFormedUtf8(text)) {
        throw std::runtime_error("\"" + key + "\" offers a text that is empty, too long or not UTF-8");
    }
    return text;
}

std::vector<std::string> readTexts(const std::string& key, const Json::Value& value) {
    if (!value.isArray()) throw std::runtime_error("\"" + key + "\" is no array");
    if (value.size() > MOST_TEXTS) throw std::runtime_error("\"" + key + "\" offers too many texts");
    std::vector<std::string> texts;
    for (const Json::Value& element : value) texts.push_back(readText(key, element));
    return texts;
}

/// Throws what is wrong with the file, in one line.
Json::Value parse(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("it cannot be opened");
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    Json::Value root;
    std::string errors;
    if (!Json::parseFromStream(builder, file, &root, &errors)) {
        std::ranges::replace(errors, '\n', ' ');
        throw std::runtime_error(errors);
    }
    if (!root.isObject()) throw std::runtime_error("it is no JSON object");
    return root;
}

}  // namespace

const std::vector<std::string>& AlternativesTable::alternativesOf(const std::string& language,
                                                                  const std::string& key) {
    static const std::vector<std::string> NONE;
    auto loaded = languages_.find(language);
    if (loaded == languages_.end()) loaded = languages_.emplace(language, load(language)).first;
    const auto found = loaded->second.find(key);
    return found == loaded->second.end() ? NONE : found->second;
}

AlternativesTable::Texts AlternativesTable::load(const std::string& language) const {
    const std::string name = "alternatives_" + language;
    const auto path = bundle_.pathForResource(name, "json");
    if (!path) {
        Diagnostics::print("%s.json: not found; held keys offer nothing\n", name.c_str());
        return {};
    }
    try {
        const Json::Value root = parse(*path);
        Texts texts;
        for (const std::string& key : root.getMemberNames()) texts[key] = readTexts(key, root[key]);
        return texts;
    } catch (const std::exception& error) {
        Diagnostics::print("%s: %s; held keys offer nothing\n", path->c_str(), error.what());
        return {};
    }
}

}  // namespace vorpel
