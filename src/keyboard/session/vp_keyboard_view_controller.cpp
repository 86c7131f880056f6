// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session/vp_keyboard_view_controller.h"

#include "keyboard/model/preference_keys.h"
#include "text/diagnostics.h"

#include <utility>

namespace vorpel {

using wordengine::Diagnostics;

namespace {

constexpr ui::Color DARK_SELECTED = ui::Color::rgb(0.4824, 0.4980, 0.5098);
constexpr ui::Color LIGHT_SELECTED = ui::Color::rgb(0.9137, 0.9294, 1.0);

}  // namespace

std::unique_ptr<VPKeyboardViewController> VPKeyboardViewController::create(platform::Platform& platform) {
    std::unique_ptr<VPKeyboardViewController> controller(new VPKeyboardViewController(platform));
    controller->setUp();
    return controller;
}

VPKeyboardViewController::VPKeyboardViewController(platform::Platform& platform)
    : KeyboardViewController(platform) {}

VPKeyboardViewController::~VPKeyboardViewController() = default;

void VPKeyboardViewController::setUp() {
    KeyboardViewController::setUp();
    indicSpellChecker_ = std::make_shared<WordServiceSlot>(makeWordServiceFactory());
}

WordServiceFactory VPKeyboardViewController::makeWordServiceFactory() {
    return wordServiceFactory(platform(), TouchUse::Ignored);
}

void VPKeyboardViewController::setCallBackDelegate(VorpelWordCommitDelegate* delegate) {
    Diagnostics::print("setDelagateinBL2\n");
    inputDelegate = delegate;
}

void VPKeyboardViewController::viewDidLoad() {
    KeyboardViewController::viewDidLoad();
    platform::UserDefaults& defaults = platform().userDefaults;
    defaults.setBool(preferences::FAKE_TEXT_FIELD_ENABLED, false);
    // The word service goes by what is stored, and reads an absence otherwise than the keys do.
    if (!defaults.stringForKey(preferences::LANGUAGE)) {
        defaults.setString(preferences::LANGUAGE,
                           isArabicModeOn() ? preferences::ARABIC : preferences::ENGLISH);
    }
    serialQueue_ = platform().makeOperationQueue();
    serialQueue_->setMaxConcurrentOperationCount(1);
    observeEmojiKey();
}

void VPKeyboardViewController::observeEmojiKey() {
    emojiObservation_ = platform().notificationCenter.addObserver(
        "open Emoji Keyboard", [this](const platform::Notification&) { emojiClicked(nullptr); });
}

void VPKeyboardViewController::viewWillAppear() {
    KeyboardViewController::viewWillAppear();
    setupInitialState();
    if (VPSuggestionsBanner* const banner = suggestionsBanner()) banner->addCreateStickerButton();
    observeEmojiKey();
    // The keys of a keyboard that comes back need not be laid out anew.
    keyFramesValuesChanged();
}

void VPKeyboardViewController::viewDidAppear() {
    KeyboardViewController::viewDidAppear();
    Diagnostics::print("viewDidAppear called\n");
    updateSearchString();
    if (VPSuggestionsBanner* const banner = suggestionsBanner()) {
        banner->KSelectedColor = darkMode() ? DARK_SELECTED : LIGHT_SELECTED;
    }
}

void VPKeyboardViewController::viewWillDisappear() {
    KeyboardViewController::viewWillDisappear();
    removeSpellChecker();
    emojiObservation_ = {};
}

void VPKeyboardViewController::setupInitialState() {
    ForwardingView& keys = *plane().forwardingView;
    keys.setHidden(appNotYetOpened || !isForwordView);
    keys.setBackgroundColor(view().backgroundColor());
}

void VPKeyboardViewController::keyFramesValuesChanged() {
    if (!keyFramesArray.empty()) setUpSpellChecker();
}

void VPKeyboardViewController::setUpSpellChecker() {
    if (!serialQueue_ || indicSpellChecker_->isWanted()) return;
    indicSpellChecker_->want();
    serialQueue_->addOperation([slot = indicSpellChecker_] { slot->current(); });
}

void VPKeyboardViewController::removeSpellChecker() {
    if (!serialQueue_) return;
    clearWords();
    serialQueue_->cancelAllOperations();
    indicSpellChecker_->wantNone();
    serialQueue_->addOperation([slot = indicSpellChecker_] { slot->current(); });
}

// Words of the other language come from another dictionary; the new page asks for it.
void VPKeyboardViewController::ArabicClicked() {
    removeSpellChecker();
    KeyboardViewController::ArabicClicked();
}

void VPKeyboardViewController::EnglishClicked() {
    removeSpellChecker();
    KeyboardViewController::EnglishClicked();
}

void VPKeyboardViewController::openKeyboard(ui::View* textView) {
    currentActiveInputView = dynamic_cast<TextInputView*>(textView);
    KeyboardViewController::openKeyboard(textView);
}

TypingPolicy VPKeyboardViewController::typingPolicy() const {
    const bool ownFieldIsProtected =
        KTextInputMode && currentActiveInputView && currentActiveInputView->isPasswordProtacted();
    return typingPolicyFor(textDocumentProxy(), ownFieldIsProtected);
}

}  // namespace vorpel
