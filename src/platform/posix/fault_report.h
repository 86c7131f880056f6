// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>

namespace vorpel::platform {

/// Takes one line, without its end, that names a file and what is wrong with it. Called on the thread that
/// met the fault; it must not call back into the object that reports. May be empty: nobody is told.
using FaultReport = std::function<void(const std::string& line)>;

}  // namespace vorpel::platform
