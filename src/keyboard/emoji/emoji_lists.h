// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

namespace vorpel {

/// Faces, hands, people and what they wear, as far as they stand in no run of code points. One is there
/// twice.
[[nodiscard]] std::vector<std::string> facesAndPeople();

/// Flags of countries and territories.
[[nodiscard]] std::vector<std::string> countryFlags();

}  // namespace vorpel
