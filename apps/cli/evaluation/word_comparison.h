// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace vorpel::cli {

/// A word as evaluation compares it: in small letters, and with the alefs that carry a hamza or a
/// madda as plain ones where `foldHamza` is set.
std::u32string comparable(const std::string& word, bool foldHamza);

}  // namespace vorpel::cli
