// SPDX-License-Identifier: Apache-2.0
#include "command_line.h"
#include "suggestion/vp_word_suggestions.h"

#include <cstdio>
#include <exception>
#include <string>

namespace {

/// Libraries like to break their messages into lines.
std::string inOneLine(const std::string& message) {
    std::string line;
    for (const char character : message) {
        const bool isBlank = character == '\n' || character == ' ';
        if (!isBlank || (!line.empty() && line.back() != ' ')) line += isBlank ? ' ' : character;
    }
    if (!line.empty() && line.back() == ' ') line.pop_back();
    return line;
}

}  // namespace

int main(int argc, char** argv) {
    // Standard output is for answers.
    vorpel::VPWordSuggestions::setDiagnosticsStream(stderr);
    try {
        const int status = vorpel::cli::runCommandLine(argc, argv);
        if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
        std::fprintf(stderr, "vorpel: standard output cannot be written\n");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vorpel: %s\n", inOneLine(error.what()).c_str());
    }
    return 1;
}
