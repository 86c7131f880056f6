// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "editing_key.h"
#include "field_choices.h"
#include "keyboard/session/vorpel_keyboard_view_controller.h"
#include "platform/plain_text_field.h"
#include "platform/platform.h"
#include "text_area.h"
#include "theme_files.h"
#include "toolbar.h"
#include "ui/view.h"
#include "ui/window.h"
#include "window_screen.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vorpel::playground {

/// What a playground asks of where it runs; all of it must outlive it.
struct Services {
    platform::RunLoop& runLoop;
    platform::UserDefaults& userDefaults;
    const platform::Bundle& bundle;
    platform::WorkQueue& globalQueue;
    std::function<std::unique_ptr<platform::OperationQueue>()> makeOperationQueue;
    platform::TextChecker* textChecker = nullptr;
    platform::SystemSound* systemSound = nullptr;
    const platform::EmojiCoverage* emojiCoverage = nullptr;
    std::vector<host::NamedTheme> themes = {};  ///< to choose from, beside the built-in look
};

/// All that stands in the window, without the window: the choices, the text field, the keyboard. It is the
/// keyboard's host. Main thread only.
class Playground final : private platform::InputHost {
public:
    /// The widest that a keyboard is laid out; in a wider window it stands in the middle.
    static constexpr double GREATEST_WIDTH = 1024;
    /// The narrowest and lowest that everything finds room in.
    static constexpr ui::Size LEAST_SIZE{320, 400};

    explicit Playground(const Services& services);
    ~Playground() override;
    Playground(const Playground&) = delete;
    Playground& operator=(const Playground&) = delete;

    [[nodiscard]] ui::Window& window() { return window_; }
    [[nodiscard]] const platform::PlainTextField& field() const { return field_; }
    [[nodiscard]] VorpelKeyboardViewController& keyboard() { return *keyboard_; }
    [[nodiscard]] const Toolbar& toolbar() const { return toolbar_; }
    [[nodiscard]] const TextArea& textArea() const { return textArea_; }

    /// The window has this size, in points, and so many pixels a point. The first time, the keyboard appears.
    void resize(ui::Size size, double scale);

    /// Asked for another size of the window, in points.
    void setSizeHandler(std::function<void(ui::Size)> handler) { sizeHandler_ = std::move(handler); }

    void setDark(bool dark);

    // A desk's keyboard changes the text behind the back of ours.

    void typeText(const std::string& text);
    void press(const EditingStroke& stroke);

    /// Shows what has changed since the last time; to be called before each frame.
    void refresh();

private:
    platform::TextDocumentProxy& textDocumentProxy() override { return field_; }
    platform::InterfaceOrientation interfaceOrientation() const override;
    void dismissKeyboard() override;
    void advanceToNextInputMode() override;
    void setPrimaryLanguage(const std::string& language) override;
    void setHeight(double height) override;

    void makeKeyboardAppear();
    void placeKeyboard();
    void placeAll();
    void showChoices();
    void choose(Choice choice);
    using ThemePlace = std::vector<host::NamedTheme>::const_iterator;
    [[nodiscard]] ThemePlace themeOnShow() const;
    void nextTheme();
    [[nodiscard]] std::string themeLabel() const;
    void tapText(std::size_t character, int taps);
    void edit(EditingKey key);
    void deleteForward();
    void changeFieldFromOutside(const std::function<void()>& change);

    platform::NotificationCenter notificationCenter_;
    WindowScreen screen_;
    platform::PlainDevice device_;
    platform::PlainTextField field_;
    platform::Platform platform_;
    FieldChoices choices_;
    std::vector<host::NamedTheme> themes_;
    ui::Window window_;
    ui::View root_;
    ui::View shelf_;  // carries the keyboard's ground on to the edges of a wider window
    Toolbar toolbar_;
    TextArea textArea_;
    std::unique_ptr<VorpelKeyboardViewController> keyboard_;
    std::function<void(ui::Size)> sizeHandler_;
    ui::Size size_;
    double keyboardHeight_ = 0;
    bool appeared_ = false;
    bool needsPlacing_ = false;
};

}  // namespace vorpel::playground
