// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/folder_bundle.h"

#include <filesystem>
#include <utility>

namespace vorpel::platform {

FolderBundle::FolderBundle(std::vector<std::string> folders) : folders_(std::move(folders)) {}

std::optional<std::string> FolderBundle::pathForResource(const std::string& name,
                                                         const std::string& extension) const {
    for (const std::string& folder : folders_) {
        const std::filesystem::path path = std::filesystem::path(folder) / (name + "." + extension);
        std::error_code error;
        if (std::filesystem::is_regular_file(path, error)) return path.string();
    }
    return std::nullopt;
}

std::string FolderBundle::bundlePath() const {
    return folders_.empty() ? std::string() : folders_.front();
}

}  // namespace vorpel::platform
