// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace vorpel {

/// What is wrong with a file that a word service needs.
struct ResourceFault {
    enum class Resource { Dictionary, Geometry };

    Resource resource;
    std::string text;  ///< one line that names the file and the reason
};

}  // namespace vorpel
