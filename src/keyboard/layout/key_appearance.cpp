// SPDX-License-Identifier: Apache-2.0
#include "keyboard/layout/keyboard_layout.h"
#include "keyboard/model/preference_keys.h"
#include "keyboard/theme/hex_color.h"
#include "platform/characters.h"

#include <optional>

namespace vorpel {

namespace {

using KeyType = Key::KeyType;

constexpr double CHARACTER_FONT_SIZE = 23;
constexpr double WORD_FONT_SIZE = 16;

/// Return keys that do more than end a line stand out.
bool standsOut(KeyType type) {
    return type >= KeyType::Return_II && type <= KeyType::Return_Done;
}

const char* imageName(KeyType type) {
    switch (type) {
        case KeyType::Settings:
            return "gear";
        case KeyType::Return_Search:
            return "search_keyboard";
        case KeyType::Return_Done:
            return "done";
        case KeyType::Return_Send:
            return "send";
        case KeyType::LaunchEmoji:
            return "emoji-dark";
        case KeyType::dismiss_Self:
            return "closekeyboard";
        default:
            return nullptr;
    }
}

}  // namespace

void KeyboardLayout::updateKeyAppearance() {
    for (const auto& [key, view] : modelToView_) {
        setAppearanceForKey(*view, *key, darkMode_, solidColorMode_);
    }
}

void KeyboardLayout::updateKeyCaps(bool fullReset, bool uppercase, bool characterUppercase,
                                   ShiftState shiftState) {
    for (const auto& [key, view] : modelToView_) {
        updateKeyCap(*view, *key, fullReset, uppercase, characterUppercase, shiftState);
    }
}

void KeyboardLayout::updateKeyCap(ImageKey& key, const Key& model, bool fullReset, bool uppercase,
                                  bool characterUppercase, ShiftState shiftState) {
    if (fullReset) {
        key.setShape(getShape(model.type));
        key.setImage(imageFor(model.type));
    }
    if (model.type == KeyType::Shift) {
        auto* const shape = static_cast<ShiftShape*>(key.shape());
        key.setHighlighted(vorpel::uppercase(shiftState));
        shape->setFilled(vorpel::uppercase(shiftState));
        shape->setWithLock(shiftState == ShiftState::Locked);
        key.shapeChanged();
    }
    updateKeyCapText(key, model, uppercase, characterUppercase);
}

void KeyboardLayout::updateKeyCapText(ImageKey& key, const Key& model, bool uppercase,
                                      bool characterUppercase) {
    const std::string cap = model.keyCapForCase(model.isCharacter() ? characterUppercase : uppercase);
    key.setFontSize(platform::characterCount(cap) == 1 ? CHARACTER_FONT_SIZE : WORD_FONT_SIZE);
    key.setText(cap);
}

Shape* KeyboardLayout::getShape(KeyType type) {
    auto& shape = shapePool_[type];
    if (shape) return shape.get();
    if (type == KeyType::Shift) shape = std::make_unique<ShiftShape>();
    if (type == KeyType::Backspace) shape = std::make_unique<BackspaceShape>();
    if (type == KeyType::KeyboardChange) shape = std::make_unique<GlobeShape>();
    return shape.get();
}

/// Without the picture the key shows its cap, if it has one.
std::string KeyboardLayout::imageFor(KeyType type) const {
    const char* const name = imageName(type);
    return name ? parts_.bundle.pathForResource(name, "svg").value_or("") : "";
}

void KeyboardLayout::setAppearanceForKey(ImageKey& key, const Key& model, bool darkMode,
                                         bool solidColorMode) {
    if (model.type == KeyType::Other || model.isSpecial() || model.isLandscapeSpecific()) {
        setAppearanceForOtherKey(key, model, darkMode, solidColorMode);
        return;
    }
    KeyColors colors = builtInColors(model, darkMode, solidColorMode);
    if (isThemed()) applyTheme(colors);
    key.setColors(colors);
}

void KeyboardLayout::setAppearanceForOtherKey(ImageKey& key, const Key& model, bool darkMode,
                                              bool solidColorMode) {
    const GlobalColors& global = parts_.colors;
    KeyColors colors = builtInColors(model, darkMode, solidColorMode);
    const ui::Color regular = global.regularKey(darkMode, solidColorMode);
    colors.face = global.specialKey(darkMode, solidColorMode);
    colors.faceDown = regular;
    if (model.type == KeyType::Shift && darkMode) {
        colors.faceDown = global.darkModeShiftKeyDown();
        colors.textDown = global.lightModeTextColor();
    } else if (standsOut(model.type)) {
        colors.face = global.returnKeySolidBlueColor();
        colors.text = global.darkModeTextColor();
    }
    if (isThemed()) applyTheme(colors);
    key.setColors(colors);
}

KeyColors KeyboardLayout::builtInColors(const Key& model, bool darkMode, bool solidColorMode) const {
    const GlobalColors& global = parts_.colors;
    KeyColors colors;
    colors.face = global.regularKey(darkMode, solidColorMode);
    // A character's popup tells that it is held; other keys change their ground.
    colors.faceDown = model.isCharacter() ? colors.face : global.specialKey(darkMode, solidColorMode);
    colors.text = colors.textDown = colors.popupText =
        darkMode ? global.darkModeTextColor() : global.lightModeTextColor();
    colors.border = ui::Color::clear();
    colors.under = darkMode ? global.darkModeUnderColor() : global.lightModeUnderColor();
    colors.popup = global.popup(darkMode, solidColorMode);
    return colors;
}

bool KeyboardLayout::isThemed() const {
    return parts_.userDefaults.boolForKey(preferences::IS_KEYBOARD_THEME);
}

void KeyboardLayout::applyTheme(KeyColors& colors) const {
    const auto stored = [&](const char* key, ui::Color fallback) {
        const std::optional<std::string> hex = parts_.userDefaults.stringForKey(key);
        return hex ? hexStringToUIColor(*hex) : fallback;
    };
    colors.face = stored(preferences::KEY_COLOR, colors.face);
    colors.faceDown = colors.face.withAlpha(0.6);
    colors.text = colors.textDown = colors.popupText = stored(preferences::KEY_TEXT_COLOR, colors.text);
    colors.border = stored(preferences::KEY_BORDER_COLOR, colors.border);
    colors.under = stored(preferences::KEY_UNDER_LINE_COLOR, colors.under);
    colors.popup = colors.face.withAlpha(1);
}

}  // namespace vorpel
