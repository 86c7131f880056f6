// SPDX-License-Identifier: Apache-2.0
#include "playground.h"

#include "keyboard/model/preference_keys.h"
#include "keyboard/theme/stored_theme.h"
#include "keyboard/theme/theme_color.h"
#include "platform/characters.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace vorpel::playground {

namespace {

// Around the text.
constexpr double MARGIN = 12;

}  // namespace

Playground::Playground(const Services& services)
    : platform_{.host = *this,
                .runLoop = services.runLoop,
                .notificationCenter = notificationCenter_,
                .userDefaults = services.userDefaults,
                .bundle = services.bundle,
                .screen = screen_,
                .device = device_,
                .globalQueue = services.globalQueue,
                .makeOperationQueue = services.makeOperationQueue,
                .textChecker = services.textChecker,
                .systemSound = services.systemSound,
                .emojiCoverage = services.emojiCoverage},
      themes_(services.themes),
      window_(services.runLoop),
      toolbar_([this](Choice choice) { choose(choice); }),
      textArea_(field_, services.runLoop) {
    field_.setTraits(choices_.traits());
    keyboard_ = VorpelKeyboardViewController::create(platform_, TypingOptions::all());
    textArea_.setTapHandler([this](std::size_t character, int taps) { tapText(character, taps); });
    root_.addSubview(toolbar_);
    root_.addSubview(textArea_);
    root_.addSubview(shelf_);
    root_.addSubview(keyboard_->view());
    setDark(false);
}

Playground::~Playground() {
    if (appeared_) keyboard_->viewWillDisappear();
    window_.setRoot(nullptr);
}

void Playground::resize(ui::Size size, double scale) {
    const bool wasSideways = screen_.isSideways();
    const ui::Size column{std::min(size.width, GREATEST_WIDTH), size.height};
    const bool isOther = column.width != screen_.boundsWidth() || scale != screen_.scale();
    size_ = size;
    screen_.set(column, scale);
    keyboardHeight_ = keyboard_->keyboardHeight();
    placeAll();
    if (!appeared_) {
        makeKeyboardAppear();
    } else if (screen_.isSideways() != wasSideways) {
        keyboard_->didRotate();
    } else if (isOther) {
        keyboard_->traitCollectionDidChange();
    }
    placeAll();
    showChoices();
}

void Playground::makeKeyboardAppear() {
    appeared_ = true;
    window_.setRoot(&root_);
    keyboard_->viewDidLoad();
    keyboard_->viewWillAppear();
    keyboard_->viewDidLayoutSubviews();
    keyboard_->viewDidAppear();
    keyboard_->textDidChange();
}

void Playground::placeAll() {
    needsPlacing_ = false;
    const double width = screen_.boundsWidth();
    const double left = std::floor((size_.width - width) / 2);
    root_.setFrame({0, 0, size_.width, size_.height});
    toolbar_.setFrame({left, 0, width, Toolbar::heightFor(width)});
    placeKeyboard();
    const ui::View& keys = keyboard_->view();
    shelf_.setFrame({0, keys.frame().y, size_.width, keys.frame().height});
    shelf_.setHidden(keys.isHidden());
    const double top = toolbar_.frame().bottom();
    const double bottom = (keys.isHidden() ? size_.height : keys.frame().y) - MARGIN;
    textArea_.setFrame({left + MARGIN, top, width - 2 * MARGIN, std::max(0.0, bottom - top)});
}

/// At the lower edge, as wide as the column and as high as it asks to be.
void Playground::placeKeyboard() {
    if (keyboardHeight_ <= 0) {
        keyboardHeight_ = keyboard_->heightForOrientation(interfaceOrientation(), true);
    }
    const ui::Rect frame{toolbar_.frame().x, size_.height - keyboardHeight_, screen_.boundsWidth(),
                         keyboardHeight_};
    if (frame == keyboard_->view().frame()) return;
    keyboard_->view().setFrame(frame);
    if (appeared_) keyboard_->viewDidLayoutSubviews();
}

void Playground::refresh() {
    if (needsPlacing_) placeAll();
    showChoices();
    shelf_.setBackgroundColor(keyboard_->view().backgroundColor());
    textArea_.refresh();
}

void Playground::setDark(bool dark) {
    choices_.setDark(dark);
    field_.setTraits(choices_.traits());
    const Look& look = dark ? DARK_LOOK : LIGHT_LOOK;
    root_.setBackgroundColor(look.ground);
    toolbar_.setLook(look);
    textArea_.setLook(look);
}

void Playground::showChoices() {
    const bool isArabic = keyboard_->isArabicModeOn();
    toolbar_.setValue(Choice::Field, choices_.fieldLabel());
    toolbar_.setValue(Choice::Return, choices_.returnLabel());
    toolbar_.setValue(Choice::Look, choices_.isDark() ? "Dark" : "Light");
    toolbar_.setValue(Choice::Theme, themeLabel());
    toolbar_.setValue(Choice::Held, screen_.isSideways() ? "Sideways" : "Upright");
    toolbar_.setValue(Choice::Language, isArabic ? "العربية" : "English");
    toolbar_.setValue(Choice::Settings, keyboard_->settingsOnShow() ? "Shown" : "Hidden");
}

