// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/color.h"

#include <string_view>

namespace vorpel {

/// "#RRGGBB", with or without the sign, in either case, white space around it passed over. Anything else is
/// grey.
ui::Color hexStringToUIColor(std::string_view hex);

}  // namespace vorpel
