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
    closeEmoji();
    removeSpellChecker();
    emojiObservation_ = {};
}

void VPKeyboardViewController::setupInitialState() {
    ForwardingView& keys = *plane().forwardingView;
    keys.setHidden(keysAreHidden());
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
    forgetWords();
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

bool VPKeyboardViewController::keysAreHidden() const {
    return appNotYetOpened || emojiOnShow() || KeyboardViewController::keysAreHidden();
}

void VPKeyboardViewController::takeInputView(ui::View* textView) {
    inputView_ = dynamic_cast<TextInputView*>(textView);
    inputViewWatch_ = inputView_ ? std::make_unique<ui::ViewWatch>(*inputView_) : nullptr;
}

TextInputView* VPKeyboardViewController::currentActiveInputView() const {
    return inputViewWatch_ && inputViewWatch_->isAlive() ? inputView_ : nullptr;
}

void VPKeyboardViewController::openKeyboard(ui::View* textView) {
    KeyboardViewController::openKeyboard(textView);
    takeInputView(textView);
    inputChanged();
}

void VPKeyboardViewController::restoreInput() {
    KeyboardViewController::restoreInput();
    takeInputView(nullptr);
    inputChanged();
}

void VPKeyboardViewController::openCustom(ui::View& viewForCustom) {
    closeEmoji();
    KeyboardViewController::openCustom(viewForCustom);
    inputChanged();
}

void VPKeyboardViewController::dismissCustom() {
    KeyboardViewController::dismissCustom();
    takeInputView(nullptr);
    inputChanged();
}

void VPKeyboardViewController::inputChanged() {
    forgetWords();
    checkTheCurrentWord(NO_TOUCH_POINT);
}

void VPKeyboardViewController::textDidChange() {
    KeyboardViewController::textDidChange();
    closeEmojiWithoutKey();
    // The words of one field are not shown at another.
    if (!typingPolicy().suggests) checkTheCurrentWord(NO_TOUCH_POINT);
}

/// What is searched for in the keyboard's own field begins small, whatever stands in the host's.
bool VPKeyboardViewController::shouldAutoCapitalize() const {
    return !KTextInputMode && KeyboardViewController::shouldAutoCapitalize();
}

TypingPolicy VPKeyboardViewController::typingPolicy() const {
    const TextInputView* const own = currentActiveInputView();
    const bool ownFieldIsProtected = KTextInputMode && own && own->isPasswordProtacted();
    return typingPolicyFor(textDocumentProxy(), ownFieldIsProtected);
}

}  // namespace vorpel
