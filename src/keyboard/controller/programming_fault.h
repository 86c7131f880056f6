// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

namespace vorpel {

/// Tells on standard error what the program did wrong, and stops the process.
[[noreturn]] void programmingFault(std::string_view text);

}  // namespace vorpel
