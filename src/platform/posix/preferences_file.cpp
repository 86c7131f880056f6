// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/preferences_file.h"

#include "platform/posix/file_content.h"
#include "platform/posix/private_folder.h"
#include "storage/atomic_file.h"

#include <json/json.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <unistd.h>
#include <variant>

namespace vorpel::platform {
namespace {

std::optional<std::vector<std::string>> listFromJson(const Json::Value& json) {
    std::vector<std::string> list;
    for (const Json::Value& element : json) {
        if (!element.isString()) return std::nullopt;
        list.push_back(element.asString());
    }
    return list;
}

std::optional<UserDefaults::Value> valueFromJson(const Json::Value& json) {
    switch (json.type()) {
        case Json::booleanValue:
            return json.asBool();
        case Json::intValue:
        case Json::uintValue:
            if (!json.isInt64()) return std::nullopt;
            return std::int64_t{json.asInt64()};
        case Json::realValue:
            return json.asDouble();
        case Json::stringValue:
            return json.asString();
        case Json::arrayValue:
            return listFromJson(json);
        default:
            return std::nullopt;
    }
}

Json::Value jsonFrom(const UserDefaults::Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) return Json::Value::Int64{*number};
    if (const auto* list = std::get_if<std::vector<std::string>>(&value)) {
        Json::Value json(Json::arrayValue);
        for (const std::string& text : *list) json.append(text);
        return json;
    }
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    if (const auto* truth = std::get_if<bool>(&value)) return *truth;
    return std::get<double>(value);
}

/// The reader lets some comments pass even when it is told not to. Outside a text, JSON has no slash.
bool hasComment(const std::string& content) {
    bool inText = false;
    for (std::size_t at = 0; at < content.size(); ++at) {
        if (inText && content[at] == '\\') {
            ++at;
        } else if (content[at] == '"') {
            inText = !inText;
        } else if (!inText && content[at] == '/') {
            return true;
        }
    }
    return false;
}

/// Strict, so that nothing a person wrote into the file, such as a comment, is lost by the next save unseen.
std::optional<std::string> parse(const std::string& content, Json::Value& root) {
    Json::CharReaderBuilder builder;
    Json::CharReaderBuilder::strictMode(&builder.settings_);
    builder["allowSpecialFloats"] = true;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    std::string errors;
    try {
        // The reader throws where lists are nested too deep.
        if (!reader->parse(content.data(), content.data() + content.size(), &root, &errors)) return errors;
    } catch (const std::exception& exception) {
        return exception.what();
    }
    if (hasComment(content)) return "it holds a comment, which the next save would lose";
    if (!root.isObject()) return "it is not a JSON object";
    return std::nullopt;
}

/// @return what is wrong with the content
std::optional<std::string> take(const std::string& content, Preferences& values) {
    Json::Value root;
    if (auto error = parse(content, root)) return error;
    std::optional<std::string> fault;
    for (const std::string& key : root.getMemberNames()) {
        if (auto value = valueFromJson(root[key])) {
            values.emplace(key, std::move(*value));
        } else if (!fault) {
            fault = "the value of \"" + key + "\" is of no known kind";
        }
    }
    return fault;
}

int renameWithoutReplacing(const std::string& from, const std::string& to) {
    if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return errno;
    // Not every file system can refuse by itself.
    if (::faccessat(AT_FDCWD, to.c_str(), F_OK, AT_SYMLINK_NOFOLLOW) == 0) return EEXIST;
    return std::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

/// Several lines of a parser become one.
std::string asOneLine(std::string text) {
    while (!text.empty() && text.back() == '\n') text.pop_back();
    std::ranges::replace(text, '\n', ' ');
    return text;
}

void setAside(const std::string& path, const std::string& reason, FoundPreferences& found) {
    std::string name;
    int error = EEXIST;
    for (int number = 1; error == EEXIST; ++number) {
        name = path + ".damaged-" + std::to_string(number);
        error = renameWithoutReplacing(path, name);
    }
    found.setAside = error == 0;
    found.untouchable = error != 0;
    const std::string outcome = error == 0 ? "set aside as " + name
                                           : std::string(
                                                 "left as it is, nothing will be saved: it cannot be "
                                                 "set aside: ") +
                                                 std::strerror(error);
    found.fault = path + ": damaged preferences (" + asOneLine(reason) + "); " + outcome;
}

}  // namespace

FoundPreferences readPreferences(const std::string& path) {
    FoundPreferences found;
    std::string content;
    const int error = readRegularFile(path, content);
    if (error == ENOENT) return found;
    if (error != 0) {
        found.untouchable = true;
        found.fault = path + ": preferences cannot be read and will not be saved: " + std::strerror(error);
    } else if (const auto fault = take(content, found.values)) {
        setAside(path, *fault, found);
    }
    return found;
}

std::optional<std::string> writePreferences(const std::string& path, const Preferences& values) {
    Json::Value root(Json::objectValue);
    for (const auto& [key, value] : values) root[key] = jsonFrom(value);
    Json::StreamWriterBuilder builder;
    builder["indentation"] = "  ";
    builder["useSpecialFloats"] = true;
    // As they are: escaping would replace bytes that are not UTF-8.
    builder["emitUTF8"] = true;
    const std::string content = Json::writeString(builder, root) + "\n";
    int error = makePrivateFolderFor(path);
    if (error == 0) {
        error = wordengine::writeFileAtomically(
            path, {reinterpret_cast<const std::uint8_t*>(content.data()), content.size()});
    }
    if (error == 0) return std::nullopt;
    return path + ": preferences cannot be saved: " + std::strerror(error);
}

}  // namespace vorpel::platform
