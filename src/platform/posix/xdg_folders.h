// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>

namespace vorpel::platform {

/// Where a program of this user keeps its settings and its data, after the XDG rules: the folder that
/// $XDG_CONFIG_HOME or $XDG_DATA_HOME names, else one under $HOME, and in it the program's own. A value that
/// is not an absolute path counts as none. The folder need not exist. Nothing when $HOME is needed and does
/// not say either. Reads the environment: not while another thread changes it.
[[nodiscard]] std::optional<std::string> xdgConfigurationFolder(const std::string& programName);
[[nodiscard]] std::optional<std::string> xdgDataFolder(const std::string& programName);

}  // namespace vorpel::platform
