// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace vorpel::platform {

/// Reads a whole file. What is not a regular file, such as a pipe, on which reading would wait, counts as
/// unreadable.
///
/// @return 0, or an errno
[[nodiscard]] int readRegularFile(const std::string& path, std::string& content);

}  // namespace vorpel::platform
