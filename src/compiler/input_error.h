// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>
#include <string>

namespace vorpel::compiler {

/// Anything that keeps a dictionary from being built or read; what() is one line for a person.
class CompileError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A fault in an input file: "FILE:LINE: REASON", or "FILE: REASON" where no line is to blame.
class InputError : public CompileError {
public:
    /// @param lineNumber counted from 1; 0 blames the whole file
    InputError(const std::string& filePath, int lineNumber, const std::string& faultReason)
        : CompileError(filePath + (lineNumber > 0 ? ":" + std::to_string(lineNumber) : "") + ": " +
                       faultReason),
          file(filePath),
          line(lineNumber),
          reason(faultReason) {}

    const std::string file;
    const int line;
    const std::string reason;
};

}  // namespace vorpel::compiler
