// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <stdlib.h>
#include <string>
#include <string_view>

namespace vorpel::testing {

/// An empty folder that goes with the object.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "vorpel-XXXXXX").string();
        if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] std::string path() const { return path_.string(); }
    [[nodiscard]] std::string path(const std::string& name) const { return (path_ / name).string(); }

    /// Writes a file of the folder and returns its path.
    std::string write(const std::string& name, std::string_view content) const {
        std::ofstream file(path_ / name, std::ios::binary);
        file.write(content.data(), static_cast<std::streamsize>(content.size()));
        if (!file.flush()) throw std::runtime_error("cannot write " + path(name));
        return path(name);
    }

private:
    std::filesystem::path path_;
};

}  // namespace vorpel::testing
