// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/xdg_folders.h"

#include <cstdlib>
#include <filesystem>

namespace vorpel::platform {
namespace {

std::optional<std::filesystem::path> absoluteFolder(const char* variable) {
    const char* const value = std::getenv(variable);
    if (!value || value[0] != '/') return std::nullopt;
    return value;
}

std::optional<std::string> folder(const char* variable, const char* underHome, const std::string& program) {
    if (const auto named = absoluteFolder(variable)) return (*named / program).string();
    if (const auto home = absoluteFolder("HOME")) return (*home / underHome / program).string();
    return std::nullopt;
}

}  // namespace

std::optional<std::string> xdgConfigurationFolder(const std::string& programName) {
    return folder("XDG_CONFIG_HOME", ".config", programName);
}

std::optional<std::string> xdgDataFolder(const std::string& programName) {
    return folder("XDG_DATA_HOME", ".local/share", programName);
}

}  // namespace vorpel::platform
