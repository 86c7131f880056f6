// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel::ui {

enum class FontWeight { Light, Regular, Medium };

/// What the characters are drawn as. Emoji makes pictures in colour of all that have one, of those too that
/// are signs of text otherwise, such as digits.
enum class FontFace { Text, Emoji };

/// The system font; which families that is, the painter says.
struct Font {
    double size = 16;  ///< points
    FontWeight weight = FontWeight::Light;
    FontFace face = FontFace::Text;

    friend bool operator==(const Font&, const Font&) = default;
};

enum class TextAlignment { Left, Center, Right };

}  // namespace vorpel::ui
