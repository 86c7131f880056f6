// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/input_error.h"

#include <string>
#include <string_view>
#include <vector>

namespace vorpel::compiler {

/// The whole content of a file. Throws InputError when it cannot be read.
[[nodiscard]] std::string readWholeFile(const std::string& path);

/// A text file in lines, checked to be UTF-8 as it is read. The lines are views into this object.
class ListFile {
public:
    /// Throws InputError when the file cannot be read.
    static ListFile open(const std::string& path);
    static ListFile fromText(std::string text, const std::string& path);

    /// Goes to the next line that is not empty and does not begin with '#', without its line end; false
    /// behind the last. Throws InputError at a line that is not UTF-8.
    bool next(std::string_view* line);

    /// Of the line that next() gave, from 1.
    int lineNumber() const { return lineNumber_; }
    const std::string& path() const { return path_; }

    /// "FILE:LINE" of the current line, for warnings.
    std::string place() const { return path_ + ":" + std::to_string(lineNumber_); }
    /// An error that blames the current line.
    InputError error(const std::string& reason) const { return {path_, lineNumber_, reason}; }

private:
    ListFile(std::string text, std::string path);

    std::string path_;
    std::string text_;
    size_t position_ = 0;
    int lineNumber_ = 0;
};

/// The parts of a line between the separators; empty parts are kept only by splitAt.
[[nodiscard]] std::vector<std::string_view> splitAt(std::string_view line, char separator);
[[nodiscard]] std::vector<std::string_view> splitAtBlanks(std::string_view line);

/// The text without spaces and tabs at its ends.
[[nodiscard]] std::string_view trimmed(std::string_view text);

/// A finite decimal number that is the whole of the text.
[[nodiscard]] bool parseNumber(std::string_view text, double* out);
[[nodiscard]] bool parseNumber(std::string_view text, int* out);

}  // namespace vorpel::compiler
