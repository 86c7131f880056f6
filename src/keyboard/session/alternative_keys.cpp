// SPDX-License-Identifier: Apache-2.0
#include "keyboard/model/preference_keys.h"
#include "keyboard/session/vorpel_keyboard_view_controller.h"
#include "platform/characters.h"

#include <algorithm>
#include <utility>

namespace vorpel {

std::unique_ptr<ForwardingView> VorpelKeyboardViewController::makeForwardingView() {
    if (!options_.alternatives) return VPKeyboardViewController::makeForwardingView();
    AlternativesSource& source = *this;
    return std::make_unique<AlternativesForwardingView>(platform().runLoop, platform().notificationCenter,
                                                        source);
}

void VorpelKeyboardViewController::setShiftState(ShiftState state) {
    VPKeyboardViewController::setShiftState(state);
    followOffer();
}

/// An open row shows what would be typed now, and closes where nothing may be shown any more.
void VorpelKeyboardViewController::followOffer() {
    auto* const keys = dynamic_cast<AlternativesForwardingView*>(plane().forwardingView.get());
    if (keys) keys->offerChanged();
}

std::optional<AlternativesOffer> VorpelKeyboardViewController::offerOf(const KeyboardKey& key) {
    const KeyboardLayout* const layout = plane().layout.get();
    const Key* const model = layout ? layout->keyForView(key) : nullptr;
    if (!model || !model->isCharacter() || !typingPolicy().showsPopups) return std::nullopt;
    const char* const language = isArabicModeOn() ? preferences::ARABIC : preferences::ENGLISH;
    const bool capitals = uppercase(shiftState());
    std::vector<std::string> texts{model->outputForCase(capitals)};
    for (const std::string& text : alternatives_.alternativesOf(language, model->outputForCase(false))) {
        const std::string typed = capitals ? platform::uppercased(text) : text;
        // Two letters may share a capital.
        if (std::ranges::find(texts, typed) == texts.end()) texts.push_back(typed);
    }
    if (texts.size() == 1) return std::nullopt;
    const KeyColors& colors = key.colors();
    const AlternativesRow::Look look{colors.popup, colors.popupText, colors.border,
                                     globalColors().returnKeySolidBlueColor(), ui::Color::white()};
    return AlternativesOffer{std::move(texts), look, *plane().popupLayer};
}

/// As a key that types just that, whatever shift says by now.
void VorpelKeyboardViewController::enterAlternative(const std::string& text) {
    Key key(Key::KeyType::Character);
    key.lowercaseOutput = text;
    // No key lies where the finger was that types it: the touch says nothing about the letter.
    keyPressed(key, firstDate.value_or(platform().runLoop.now()), NO_TOUCH_POINT);
    handleAutoPeriod(key);
    setCapsIfNeeded();
    shiftStartingState.reset();
}

}  // namespace vorpel
