// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/key_frame.h"

#include <string>

namespace vorpel::compiler {

/// Which letters the keys of a geometry file stand for.
enum class LetterCase { Lower, Upper };

/// The content of a geometry file for a drawn page: the keys with the codes of the asked case, their
/// centres as sweet spots, and a grid of 32 x 16 cells that list the small letters (what dictionaries
/// are written in) and the space within 1.2 key widths, nearest first. Same input, same bytes.
/// Throws std::invalid_argument for a page without keys, of no size, or with more keys than the
/// engine holds.
std::string geometryJson(const KeyPage& page, const std::string& locale, LetterCase letterCase);

/// Puts the file in place as a whole. Throws CompileError, with the path and the reason, when it cannot.
void writeGeometryFile(const std::string& path, const KeyPage& page, const std::string& locale,
                       LetterCase letterCase);

}  // namespace vorpel::compiler
