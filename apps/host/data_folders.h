// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/posix/folder_bundle.h"

#include <filesystem>
#include <vector>

namespace vorpel::host {

/// Where the data may lie, the first choice first: where the user says ($VORPEL_DATA), beside an installed
/// program, and beside the build folder of the program.
[[nodiscard]] std::vector<std::filesystem::path> dataFolders();

/// The pictures on the keys. Throws std::runtime_error when they are in none of the data folders.
[[nodiscard]] platform::FolderBundle keyImages();

}  // namespace vorpel::host
