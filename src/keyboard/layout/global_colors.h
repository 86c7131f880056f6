// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "ui/color.h"

namespace vorpel {

/// Every colour of the built-in look, for light and dark surroundings. All of it may be overridden.
class GlobalColors {
public:
    virtual ~GlobalColors() = default;

    [[nodiscard]] virtual ui::Color lightModeRegularKey() const { return ui::Color::white(); }
    [[nodiscard]] virtual ui::Color darkModeRegularKey() const { return ui::Color::white(0.3); }
    [[nodiscard]] virtual ui::Color darkModeSolidColorRegularKey() const { return darkModeRegularKey(); }
    [[nodiscard]] virtual ui::Color lightModeSolidColorSpecialKey() const {
        return ui::Color::rgb(131.0 / 255, 144.0 / 255, 161.0 / 255, 0.5);
    }
    [[nodiscard]] virtual ui::Color lightModeSpecialKey() const { return lightModeSolidColorSpecialKey(); }
    [[nodiscard]] virtual ui::Color darkModeSolidColorSpecialKey() const { return ui::Color::white(0.13); }
    [[nodiscard]] virtual ui::Color darkModeSpecialKey() const { return darkModeSolidColorSpecialKey(); }
    [[nodiscard]] virtual ui::Color darkModeShiftKeyDown() const {
        return ui::Color::rgb(214.0 / 255, 220.0 / 255, 208.0 / 255);
    }
    [[nodiscard]] virtual ui::Color lightModePopup() const { return lightModeRegularKey(); }
    [[nodiscard]] virtual ui::Color darkModePopup() const {
        return ui::Color::rgb(94.0F / 255.0F, 88.0F / 255.0F, 82.0F / 255.0F);
    }
    [[nodiscard]] virtual ui::Color darkModeSolidColorPopup() const { return darkModePopup(); }
    [[nodiscard]] virtual ui::Color returnKeySolidBlueColor() const {
        return ui::Color::rgb(21.0F / 255.0F, 126.0F / 255.0F, 251.0F / 255.0F);
    }
    [[nodiscard]] virtual ui::Color lightModeUnderColor() const {
        return ui::Color::hsb(220.0 / 360, 0.04, 0.56);
    }
    [[nodiscard]] virtual ui::Color darkModeUnderColor() const {
        return ui::Color::rgb(38.6 / 255, 18.0 / 255, 39.3 / 255, 0.4);
    }
    [[nodiscard]] virtual ui::Color lightModeTextColor() const { return ui::Color::black(); }
    [[nodiscard]] virtual ui::Color darkModeTextColor() const { return ui::Color::white(); }
    [[nodiscard]] virtual ui::Color lightModeBorderColor() const {
        return ui::Color::hsb(214.0 / 360, 0.04, 0.65);
    }
    [[nodiscard]] virtual ui::Color darkModeBorderColor() const { return ui::Color::clear(); }

    [[nodiscard]] virtual ui::Color regularKey(bool darkMode, bool solidColorMode) const {
        if (!darkMode) return lightModeRegularKey();
        return solidColorMode ? darkModeSolidColorRegularKey() : darkModeRegularKey();
    }
    [[nodiscard]] virtual ui::Color popup(bool darkMode, bool solidColorMode) const {
        if (!darkMode) return lightModePopup();
        return solidColorMode ? darkModeSolidColorPopup() : darkModePopup();
    }
    [[nodiscard]] virtual ui::Color specialKey(bool darkMode, bool solidColorMode) const {
        if (darkMode) return solidColorMode ? darkModeSolidColorSpecialKey() : darkModeSpecialKey();
        return solidColorMode ? lightModeSolidColorSpecialKey() : lightModeSpecialKey();
    }
};

}  // namespace vorpel
