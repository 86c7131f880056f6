// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/banner/extra_view.h"
#include "keyboard/controller/forwarding_view.h"
#include "keyboard/controller/key_plane.h"
#include "keyboard/layout/global_colors.h"
#include "keyboard/layout/keyboard_layout.h"
#include "keyboard/layout/layout_constants.h"
#include "keyboard/model/keyboard.h"
#include "keyboard/model/shift_state.h"
#include "keyboard/model/vorpel_ime_settings.h"
#include "keyboard/theme/keyboard_theme_model.h"
#include "platform/device.h"
#include "platform/input_view_controller.h"
#include "platform/notification_center.h"
#include "platform/operation_queue.h"
#include "platform/platform.h"
#include "platform/run_loop.h"
#include "platform/text_document_proxy.h"
#include "ui/display_link.h"
#include "ui/view.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vorpel {

class DefaultSettings;
class VorpelWordCommitDelegate;

enum class AutoPeriodState { NoSpace, FirstSpace };

/// What one holds on to when the view is to have a height.
struct HeightConstraint {
    double constant = 0;
    double priority = 1000;
};

/// A keyboard without a word service: it stacks its views, makes text of keys, and keeps the states of shift,
/// automatic full stop, backspace and page. A host makes it with `create`, puts `view` into its window, gives
/// the view a size, and tells it of what InputViewController names. Every operation may be overridden; those
/// that do nothing here say so. Views that a host hands in stay the host's and must stay until they are taken
/// out. Main thread only.
class KeyboardViewController : public platform::InputViewController {
public:
    static std::unique_ptr<KeyboardViewController> create(platform::Platform& platform);
    ~KeyboardViewController() override;

    /// The whole keyboard.
    [[nodiscard]] ui::View& view() { return view_; }

    // What a host calls.

    virtual void addTopBarView(ui::View& viewForTopBar);
    virtual void hideTopBarView();
    virtual void showTopBarView();
    virtual void openCustom(ui::View& viewForCustom);
    virtual void dismissCustom();
    /// With a text view of the host's within the keyboard, which takes the text from now on; null for none.
    virtual void openKeyboard(ui::View* textView);
    virtual void restoreInput();
    virtual void showOverlayView(ui::View& overlayV);
    virtual void hideOverlayView();
    virtual void addViewOnSuggestionBar(ui::View& view);
    /// "ar" is Arabic, anything else English.
    virtual void changeKeyboardLanguage(const std::string& value);
    virtual void changeKeyboardSetting(VorpelIMESettings key, bool value);
    virtual void setCallBackDelegate(VorpelWordCommitDelegate* /*delegate*/) {}  // for the typing session

    /// Colours the keyboard at once, and every later one on the same preferences; without a theme the
    /// built-in look comes back. Posts "theameChange", with the KeyboardThemeModel as its object or without
    /// one.
    virtual void themeChangeAccordingly(const std::optional<KeyboardThemeModel>& themeObject);

    // Height.

    /// Points of a bar by name: "topBanner", "topBar", "customView"; any other name stops the process.
    [[nodiscard]] virtual double metric(std::string_view name) const;
    [[nodiscard]] virtual double getheightForOrientation(platform::InterfaceOrientation orientation,
                                                         bool withTopBanner, bool withTopBar,
                                                         bool withCustomView, bool withKeyboardView) const;
    [[nodiscard]] virtual double heightForOrientation(platform::InterfaceOrientation orientation,
                                                      bool withTopBanner) const;
    virtual void setHeight(double height);
    [[nodiscard]] double keyboardHeight() const { return keyboardHeight_; }
    [[nodiscard]] const std::optional<HeightConstraint>& heightConstraint() const {
        return heightConstraint_;
    }

    /// The height of the keys where a host has settled it; without one the rule holds.
    std::optional<double> originalKeyboardHeight;

    // Life cycle.

    void viewDidLoad() override;
    void viewWillAppear() override;
    void viewWillDisappear() override;
    void viewDidLayoutSubviews() override;
    void didRotate() override;
    void traitCollectionDidChange() override;
    virtual void setupLayout();
    virtual void setupKludge();
    virtual void addInputTraitsObservers();
    virtual void pollTraits();
    virtual void ArabicClicked();
    virtual void EnglishClicked();

    // Page and language.