void Playground::choose(Choice choice) {
    switch (choice) {
        case Choice::Field:
            choices_.nextField();
            break;
        case Choice::Return:
            choices_.nextReturn();
            break;
        case Choice::Look:
            return setDark(!choices_.isDark());
        case Choice::Theme:
            return nextTheme();
        case Choice::Held:
            if (sizeHandler_) sizeHandler_({size_.height, size_.width});
            return;
        case Choice::Language:
            return advanceToNextInputMode();
        case Choice::Settings:
            return keyboard_->toggleSettings(keyboard_->settingsOnShow());
    }
    // It is another field now.
    changeFieldFromOutside([this] { field_.setTraits(choices_.traits()); });
}

Playground::ThemePlace Playground::themeOnShow() const {
    return std::ranges::find(themes_, storedTheme(platform_.userDefaults), &host::NamedTheme::theme);
}

/// After the last one, and after one that is none of them, the built-in look.
void Playground::nextTheme() {
    ThemePlace next = themes_.begin();
    if (isThemed(platform_.userDefaults)) next = std::ranges::next(themeOnShow(), 1, themes_.cend());
    if (next == themes_.end()) {
        keyboard_->themeChangeAccordingly(std::nullopt);
    } else {
        keyboard_->themeChangeAccordingly(next->theme);
    }
}

std::string Playground::themeLabel() const {
    if (!isThemed(platform_.userDefaults)) return "Built-in";
    return themeOnShow() == themes_.end() ? "Your own" : themeOnShow()->name;
}

/// One tap is where the cursor goes, two select the word there.
void Playground::tapText(std::size_t character, int taps) {
    changeFieldFromOutside([this, character, taps] {
        field_.setCursor(character);
        if (taps != 2) return;
        const std::vector<std::string> characters = platform::characters(field_.text());
        const auto isBlank = [&](std::size_t at) { return characters[at] == " " || characters[at] == "\n"; };
        std::size_t begin = field_.cursor();
        std::size_t end = begin;
        while (begin > 0 && !isBlank(begin - 1)) --begin;
        while (end < characters.size() && !isBlank(end)) ++end;
        field_.select(begin, end);
    });
    if (!keyboard_->view().isHidden()) return;
    keyboard_->viewWillAppear();
    keyboard_->view().setHidden(false);
    keyboard_->viewDidAppear();
    needsPlacing_ = true;
}

void Playground::typeText(const std::string& text) {
    changeFieldFromOutside([this, &text] { field_.insertText(text); });
}

void Playground::press(const EditingStroke& stroke) {
    changeFieldFromOutside([this, &stroke] {
        const std::size_t anchor = field_.anchor();
        edit(stroke.key);
        const bool moves = stroke.key <= EditingKey::End;
        if (moves && stroke.selects) field_.select(anchor, field_.cursor());
    });
}

void Playground::edit(EditingKey key) {
    switch (key) {
        case EditingKey::Left:
            return field_.adjustTextPositionByCharacterOffset(-1);
        case EditingKey::Right:
            return field_.adjustTextPositionByCharacterOffset(1);
        case EditingKey::Up:
            return field_.setCursor(textArea_.characterLinesOff(-1));
        case EditingKey::Down:
            return field_.setCursor(textArea_.characterLinesOff(1));
        case EditingKey::Home:
            return field_.setCursor(0);
        case EditingKey::End:
            return field_.setCursor(field_.text().size());
        case EditingKey::SelectAll:
            return field_.select(0, field_.text().size());
        case EditingKey::Delete:
            return deleteForward();
        case EditingKey::Backspace:
            return field_.deleteBackward();
        case EditingKey::Return:
            return field_.insertText("\n");
    }
}

void Playground::deleteForward() {
    if (!field_.selectedText()) {
        if (!field_.documentContextAfterInput()) return;
        field_.adjustTextPositionByCharacterOffset(1);
    }
    field_.deleteBackward();
}

/// A keyboard hears of every change that is not its own.
void Playground::changeFieldFromOutside(const std::function<void()>& change) {
    keyboard_->textWillChange();
    keyboard_->selectionWillChange();
    change();
    keyboard_->selectionDidChange();
    keyboard_->textDidChange();
}

platform::InterfaceOrientation Playground::interfaceOrientation() const {
    return screen_.isSideways() ? platform::InterfaceOrientation::Landscape
                                : platform::InterfaceOrientation::Portrait;
}

void Playground::dismissKeyboard() {
    keyboard_->viewWillDisappear();
    keyboard_->view().setHidden(true);
    needsPlacing_ = true;
}

void Playground::advanceToNextInputMode() {
    const bool isArabic = keyboard_->isArabicModeOn();
    keyboard_->changeKeyboardLanguage(isArabic ? preferences::ENGLISH : preferences::ARABIC);
}

void Playground::setPrimaryLanguage(const std::string& /*language*/) {
    // The choice on show is asked for before each frame.
}

void Playground::setHeight(double height) {
    needsPlacing_ = needsPlacing_ || height != keyboardHeight_;
    keyboardHeight_ = height;
}

}  // namespace vorpel::playground
