// SPDX-License-Identifier: Apache-2.0
#include "keyboard/controller/programming_fault.h"

#include <cstdio>
#include <cstdlib>

namespace vorpel {

void programmingFault(std::string_view text) {
    std::fprintf(stderr, "vorpel: %.*s\n", static_cast<int>(text.size()), text.data());
    std::abort();
}

}  // namespace vorpel
