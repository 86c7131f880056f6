// SPDX-License-Identifier: Apache-2.0
#include "keyboard/controller/keyboard_view_controller.h"
#include "keyboard/model/preference_keys.h"
#include "keyboard/settings/default_settings.h"

#include <algorithm>
#include <optional>

namespace vorpel {

/// A host's view that was destroyed has left the tree, and only its address is left here.
ui::View* KeyboardViewController::ifStillHere(ui::View* hostView) const {
    return std::ranges::find(view_.subviews(), hostView) != view_.subviews().end() ? hostView : nullptr;
}

void KeyboardViewController::addTopBarView(ui::View& viewForTopBar) {
    if (ui::View* const old = ifStillHere(topBarView); old && old != &viewForTopBar) {
        old->removeFromSuperview();
    }
    isTopBar = true;
    topBarView = &viewForTopBar;
    topBarView->setFrame({0, 0, view_.bounds().width, metric("topBar")});
    topBarView->setHidden(false);
    if (bannerView_) isBannerView = true;
    view_.addSubview(*topBarView);
    layoutPass();
}

void KeyboardViewController::hideTopBarView() {
    isTopBar = false;
    if (ui::View* const bar = ifStillHere(topBarView)) bar->setHidden(true);
    layoutPass();
}

void KeyboardViewController::showTopBarView() {
    isTopBar = true;
    if (ui::View* const bar = ifStillHere(topBarView)) {
        bar->setHidden(false);
        const ui::Rect frame = bar->frame();
        bar->setFrame({frame.x, frame.y, frame.width, metric("topBar")});
    }
    layoutPass();
}

void KeyboardViewController::openCustom(ui::View& viewForCustom) {
    ui::View* const old = ifStillHere(customView);
    if (!old) bannerWasShown_ = isBannerView;
    if (old && old != &viewForCustom) old->removeFromSuperview();
    plane().forwardingView->resetTrackedViews();
    isBannerView = false;
    isForwordView = false;
    platform().userDefaults.setBool(preferences::FAKE_TEXT_FIELD_ENABLED, true);
    customView = &viewForCustom;
    isCustomView = true;
    view_.addSubview(*customView);
    layoutPass();
}

void KeyboardViewController::dismissCustom() {
    platform().userDefaults.setBool(preferences::FAKE_TEXT_FIELD_ENABLED, false);
    if (ui::View* const old = ifStillHere(customView)) old->removeFromSuperview();
    customView = nullptr;
    isCustomView = false;
    // Nothing else is left to show.
    isBannerView = bannerWasShown_;
    isForwordView = true;
    layoutPass();
}

void KeyboardViewController::openKeyboard(ui::View* textView) {
    isCustomView = true;
    isForwordView = true;
    platform().userDefaults.setBool(preferences::FAKE_TEXT_FIELD_ENABLED, textView != nullptr);
    layoutPass();
}

void KeyboardViewController::restoreInput() {
    isCustomView = true;
    isForwordView = true;
    platform().userDefaults.setBool(preferences::FAKE_TEXT_FIELD_ENABLED, false);
    layoutPass();
}

void KeyboardViewController::showOverlayView(ui::View& overlayV) {
    if (isOverlay) return;
    isOverlay = true;
    overlayView = &overlayV;
    overlayView->setFrame(plane().forwardingView->frame());
    view_.addSubview(*overlayView);
}

void KeyboardViewController::hideOverlayView() {
    if (!isOverlay) return;
    if (ui::View* const overlay = ifStillHere(overlayView)) overlay->removeFromSuperview();
    overlayView = nullptr;
    isOverlay = false;
}

void KeyboardViewController::addViewOnSuggestionBar(ui::View& view) {
    setBanner(view);
}

void KeyboardViewController::changeKeyboardLanguage(const std::string& value) {
    plane().forwardingView->resetTrackedViews();
    plane().forwardingView->removeFromSuperview();
    if (value == preferences::ARABIC) {
        ArabicClicked();
    } else {
        EnglishClicked();
    }
    wordSuggestionsOn();
}

void KeyboardViewController::changeKeyboardSetting(VorpelIMESettings key, bool value) {
    const char* name = nullptr;
    switch (key) {
        case VorpelIMESettings::AUTO_CAPITALIZATION:
            name = preferences::kAutoCapitalization;
            break;
        case VorpelIMESettings::AUTO_CORRECTION:
            name = preferences::kAutoCorrection;
            break;
        case VorpelIMESettings::WORD_SUGGESTION:
            name = preferences::kWordSuggestions;
            break;
        case VorpelIMESettings::KEYPAD_CLICK_SOUND:
            name = preferences::kKeyboardClicks;
            break;
        case VorpelIMESettings::LOWERCASE_KEY_CAPS:
            name = preferences::kSmallLowercase;
            break;
    }
    if (!name) return;
    platform().userDefaults.setBool(name, value);
    // The caps follow at once, not with the next shift.
    if (key == VorpelIMESettings::LOWERCASE_KEY_CAPS) setShiftState(shiftState_);
}

void KeyboardViewController::wordSuggestionsOn() {
    platform().notificationCenter.post({"dictionaryReload", {}});
}

bool KeyboardViewController::settingsOnShow() const {
    return settingsView_ && settingsView_->superview();
}

void KeyboardViewController::toggleSettings(bool hide) {
    if (hide) {
        if (!settingsOnShow()) return;
        settingsView_->removeFromSuperview();
        if (platform().userDefaults.boolForKey(preferences::NEED_TO_RELOAD_LANGUAGE)) {
            platform().userDefaults.setBool(preferences::NEED_TO_RELOAD_LANGUAGE, false);
            changeKeyboardLanguage(
                platform().userDefaults.stringForKey(preferences::LANGUAGE).value_or(preferences::ENGLISH));
        }
        // A setting may have changed what the faces show.
        setShiftState(shiftState_);
        return;
    }
    if (!settingsView_) {
        settingsView_ = std::make_unique<DefaultSettings>(*globalColors_, darkMode(), solidColorMode(),
                                                          platform().userDefaults);
        settingsView_->setCloseHandler([this] { toggleSettings(true); });
    }
    plane().forwardingView->resetTrackedViews();
    settingsView_->updateAppearance(darkMode());
    settingsView_->reload();
    settingsView_->setFrame(plane().forwardingView->frame());
    view_.addSubview(*settingsView_);
}

}  // namespace vorpel
