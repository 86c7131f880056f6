// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel::ui {

/// Components and alpha from 0 to 1, not premultiplied.
struct Color {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 0;

    friend bool operator==(const Color&, const Color&) = default;

    static constexpr Color rgb(double red, double green, double blue, double alpha = 1) {
        return {red, green, blue, alpha};
    }
    static constexpr Color white(double alpha = 1) { return {1, 1, 1, alpha}; }
    static constexpr Color black(double alpha = 1) { return {0, 0, 0, alpha}; }
    static constexpr Color clear() { return {}; }

    /// Hue, saturation and brightness from 0 to 1.
    static Color hsb(double hue, double saturation, double brightness, double alpha = 1);

    [[nodiscard]] constexpr Color withAlpha(double value) const { return {red, green, blue, value}; }
    [[nodiscard]] constexpr bool isClear() const { return alpha <= 0; }
};

}  // namespace vorpel::ui
