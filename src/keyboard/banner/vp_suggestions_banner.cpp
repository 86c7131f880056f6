// SPDX-License-Identifier: Apache-2.0
#include "keyboard/banner/vp_suggestions_banner.h"

#include "keyboard/model/preference_keys.h"

#include <algorithm>

namespace vorpel {

namespace {

constexpr double LABEL_FONT_SIZE = 16;
constexpr double TITLE_INSET = 2;
constexpr double LABEL_COUNT = 3;

// The buttons stand where a thumb finds them, and the separators leave air above and below.
constexpr double BUTTON_WIDTH = 50;
constexpr double BUTTON_MARGIN = 4;
constexpr double BUTTON_RADIUS = 6;
constexpr double IMAGE_MARGIN = 8;
constexpr double BORDER_WIDTH = 1;
constexpr double BORDER_MARGIN = 10;
constexpr double MARK_RADIUS = 5;

}  // namespace

VPSuggestionsBanner::VPSuggestionsBanner(const GlobalColors& globalColors, bool darkMode,
                                         bool solidColorBanner, const BannerParts& parts)
    : ExtraView(globalColors, darkMode, solidColorBanner), parts_(parts) {
    int tag = 0;
    for (ui::Button* const label : wordLabels()) setUpLabel(*label, ++tag);
    setUpButton(settingsButton, "ic_menu");
    setUpButton(keyboardButton, "closekeyboard");
    for (ui::Button* const button : {&settingsButton, &keyboardButton}) {
        button->addTarget(this, "openSettings:", ui::ControlEvent::TouchUpInside,
                          [this](ui::Control&) { openSettings(settingsButton); });
    }
    keyboardButton.setHidden(true);
    applyColors();
    shuffleSettingsOptions(false);
}

void VPSuggestionsBanner::setUpLabel(ui::Button& label, int tag) {
    label.setTag(tag);
    label.setFont({LABEL_FONT_SIZE, ui::FontWeight::Regular});
    label.setTitleInsets({TITLE_INSET, TITLE_INSET, TITLE_INSET, TITLE_INSET});
    label.setCornerRadius(MARK_RADIUS);
    label.addTarget(this, "wordLabelTapped:", ui::ControlEvent::TouchUpInside,
                    [this](ui::Control& sender) { wordLabelTapped(static_cast<ui::Button&>(sender)); });
}

void VPSuggestionsBanner::setUpButton(ui::Button& button, const char* image) {
    button.setImage(parts_.bundle.pathForResource(image, "svg").value_or(""));
    button.setImageInsets({IMAGE_MARGIN, IMAGE_MARGIN, IMAGE_MARGIN, IMAGE_MARGIN});
    button.setCornerRadius(BUTTON_RADIUS);
}

void VPSuggestionsBanner::wordLabelTapped(ui::Button& sender) {
    std::string word = sender.titleForState(ui::ControlState::Normal);
    if (word.empty()) return;
    // The typed word that a correction would replace: a tap keeps it.
    if (word.front() == '"') word = word.size() > 2 ? word.substr(1, word.size() - 2) : "";
    learn(word, sender.tag());
    if (delegate) delegate->wordTapped(word, sender.tag());
}

void VPSuggestionsBanner::learn(const std::string& word, int tag) {
    if (!parts_.textChecker || (mayLearn && !mayLearn())) return;
    const bool isKept = tag == 1 && parts_.userDefaults.boolForKey(preferences::kAutoCorrection);
    if (isKept || tag == 2) parts_.textChecker->learnWord(word);
}

void VPSuggestionsBanner::openSettings(ui::Button& sender) {
    toggle(sender);
}

void VPSuggestionsBanner::openFontSettings(ui::Button& sender) {
    settingsButton.setSelected(false);
    settingsButton.setBackgroundColor(restingGround());
    toggle(sender);
}

void VPSuggestionsBanner::toggle(ui::Button& sender) {
    sender.setSelected(!sender.isSelected());
    const bool selected = sender.isSelected();
    sender.setBackgroundColor(selected ? selectedGround() : restingGround());
    keyboardButton.setHidden(!selected);
    keyboardButtonEnabled = selected;
    if (delegate) delegate->toggleSettingsView(selected);
}

void VPSuggestionsBanner::settingsToggled(bool shown) {
    if (!shown) dismissSettingsScreen();
    settingsButton.setSelected(shown);
    if (shown) settingsButton.setBackgroundColor(selectedGround());
    keyboardButton.setHidden(!shown);
    keyboardButtonEnabled = shown;
}

void VPSuggestionsBanner::dismissSettingsScreen() {
    if (keyboardButtonEnabled) settingsButton.setBackgroundColor(restingGround());
}

void VPSuggestionsBanner::shuffleSettingsOptions(bool value) {
    settingsButton.setHidden(value);
    for (ui::Button* const label : wordLabels()) label->setHidden(!value);
    border12.setHidden(!value);
    border23.setHidden(!value);
}

void VPSuggestionsBanner::shuffleButtonsInteraction(bool enable) {
    keyboardButton.setUserInteractionEnabled(enable);
    for (ui::Button* const label : wordLabels()) label->setUserInteractionEnabled(enable);
}

void VPSuggestionsBanner::addCreateStickerButton() {
    addSubview(settingsButton);
    for (ui::Button* const label : wordLabels()) addSubview(*label);
    addSubview(border12);
    addSubview(border23);
    addSubview(keyboardButton);
    if (holdsSuggestionView()) bringSubviewToFront(*suggestionView);
    setNeedsLayout();
}

void VPSuggestionsBanner::setSuggestionView(ui::View& view) {
    isSuggestionView = true;
    view.setFrame(bounds());
    suggestionView = &view;
    addSubview(view);
    setNeedsLayout();
}

/// A host's view that was destroyed has left the tree, and only its address is left here.
bool VPSuggestionsBanner::holdsSuggestionView() const {
    const auto views = subviews();
    return isSuggestionView && std::ranges::find(views, suggestionView) != views.end();
}

void VPSuggestionsBanner::layoutSubviews() {
    const auto [width, height] = bounds().size();
    const double buttonHeight = height - 2 * BUTTON_MARGIN;
    settingsButton.setFrame({BUTTON_MARGIN, BUTTON_MARGIN, BUTTON_WIDTH, buttonHeight});
    keyboardButton.setFrame(
        {width - BUTTON_WIDTH - BUTTON_MARGIN, BUTTON_MARGIN, BUTTON_WIDTH, buttonHeight});
    if (holdsSuggestionView()) {
        suggestionView->setFrame(bounds());
        for (ui::Button* const label : wordLabels()) label->setFrame({});
        border12.setFrame({});
        border23.setFrame({});
        return;
    }
    const double labelWidth = width / LABEL_COUNT;
    double x = 0;
    for (ui::Button* const label : wordLabels()) {
        label->setFrame({x + BUTTON_MARGIN / 2, BUTTON_MARGIN, labelWidth - BUTTON_MARGIN, buttonHeight});
        x += labelWidth;
    }
    const double borderHeight = height - 2 * BORDER_MARGIN;
    border12.setFrame({labelWidth - BORDER_WIDTH / 2, BORDER_MARGIN, BORDER_WIDTH, borderHeight});
    border23.setFrame({2 * labelWidth - BORDER_WIDTH / 2, BORDER_MARGIN, BORDER_WIDTH, borderHeight});
}

}  // namespace vorpel
