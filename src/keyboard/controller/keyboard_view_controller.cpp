// SPDX-License-Identifier: Apache-2.0
#include "keyboard/controller/keyboard_view_controller.h"

#include "keyboard/controller/programming_fault.h"
#include "keyboard/model/default_keyboard.h"
#include "keyboard/model/preference_keys.h"
#include "keyboard/settings/default_settings.h"
#include "keyboard/theme/theme_color.h"

#include <utility>

namespace vorpel {

namespace {

constexpr ui::Color LIGHT_BACKGROUND = ui::Color::rgb(0.8039, 0.8157, 0.8353);
constexpr ui::Color DARK_BACKGROUND = ui::Color::black();

}  // namespace

std::unique_ptr<KeyboardViewController> KeyboardViewController::create(platform::Platform& platform) {
    std::unique_ptr<KeyboardViewController> controller(new KeyboardViewController(platform));
    controller->setUp();
    return controller;
}

KeyboardViewController::KeyboardViewController(platform::Platform& platform)
    : InputViewController(platform), modelName(platform.device.modelName()) {}

KeyboardViewController::~KeyboardViewController() = default;

void KeyboardViewController::setUp() {
    platform::UserDefaults& defaults = platform().userDefaults;
    registerKeyboardDefaults(defaults);
    layoutConstants_ = makeLayoutConstants();
    globalColors_ = makeGlobalColors();
    isArabicModeOn_ = defaults.stringForKey(preferences::LANGUAGE) == preferences::ARABIC;
    makePlane(english_, defaultKeyboard(keyboardType, returnType));
    makePlane(arabic_, arabicKeyboard(keyboardType, returnType));
    view_.addSubview(*plane().forwardingView);
    bannerView_ = createBanner();
    if (bannerView_) view_.addSubview(*bannerView_);
    view_.addSubview(*plane().popupLayer);
    observeThemes();
    updateAppearance();
}

std::unique_ptr<LayoutConstants> KeyboardViewController::makeLayoutConstants() {
    return std::make_unique<LayoutConstants>(platform().screen, platform().device);
}

std::unique_ptr<GlobalColors> KeyboardViewController::makeGlobalColors() {
    return std::make_unique<GlobalColors>();
}

std::unique_ptr<KeyboardLayout> KeyboardViewController::makeLayout(KeyPlane& plane) {
    const LayoutParts parts{*layoutConstants_, *globalColors_, platform().screen, platform().bundle,
                            platform().userDefaults};
    return std::make_unique<KeyboardLayout>(parts, plane.model, *plane.forwardingView, *plane.popupLayer);
}

std::unique_ptr<ForwardingView> KeyboardViewController::makeForwardingView() {
    return std::make_unique<ForwardingView>(platform().runLoop, platform().notificationCenter);
}

void KeyboardViewController::makePlane(KeyPlane& plane, Keyboard model) {
    if (plane.forwardingView) {
        plane.forwardingView->removeFromSuperview();
        plane.popupLayer->removeFromSuperview();
        // One of its keys may be the one whose action is running.
        platform().runLoop.async([old = std::make_shared<KeyPlane>(std::move(plane))] {});
        plane = {};
        keysArray.clear();
        keyFramesArray.clear();
        keyCharArray.clear();
    }
    plane.model = std::move(model);
    plane.forwardingView = makeForwardingView();
    plane.popupLayer = std::make_unique<ui::View>();
    plane.popupLayer->setUserInteractionEnabled(false);
}

void KeyboardViewController::viewDidLoad() {
    setupKludge();
}

void KeyboardViewController::viewWillAppear() {
    if (traitPollingTimer_) traitPollingTimer_->setPaused(false);
}

void KeyboardViewController::viewWillDisappear() {
    // A key that is held when the keyboard goes away would be held for ever.
    plane().forwardingView->resetTrackedViews();
    cancelBackspaceTimers();
    hidePopupCallback();
    // Nobody sees what surrounds a keyboard that is away.
    if (traitPollingTimer_) traitPollingTimer_->setPaused(true);
}

/// A view that fills the keyboard and is never seen: what a subclass hangs its own views' sizes on.
void KeyboardViewController::setupKludge() {
    kludge_.setHidden(true);
    kludge_.setFrame(view_.bounds());
    view_.insertSubview(kludge_, 0);
}

void KeyboardViewController::viewDidLayoutSubviews() {
    if (view_.bounds() == ui::Rect{}) return;
    setupLayout();
    layOutKeys();
    keyboardHeight_ = getheightForOrientation(platform().host.interfaceOrientation(), isBannerView, isTopBar,
                                              isCustomView, isForwordView);
    setHeight(keyboardHeight_);
    stackViews();
    // A theme may have come since the last pass.
    plane().layout->updateKeyAppearance();
}

void KeyboardViewController::setupLayout() {
    KeyPlane& shown = plane();
    if (shown.layout) return;
    shown.layout = makeLayout(shown);
    shown.layout->setLook(darkMode(), solidColorMode());
    addInputTraitsObservers();
}

void KeyboardViewController::layOutKeys() {
    const ui::Rect bounds = view_.bounds();
    if (lastLayoutBounds_ == bounds) return;
    const ui::Rect frame{0, plane().forwardingView->frame().y, bounds.width, keysHeight()};
    plane().forwardingView->setFrame(frame);
    plane().popupLayer->setFrame(bounds);
    kludge_.setFrame(bounds);
    lastLayoutBounds_ = bounds;
    showPage(plane());
}

void KeyboardViewController::layOutAnew() {
    lastLayoutBounds_.reset();
    layoutPass();
}

/// From the top: the host's bar, its own view, the banner, the keys.
void KeyboardViewController::stackViews() {
    const double width = view_.bounds().width;
    double y = 0;
    if (isTopBar) {
        if (ui::View* const bar = ifStillHere(topBarView)) bar->setFrame({0, y, width, metric("topBar")});
        y += metric("topBar");
    }
    if (ui::View* const custom = isCustomView ? ifStillHere(customView) : nullptr) {
        const ui::Rect frame = custom->frame();
        custom->setFrame({frame.x, y, frame.width, frame.height});
        y += frame.height;
    }
    if (bannerView_) bannerView_->setHidden(!isBannerView);
    if (isBannerView) {
        if (bannerView_) bannerView_->setFrame({0, y, width, metric("topBanner")});
        y += metric("topBanner");
    }
    ForwardingView& keys = *plane().forwardingView;
    keys.setHidden(keysAreHidden());
    keys.setFrame({0, y, width, keys.frame().height});
    if (settingsView_) settingsView_->setFrame(keys.frame());
    view_.bringSubviewToFront(*plane().popupLayer);
    if (ui::View* const overlay = isOverlay ? ifStillHere(overlayView) : nullptr) {
        overlay->setFrame(keys.frame());
        view_.bringSubviewToFront(*overlay);
    }
}

void KeyboardViewController::didRotate() {
    selectPageForField();
    layOutAnew();
}

void KeyboardViewController::traitCollectionDidChange() {
    selectPageForField();
    layOutAnew();
}

void KeyboardViewController::addInputTraitsObservers() {
    traitPollingTimer_ =
        std::make_unique<ui::DisplayLink>(platform().runLoop, [this](double) { pollTraits(); });
}

void KeyboardViewController::pollTraits() {
    if (darkMode() != shownDark_) updateAppearance();
}

bool KeyboardViewController::darkMode() const {
    return textDocumentProxy().keyboardAppearance() == platform::KeyboardAppearance::Dark;
}

void KeyboardViewController::updateAppearance() {
    shownDark_ = darkMode();
    view_.setBackgroundColor(themeColor(platform().userDefaults, preferences::KEYBOARD_BACKGROUND_COLOR,
                                        shownDark_ ? DARK_BACKGROUND : LIGHT_BACKGROUND));
    for (KeyPlane* const plane : {&english_, &arabic_}) {
        plane->forwardingView->setBackgroundColor(view_.backgroundColor());
        if (!plane->layout) continue;
        plane->layout->setLook(shownDark_, solidColorMode());
        plane->layout->updateKeyAppearance();
    }
    if (bannerView_) bannerView_->updateAppearance(shownDark_);
    if (settingsView_) settingsView_->updateAppearance(shownDark_);
}

void KeyboardViewController::ArabicClicked() {
    changePlane(true, preferences::ARABIC);
}

void KeyboardViewController::EnglishClicked() {
    changePlane(false, preferences::ENGLISH);
}

void KeyboardViewController::changePlane(bool arabic, const char* language) {
    platform().userDefaults.setString(preferences::LANGUAGE, language);
    KeyPlane& old = plane();
    old.forwardingView->resetTrackedViews();
    hidePopupCallback();
    old.forwardingView->removeFromSuperview();
    old.popupLayer->removeFromSuperview();
    isArabicModeOn_ = arabic;
    KeyPlane& shown = plane();
    makePlane(shown,
              arabic ? arabicKeyboard(keyboardType, returnType) : defaultKeyboard(keyboardType, returnType));
    view_.insertSubview(*shown.forwardingView, 0);
    view_.addSubview(*shown.popupLayer);
    layOutAnew();
    platform().host.setPrimaryLanguage(language);
}

platform::TextDocumentProxy& KeyboardViewController::textDocumentProxy() const {
    return platform().host.textDocumentProxy();
}

bool KeyboardViewController::isPad() const {
    return platform().device.userInterfaceIdiom() == platform::UserInterfaceIdiom::Pad;
}

}  // namespace vorpel
