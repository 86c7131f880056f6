// SPDX-License-Identifier: Apache-2.0
#include "keyboard/controller/keyboard_view_controller.h"
#include "keyboard/model/preference_keys.h"
#include "keyboard/theme/stored_theme.h"

namespace vorpel {

namespace {

// Hosts observe it under this name: it keeps its spelling.
constexpr const char* THEME_CHANGE = "theameChange";

}  // namespace

/// The keyboard observes for all of its keys: they take their colours from what is stored, and so do those
/// of the language that is not on show and those of pages to come.
void KeyboardViewController::observeThemes() {
    themeObservation_ = platform().notificationCenter.addObserver(
        THEME_CHANGE, [this](const platform::Notification& notification) { themeChange(notification); });
}

void KeyboardViewController::themeChange(const platform::Notification& notification) {
    const bool isTheme = std::any_cast<KeyboardThemeModel>(&notification.object) != nullptr;
    platform().userDefaults.setBool(preferences::IS_KEYBOARD_THEME, isTheme);
    saveTheme();
    updateAppearance();
}

void KeyboardViewController::themeChangeAccordingly(const std::optional<KeyboardThemeModel>& themeObject) {
    if (!themeObject) {
        takeThemeBack();
        return;
    }
    storeTheme(platform().userDefaults, *themeObject);
    platform().notificationCenter.post({THEME_CHANGE, *themeObject});
}

/// The words of the bar take the built-in look's colour with all else: white ones could not be read on it in
/// light surroundings.
void KeyboardViewController::takeThemeBack() {
    platform().userDefaults.setBool(preferences::IS_KEYBOARD_THEME, false);
    plane().forwardingView->resetTrackedViews();
    plane().forwardingView->removeFromSuperview();
    clearTheme(platform().userDefaults);
    platform().notificationCenter.post({THEME_CHANGE, {}});
    const bool wantsArabic =
        platform().userDefaults.stringForKey(preferences::LANGUAGE) == preferences::ARABIC;
    if (wantsArabic == isArabicModeOn_) {
        view_.insertSubview(*plane().forwardingView, 0);
    } else {
        // Chosen in the settings, which have not been left yet.
        changeKeyboardLanguage(wantsArabic ? preferences::ARABIC : preferences::ENGLISH);
    }
}

/// A disk may be slow. The queue is our own: the preferences may go before one of the platform's does.
void KeyboardViewController::saveTheme() {
    if (!savingQueue_) {
        savingQueue_ = platform().makeOperationQueue();
        savingQueue_->setMaxConcurrentOperationCount(1);
    }
    savingQueue_->addOperation([&defaults = platform().userDefaults] { defaults.synchronize(); });
}

}  // namespace vorpel
