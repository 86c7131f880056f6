// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/text_input_traits.h"

#include <string>

namespace vorpel::host {

/// The traits of a field of "text", "email", "url", "number" or "password".
[[nodiscard]] platform::TextInputTraits traitsOfField(const std::string& field);

}  // namespace vorpel::host
