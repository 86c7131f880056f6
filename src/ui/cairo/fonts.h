// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/font.h"

#include <pango/pango.h>

#include <vector>

namespace vorpel::ui {

/// The families that make up the system font, the first that has a character's glyph before the others. This
/// is the one place that names them.
[[nodiscard]] std::vector<const char*> systemFontFamilies();

/// The family that has the emoji.
[[nodiscard]] const char* emojiFontFamily();

/// The families of a face as one list with commas.
[[nodiscard]] const char* fontFamilyList(FontFace face);

[[nodiscard]] PangoWeight fontWeight(FontWeight weight);

}  // namespace vorpel::ui
