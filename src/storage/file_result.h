// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <string_view>
#include <system_error>
#include <utility>

namespace wordengine {

/// How an operation on files went: well, or a message for people that names the file and the reason.
class [[nodiscard]] FileResult {
public:
    /// It went well.
    FileResult() = default;

    /// @param error an errno; 0 if the system named no reason
    static FileResult failure(const std::string& path, std::string_view action, int error) {
        std::string message = path + ": cannot " + std::string(action);
        if (error != 0) message += ": " + std::generic_category().message(error);
        return FileResult(std::move(message));
    }

    static FileResult failure(const std::string& path, std::string_view reason) {
        return FileResult(path + ": " + std::string(reason));
    }

    /// What a step that tells its errno by return value came to.
    static FileResult ofStep(const std::string& path, std::string_view action, int error) {
        return error == 0 ? FileResult() : failure(path, action, error);
    }

    [[nodiscard]] bool isOk() const { return message_.empty(); }
    /// Empty if it went well.
    [[nodiscard]] const std::string& message() const { return message_; }

private:
    explicit FileResult(std::string message) : message_(std::move(message)) {}

    std::string message_;
};

}  // namespace wordengine
