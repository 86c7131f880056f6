// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/color.h"

namespace vorpel {

/// How well opaque text can be read on an opaque ground, or the other way round: from 1, not at all, to 21.
/// Text wants 4.5, signs and lines want 3.
[[nodiscard]] double contrast(const ui::Color& one, const ui::Color& other);

}  // namespace vorpel
