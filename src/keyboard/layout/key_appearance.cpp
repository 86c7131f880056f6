// SPDX-License-Identifier: Apache-2.0
#include "keyboard/layout/keyboard_layout.h"
#include "keyboard/model/preference_keys.h"
#include "keyboard/theme/theme_color.h"
#include "platform/characters.h"

#include <optional>

namespace vorpel {

namespace {

using KeyType = Key::KeyType;

constexpr double CHARACTER_FONT_SIZE = 23;
constexpr double WORD_FONT_SIZE = 16;

// Of a theme's key colour over its background.
constexpr double THEME_SPECIAL_ALPHA = 0.5;

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

/// The sign that is drawn in place of a cap.
std::optional<ShapeClass> shapeOf(const Key& model) {
    switch (model.type) {
        case KeyType::Shift:
            return ShapeClass::Shift;
        case KeyType::Backspace:
            return ShapeClass::Backspace;
        case KeyType::KeyboardChange:
            return ShapeClass::Globe;
        case KeyType::adjust_Left:
            return ShapeClass::ChevronLeft;
        case KeyType::adjust_Right:
            return ShapeClass::ChevronRight;
        default:
            break;
    }
    const std::string cap = model.isReturn() ? model.keyCapForCase(true) : "";
    if (cap == "➔") return ShapeClass::Arrow;
    return cap == "↲" ? std::optional(ShapeClass::Return) : std::nullopt;
}

std::unique_ptr<Shape> makeShape(ShapeClass shapeClass) {
    switch (shapeClass) {
        case ShapeClass::Shift:
            return std::make_unique<ShiftShape>();
        case ShapeClass::Backspace:
            return std::make_unique<BackspaceShape>();
        case ShapeClass::Globe:
            return std::make_unique<GlobeShape>();
        case ShapeClass::ChevronLeft:
            return std::make_unique<ChevronShape>(ChevronShape::Direction::Left);
        case ShapeClass::ChevronRight:
            return std::make_unique<ChevronShape>(ChevronShape::Direction::Right);
        case ShapeClass::Arrow:
            return std::make_unique<ArrowShape>();
        case ShapeClass::Return:
            return std::make_unique<ReturnShape>();
    }
    return nullptr;
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
        const auto shapeClass = shapeOf(model);
        key.setShape(shapeClass ? getShape(*shapeClass) : nullptr);
        key.setImage(imageFor(model.type));
    }
    if (model.type == KeyType::Shift) {
        const bool filled = vorpel::uppercase(shiftState);
        const bool locked = shiftState == ShiftState::Locked;
        key.setHighlighted(filled);
        auto* const shape = dynamic_cast<ShiftShape*>(key.shape());
        if (shape && shape->setState(filled, locked)) key.shapeChanged();
    }
    updateKeyCapText(key, model, uppercase, characterUppercase);
}

void KeyboardLayout::updateKeyCapText(ImageKey& key, const Key& model, bool uppercase,
                                      bool characterUppercase) {
    const std::string cap = model.keyCapForCase(model.isCharacter() ? characterUppercase : uppercase);
    const bool isWord = platform::characterCount(cap) != 1;
    key.setText(cap, isWord ? WORD_FONT_SIZE : CHARACTER_FONT_SIZE,
                isWord ? KeyboardKey::CapKind::Word : KeyboardKey::CapKind::Letter);
}

Shape* KeyboardLayout::getShape(ShapeClass shapeClass) {
    auto& shape = shapePool_[shapeClass];
    if (!shape) shape = makeShape(shapeClass);
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
    KeyColors colors = builtInColors(darkMode, solidColorMode);
    applyTheme(colors, KeyRole::Letter);
    key.setColors(colors);
}

void KeyboardLayout::setAppearanceForOtherKey(ImageKey& key, const Key& model, bool darkMode,
                                              bool solidColorMode) {
    const GlobalColors& global = parts_.colors;
    KeyColors colors = builtInColors(darkMode, solidColorMode);
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
    applyTheme(colors, KeyRole::Special);
    key.setColors(colors);
}

KeyColors KeyboardLayout::builtInColors(bool darkMode, bool solidColorMode) const {
    const GlobalColors& global = parts_.colors;
    KeyColors colors;
    colors.face = global.regularKey(darkMode, solidColorMode);
    colors.faceDown = global.specialKey(darkMode, solidColorMode);
    colors.text = colors.textDown = colors.popupText =
        darkMode ? global.darkModeTextColor() : global.lightModeTextColor();
    colors.border = ui::Color::clear();
    colors.under = darkMode ? global.darkModeUnderColor() : global.lightModeUnderColor();
    colors.popup = global.popup(darkMode, solidColorMode);
    return colors;
}

/// A theme has one colour for all faces. As in the built-in look, special keys let the ground through, and a
/// held key looks as those of the other kind do.
void KeyboardLayout::applyTheme(KeyColors& colors, KeyRole role) const {
    if (!isThemed(parts_.userDefaults)) return;
    const auto stored = [&](const char* key, ui::Color builtIn) {
        return themeColor(parts_.userDefaults, key, builtIn);
    };
    const ui::Color full = stored(preferences::KEY_COLOR, colors.face);
    const ui::Color paler = full.withAlpha(full.alpha * THEME_SPECIAL_ALPHA);
    colors.face = role == KeyRole::Letter ? full : paler;
    colors.faceDown = role == KeyRole::Letter ? paler : full;
    colors.text = colors.textDown = colors.popupText = stored(preferences::KEY_TEXT_COLOR, colors.text);
    colors.border = stored(preferences::KEY_BORDER_COLOR, colors.border);
    colors.under = stored(preferences::KEY_UNDER_LINE_COLOR, colors.under);
    colors.popup = full.withAlpha(1);
}

}  // namespace vorpel
