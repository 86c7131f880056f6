// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/banner/extra_view.h"
#include "keyboard/banner/vp_suggestions_banner_delegate.h"
#include "platform/bundle.h"
#include "platform/text_checker.h"
#include "platform/user_defaults.h"
#include "ui/button.h"

#include <array>
#include <functional>
#include <string>

namespace vorpel {

/// What the bar asks of its surroundings; all of it must outlive the bar.
struct BannerParts {
    const platform::Bundle& bundle;  ///< holds the pictures
    const platform::UserDefaults& userDefaults;
    platform::TextChecker* textChecker = nullptr;  ///< null: nothing is learnt
};

/// The bar above the keys: three words, or, while no word is in view, the button of the settings. Main
/// thread only.
class VPSuggestionsBanner : public ExtraView {
public:
    VPSuggestionsBanner(const GlobalColors& globalColors, bool darkMode, bool solidColorBanner,
                        const BannerParts& parts);

    ui::Button settingsButton;
    ui::Button keyboardButton;  ///< back to the keys; on show beside the settings only
    ui::Button wordLabel_1;
    ui::Button wordLabel_2;
    ui::Button wordLabel_3;
    bool isSuggestionView = false;       ///< a host's view stands in place of the labels
    ui::View* suggestionView = nullptr;  ///< that view
    ui::Color buttonBackgroundColor = ui::Color::rgb(0.7255, 0.7451, 0.7686);
    ui::Color KSelectedColor;
    VPSuggestionsBannerDelegate* delegate = nullptr;
    bool keyboardButtonEnabled = false;
    ui::View border12;
    ui::View border23;

    virtual void dismissSettingsScreen();
    virtual void wordLabelTapped(ui::Button& sender);
    virtual void openSettings(ui::Button& sender);
    virtual void openFontSettings(ui::Button& sender);
    /// True shows the words, false the button of the settings.
    virtual void shuffleSettingsOptions(bool value);
    virtual void addCreateStickerButton();
    /// The view stays the host's and must stay until another takes its place.
    virtual void setSuggestionView(ui::View& view);
    virtual void toggleTextInputMode() {}
    virtual void shuffleButtonsInteraction(bool enable);

    /// The settings are on show, or not, by another way than these buttons.
    void settingsToggled(bool shown);

    /// The second label is what the typed word is about to become.
    void markCorrection(bool pending);

    /// Asked before a tapped word is learnt; without it every one may be.
    std::function<bool()> mayLearn;

    [[nodiscard]] std::array<ui::Button*, 3> wordLabels() {
        return {&wordLabel_1, &wordLabel_2, &wordLabel_3};
    }
    void updateAppearance(bool darkMode) override;
    void layoutSubviews() override;

private:
    void setUpLabel(ui::Button& label, int tag);
    void setUpButton(ui::Button& button, const char* image);
    void toggle(ui::Button& sender);
    [[nodiscard]] bool holdsSuggestionView() const;
    void applyColors();
    [[nodiscard]] ui::Color restingGround() const;
    [[nodiscard]] ui::Color selectedGround() const;
    [[nodiscard]] ui::Color buttonGround(double share, const ui::Color& builtIn) const;
    void applyMark();
    void learn(const std::string& word, int tag);

    BannerParts parts_;
    bool correctionPending_ = false;
};

}  // namespace vorpel
