// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cmath>

namespace vorpel::cli {

/// A share in percent with two decimals; 0 of nothing.
inline double percent(double part, double whole) {
    return whole == 0 ? 0.0 : std::round(10000 * part / whole) / 100;
}

}  // namespace vorpel::cli