    [[nodiscard]] int currentMode() const { return currentMode_; }
    [[nodiscard]] std::optional<int> previousMode() const { return previousMode_; }
    /// A change shows the page.
    virtual void setCurrentMode(int mode);
    /// Lays the current page out anew, whatever the argument says.
    virtual void setMode(int mode);
    virtual void arabicSetMode(int mode);
    virtual void setModeForKeyboard(int keyboardType, int returnType);
    virtual void setModeForKeyboardInLandscape(int keyboardType, int returnType);
    [[nodiscard]] bool isArabicModeOn() const { return isArabicModeOn_; }
    [[nodiscard]] const Keyboard& keyboard() const { return english_.model; }
    [[nodiscard]] const Keyboard& Arabickeyboard() const { return arabic_.model; }
    [[nodiscard]] KeyboardLayout* layout() const { return english_.layout.get(); }
    [[nodiscard]] KeyboardLayout* arabicLayout() const { return arabic_.layout.get(); }
    [[nodiscard]] ForwardingView* forwardingView() const { return english_.forwardingView.get(); }
    [[nodiscard]] ForwardingView* ArabicforwardingView() const { return arabic_.forwardingView.get(); }
    /// Of the language on show.
    [[nodiscard]] KeyPlane& plane() { return isArabicModeOn_ ? arabic_ : english_; }
    [[nodiscard]] const KeyPlane& plane() const { return isArabicModeOn_ ? arabic_ : english_; }

    // Keys.

    /// Tells every key on show what to do at which event.
    virtual void setupKeys();
    virtual void keyPressedHelper(ui::Control& sender);
    /// `firstDate` in seconds on the run loop's clock, `position` in the forwarding view.
    virtual void keyPressed(const Key& key, double firstDate, ui::Point position);
    virtual void handleAutoPeriod(const Key& key);
    virtual void shiftDown(ui::Control& sender);
    virtual void shiftUp(ui::Control& sender);
    virtual void shiftDoubleTapped(ui::Control& sender);
    virtual void modeChangeTapped(ui::Control& sender);
    virtual void backspaceDown(ui::Control& sender);
    virtual void backspaceUp(ui::Control& sender);
    virtual void backspaceDelayCallback();
    virtual void backspaceRepeatCallback();
    virtual void cancelBackspaceTimers();
    virtual void showPopup(ui::Control& sender);
    virtual void hidePopupDelay(ui::Control& sender);
    virtual void hidePopupCallback();
    virtual void highlightKey(ui::Control& sender);
    virtual void unHighlightKey(ui::Control& sender);
    virtual void advanceTapped(ui::Control& sender);
    virtual void returnClicked();
    virtual void shiftTheCursorLeft();
    virtual void shiftTheCursorRight();
    virtual void dismissKeyboard();
    virtual void playKeySound();
    virtual void toggleSettings(bool hide);
    [[nodiscard]] bool settingsOnShow() const;

    // Do nothing here.

    virtual void keyFramesValuesChanged() {}
    virtual void launchEmojiKeyboard() {}
    virtual void resetTheUpdateAndSearchString() {}
    virtual void optionsTapped() {}
    virtual void spaceKeyIdentifierFunction() {}
    virtual void addCharacterToList(ui::Control& /*sender*/) {}
    virtual void longPressTapped() {}
    virtual void dismissOtherViewsIfOpen() {}

    /// The bar above the keys; null for none, as here.
    virtual std::unique_ptr<ExtraView> createBanner() { return nullptr; }
    virtual void setBanner(ui::View& /*view*/) {}

    /// Says that the words are to be loaded anew.
    virtual void wordSuggestionsOn();

    // Shift and text.

    [[nodiscard]] ShiftState shiftState() const { return shiftState_; }
    virtual void setShiftState(ShiftState state);
    virtual void updateKeyCaps(bool uppercase);
    virtual void arabicupdateKeyCaps(bool uppercase);
    /// Returns whether the next letter is to be a capital.
    virtual bool setCapsIfNeeded();
    [[nodiscard]] virtual bool shouldAutoCapitalize() const;
    virtual void contextChanged();
    void textDidChange() override;
    [[nodiscard]] AutoPeriodState autoPeriodState() const { return autoPeriodState_; }

    [[nodiscard]] bool backspaceActive() const {
        return backspaceDelayTimer.isValid() || backspaceRepeatTimer.isValid();
    }
    /// A popup waits to be hidden.
    [[nodiscard]] bool popupDelayActive() const { return popupDelayTimer.isValid(); }

    /// The field is asked once a frame how it looks; not while the keyboard is away.
    [[nodiscard]] bool pollsTraits() const { return traitPollingTimer_ && !traitPollingTimer_->isPaused(); }

    [[nodiscard]] virtual bool darkMode() const;
    [[nodiscard]] virtual bool solidColorMode() const { return false; }
    [[nodiscard]] const GlobalColors& globalColors() const { return *globalColors_; }
    [[nodiscard]] const LayoutConstants& layoutConstants() const { return *layoutConstants_; }
    [[nodiscard]] DefaultSettings* settingsView() const { return settingsView_.get(); }
    [[nodiscard]] ExtraView* bannerView() const { return bannerView_.get(); }

protected:
    explicit KeyboardViewController(platform::Platform& platform);

