// SPDX-License-Identifier: Apache-2.0
#include "commands.h"
#include "platform/posix/file_content.h"
#include "platform/posix/xdg_folders.h"
#include "storage/atomic_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorpel::cli {

namespace {

std::string learnedWordsFile() {
    const auto folder = platform::xdgDataFolder("vorpel");
    if (!folder) throw std::runtime_error("no folder for the learnt words: HOME is not set");
    return *folder + "/words.txt";
}

/// A missing file has no lines.
std::vector<std::string> readLines(const std::string& path) {
    std::string content;
    const int error = platform::readRegularFile(path, content);
    if (error != 0 && error != ENOENT) throw std::runtime_error(path + ": " + std::strerror(error));
    std::vector<std::string> lines;
    std::istringstream stream(content);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

void writeLines(const std::string& path, const std::vector<std::string>& lines) {
    std::string content;
    for (const std::string& line : lines) content += line + "\n";
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(content.data());
    const int error = wordengine::writeFileAtomically(path, std::span(bytes, content.size()));
    if (error != 0) throw std::runtime_error(path + ": " + std::strerror(error));
}

}  // namespace

int listWords(const WordsArguments& /*arguments*/) {
    for (const std::string& line : readLines(learnedWordsFile())) {
        if (!line.empty()) std::printf("%s\n", line.c_str());
    }
    return 0;
}

int removeWords(const WordsArguments& arguments) {
    const std::string path = learnedWordsFile();
    std::vector<std::string> lines = readLines(path);
    for (const std::string& word : arguments.words) {
        // Without all of them nothing is removed: one of them is perhaps misspelled.
        if (std::erase(lines, word) == 0)
            throw std::runtime_error(path + ": \"" + word + "\" was not learnt");
    }
    writeLines(path, lines);
    return 0;
}

}  // namespace vorpel::cli
