// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel::ui {

enum class FontWeight { Light, Regular, Medium };

/// The system font; which families that is, the painter says.
struct Font {
    double size = 16;  ///< points
    FontWeight weight = FontWeight::Light;

    friend bool operator==(const Font&, const Font&) = default;
};

enum class TextAlignment { Left, Center, Right };

}  // namespace vorpel::ui
