// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/posix/folder_bundle.h"

#include <filesystem>
#include <vector>

namespace vorpel::host {

/// Where the data may lie, the first choice first: where the user says ($VORPEL_DATA), beside an installed
/// program, and beside the build folder of the program.
[[nodiscard]] std::vector<std::filesystem::path> dataFolders();

/// What a keyboard needs: the pictures on the keys, and the dictionaries, key geometry and alternatives of
/// held keys that lie beside them. Throws std::runtime_error when no data folder has the pictures; without
/// dictionaries a keyboard suggests nothing.
[[nodiscard]] platform::FolderBundle keyboardResources();

}  // namespace vorpel::host
