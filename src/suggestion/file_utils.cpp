// SPDX-License-Identifier: Apache-2.0
#include "suggestion/file_utils.h"

#include <json/reader.h>

#include <dirent.h>
#include <filesystem>
#include <fstream>
#include <memory>
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

/// A file whose size cannot be told is left to the reader, which finds out soon enough.
bool isTooLarge(const std::string& path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return !error && size > MAX_JSON_FILE_SIZE;
}

bool parse(std::istream& stream, Json::Value* root) {
    Json::CharReaderBuilder builder;
    builder["collectComments"] = false;
    builder["allowTrailingCommas"] = false;
    std::string errors;
    return Json::parseFromStream(builder, stream, root, &errors);
}

}  // namespace

std::runtime_error FileUtils::readingFailure(const std::string& path, const std::string& reason) {
    return std::runtime_error("reading file : " + path + " has failed : " + reason);
}

Json::Value FileUtils::loadJson(const std::string& path) {
    if (isTooLarge(path)) throw readingFailure(path, "the file is too large");
    Json::Value root;
    bool parsed = false;
    try {
        std::ifstream stream(path);
        parsed = parse(stream, &root);
    } catch (const std::exception& error) {
        throw readingFailure(path, error.what());
    }
    if (!parsed) throw std::runtime_error("reading file : " + path + " has failed!");
    return root;
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