    /// Second step of construction, which may call what subclasses override.
    virtual void setUp();

    // What a subclass may put in place of our own.
    virtual std::unique_ptr<LayoutConstants> makeLayoutConstants();
    virtual std::unique_ptr<GlobalColors> makeGlobalColors();
    virtual std::unique_ptr<KeyboardLayout> makeLayout(KeyPlane& plane);
    virtual std::unique_ptr<ForwardingView> makeForwardingView();

    /// Chooses the page for the field, by device and screen.
    virtual void selectPageForField();

    [[nodiscard]] platform::TextDocumentProxy& textDocumentProxy() const;
    [[nodiscard]] bool isPad() const;
    [[nodiscard]] virtual bool keysAreHidden() const { return !isForwordView; }

    // All that the keyboard itself does to the host's text and reads of it goes through these.
    virtual void insertText(const std::string& text);
    virtual void deleteBackward();
    [[nodiscard]] virtual std::optional<std::string> textBeforeInput() const;

    /// The surroundings or the theme are others: whatever is coloured by them is coloured anew.
    virtual void updateAppearance();

    /// Held touches are let go of, and every page and view takes its place anew in a layout pass.
    void layOutAnew();
    void layoutPass() { viewDidLayoutSubviews(); }

    double backspaceDelay = 0.5;
    double backspaceRepeat = 0.07;
    platform::Timer backspaceDelayTimer;
    platform::Timer backspaceRepeatTimer;
    KeyboardKey* keyWithDelayedPopup = nullptr;
    platform::Timer popupDelayTimer;
    std::optional<double> firstDate;
    std::optional<ShiftState> shiftStartingState;
    bool shiftWasMultitapped = false;
    bool swipeKeyMode = false;
    std::vector<const Key*> keysArray;
    std::vector<ui::Rect> keyFramesArray;
    std::vector<std::string> keyCharArray;
    int returnType = 0;
    int keyboardType = 0;
    std::string modelName;

    bool isTopBar = false;
    bool isCustomView = false;
    bool isBannerView = true;
    bool isForwordView = true;
    bool isOverlay = false;
    ui::View* topBarView = nullptr;
    ui::View* customView = nullptr;
    ui::View* overlayView = nullptr;

private:
    using Action = void (KeyboardViewController::*)(ui::Control& sender);
    using PlainAction = void (KeyboardViewController::*)();

    void setupKey(KeyboardKey& view, const Key& key);
    void setupSpecialKey(KeyboardKey& view, const Key& key);
    void setupPopup(KeyboardKey& view);
    void add(KeyboardKey& view, std::string_view name, ui::ControlEvents events, Action action);
    void add(KeyboardKey& view, std::string_view name, ui::ControlEvents events, PlainAction action);

    void makePlane(KeyPlane& plane, Keyboard model);
    void changePlane(bool arabic, const char* language);
    void showPage(KeyPlane& plane);
    void updateCaps(KeyPlane& plane, bool uppercase);
    [[nodiscard]] bool characterUppercase(bool uppercase) const;
    void selectFrom(int keyboardType, int returnType, WidthSet width);
    void toggleShift(ui::Control& sender);
    void layOutKeys();
    void stackViews();
    [[nodiscard]] double keysHeight() const;
    [[nodiscard]] ui::View* ifStillHere(ui::View* hostView) const;
    void observeThemes();
    void themeChange(const platform::Notification& notification);
    void takeThemeBack();
    void saveTheme();

    std::unique_ptr<LayoutConstants> layoutConstants_;
    std::unique_ptr<GlobalColors> globalColors_;
    ui::View view_;
    ui::View kludge_;
    KeyPlane english_;
    KeyPlane arabic_;
    std::unique_ptr<ExtraView> bannerView_;
    std::unique_ptr<DefaultSettings> settingsView_;
    std::unique_ptr<ui::DisplayLink> traitPollingTimer_;
    platform::NotificationCenter::Observation themeObservation_;
    std::unique_ptr<platform::OperationQueue> savingQueue_;
    std::optional<HeightConstraint> heightConstraint_;
    std::optional<ui::Rect> lastLayoutBounds_;
    double keyboardHeight_ = 0;
    bool isArabicModeOn_ = false;
    bool shownDark_ = false;
    bool bannerWasShown_ = true;  // before the custom view took its place
    int currentMode_ = 0;
    std::optional<int> previousMode_;
    ShiftState shiftState_ = ShiftState::Disabled;
    AutoPeriodState autoPeriodState_ = AutoPeriodState::NoSpace;
};

}  // namespace vorpel
