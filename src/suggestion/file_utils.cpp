// SPDX-License-Identifier: Apache-2.0
#include "suggestion/file_utils.h"

#include "suggestion/long_int_array.h"

#include <json/reader.h>

#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <new>
#include <sstream>
#include <sys/stat.h>

namespace vorpel {

namespace {

struct Entry {
    std::string name;
    bool isDirectory;
};

bool isDirectory(const std::string& directory, const dirent& entry) {
    if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
    // Some file systems do not tell.
    struct stat status;
    return stat((directory + "/" + entry.d_name).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::vector<Entry> listEntries(const std::string& directory) {
    std::vector<Entry> entries;
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(directory.c_str()), closedir);
    if (stream == nullptr) return entries;
    while (const dirent* const entry = readdir(stream.get())) {
        entries.push_back({entry->d_name, isDirectory(directory, *entry)});
    }
    return entries;
}

/// Some dozen times what a keyboard's geometry takes; parsed, a file takes many times its size in memory.
constexpr std::uintmax_t MAX_JSON_FILE_SIZE = 1 << 20;

/// A file that cannot be looked at is left to the reader, which finds out soon enough.
void requireReadableSize(const std::string& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    // Opening a pipe would wait for somebody to write into it.
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
        throw FileUtils::readingFailure(path, "it is not a plain file");
    }
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (!error && size > MAX_JSON_FILE_SIZE) {
        throw FileUtils::readingFailure(path, "the file is too large");
    }
}

bool parse(const std::string& text, Json::Value* root, std::string* errors) {
    Json::CharReaderBuilder builder;
    builder["collectComments"] = false;
    builder["allowTrailingCommas"] = false;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    return reader->parse(text.data(), text.data() + text.size(), root, errors);
}

/// The parser tells each error in two lines, "* PLACE" and "  REASON"; the first counts.
std::string firstOf(const std::string& errors) {
    std::istringstream lines(errors);
    std::string place, reason;
    if (!std::getline(lines >> std::ws, place) || !std::getline(lines >> std::ws, reason)) return "not JSON";
    return place.substr(place.find_first_not_of("* ")) + ": " + reason;
}

}  // namespace

FileUtils::ReadingFailure FileUtils::readingFailure(const std::string& path, const std::string& reason) {
    return {"reading file : " + path + " has failed : " + reason, path, reason};
}

Json::Value FileUtils::loadJson(const std::string& path, LongIntArray* longArray) {
    requireReadableSize(path);
    Json::Value root;
    std::string reason;
    try {
        std::ifstream stream(path);
        if (!stream) {
            reason = std::strerror(errno);
        } else {
            std::string text(std::istreambuf_iterator<char>(stream), {});
            std::string errors;
            if (longArray) longArray->takeFrom(&text);
            if (parse(text, &root, &errors)) return root;
            reason = firstOf(errors);
        }
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        throw readingFailure(path, error.what());
    }
    throw ReadingFailure("reading file : " + path + " has failed!", path, reason);
}

std::vector<std::string> FileUtils::getFiles(const std::string& directory, bool filter,
                                             const std::string& text) {
    std::vector<std::string> names;
    for (const Entry& entry : listEntries(directory)) {
        if (entry.isDirectory) continue;
        if (!filter || entry.name.find(text) != std::string::npos) names.push_back(entry.name);
    }
    return names;
}

std::vector<std::string> FileUtils::getDirs(const std::string& directory) {
    std::vector<std::string> names;
    for (const Entry& entry : listEntries(directory)) {
        if (entry.isDirectory && entry.name.find('.') == std::string::npos) names.push_back(entry.name);
    }
    return names;
}

}  // namespace vorpel
