// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace vorpel::platform {

/// Makes the folder in which a file is to lie, and those above it that are missing, for their owner only.
///
/// @return 0, or the errno of the first that could not be made
[[nodiscard]] int makePrivateFolderFor(const std::string& filePath);

}  // namespace vorpel::platform
