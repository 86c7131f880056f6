// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/model/preference_keys.h"
#include "keyboard/session/vorpel_keyboard_view_controller.h"
#include "platform/characters.h"
#include "support/deterministic_platform.h"
#include "text/diagnostics.h"
#include "ui/window.h"

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace vorpel::testing {

/// The plain class, which does as it was once laid down, or the one that hosts embed.
enum class Kind { Plain, Embedded };

/// A keyboard that keeps which of its hooks were called, and shows what is for subclasses.
template <class Base>
class OpenKeyboard final : public Base {
public:
    template <class... Options>
    OpenKeyboard(platform::Platform& platform, std::vector<std::string>& calls, std::vector<double>& dates,
                 const Options&... options)
        : Base(platform, options...), calls_(calls), dates_(dates) {
        Base::setUp();
    }

    using Base::swipeKeyMode;

    void keyFramesValuesChanged() override { calls_.emplace_back("frames"); }
    void launchEmojiKeyboard() override { calls_.emplace_back("emoji"); }
    void resetTheUpdateAndSearchString() override { calls_.emplace_back("reset"); }
    void spaceKeyIdentifierFunction() override { calls_.emplace_back("space cancelled"); }
    void addCharacterToList(ui::Control& /*sender*/) override { calls_.emplace_back("repeat"); }
    void keyPressed(const Key& key, double date, ui::Point position) override {
        dates_.push_back(date);
        Base::keyPressed(key, date, position);
    }

private:
    std::vector<std::string>& calls_;
    std::vector<double>& dates_;
};

inline PlatformShape deviceOf(double width, double height,
                              platform::UserInterfaceIdiom idiom = platform::UserInterfaceIdiom::Phone,
                              const std::string& modelName = "") {
    PlatformShape shape;
    shape.width = width;
    shape.height = height;
    shape.idiom = idiom;
    shape.modelName = modelName;
    return shape;
}

/// What a keyboard is put on stage with.
struct Setting {
    PlatformShape device = {};
    Kind kind = Kind::Embedded;
    const char* language = preferences::ENGLISH;
    /// Without capitals of its own accord, unless a test is about them.
    platform::AutocapitalizationType capitals = platform::AutocapitalizationType::None;
    TypingOptions options = {};  ///< of the embedded kind
};

/// A keyboard in a window on the deterministic platform, and fingers on it. Keys are named by what they type
/// or show, or: "shift", "backspace", "globe", "emoji", "space", "return", "left", "right", "dismiss".
class Stage {
public:
    using Maker = std::function<std::unique_ptr<KeyboardViewController>(platform::Platform&)>;

    /// With a keyboard of the test's own, where it has one.
    explicit Stage(const Setting& setting = {}, const Maker& maker = nullptr) : platform(setting.device) {
        wordengine::Diagnostics::setStream(nullptr);
        platform.userDefaults.setString(preferences::LANGUAGE, setting.language);
        setTraits(platform::KeyboardType::Default, platform::ReturnKeyType::Default, setting.capitals);
        if (maker) {
            controller = maker(platform.platform);
        } else if (setting.kind == Kind::Plain) {
            controller =
                std::make_unique<OpenKeyboard<KeyboardViewController>>(platform.platform, calls, dates);
        } else {
            controller = std::make_unique<OpenKeyboard<VorpelKeyboardViewController>>(
                platform.platform, calls, dates, setting.options);
        }
        window.setRoot(&controller->view());
        controller->viewDidLoad();
        layOut();
    }

    DeterministicPlatform platform;
    std::vector<std::string> calls;  ///< hooks, in order
    std::vector<double> dates;       ///< what came with each key that types
    std::unique_ptr<KeyboardViewController> controller;
    ui::Window window{platform.runLoop};

    // As a host.

    void setTraits(platform::KeyboardType type, platform::ReturnKeyType returnType,
                   platform::AutocapitalizationType capitals = platform::AutocapitalizationType::None) {
        field().setTraits({capitals, type, returnType, platform::KeyboardAppearance::Default});
    }

    /// Gives the view the width of the screen and the height that it asks for.
    void layOut() {
        const auto& heights = platform.host.heights;
        for (double height = -1; height != (heights.empty() ? 0 : heights.back());) {
            height = heights.empty() ? 0 : heights.back();
            const double shown = height > 0 ? height : 216;
            controller->view().setFrame({0, 0, platform.screen.boundsWidth(), shown});
            controller->viewDidLayoutSubviews();
        }
    }

    void rotate(platform::InterfaceOrientation orientation) {
        platform.host.orientation = orientation;
        platform.screen.setTurned(orientation == platform::InterfaceOrientation::Landscape);
        controller->didRotate();
        layOut();
    }

    /// Puts the text into the field and tells of it.
    void hostSets(const std::string& text) {
        field().setText(text);
        controller->textDidChange();
    }

    [[nodiscard]] platform::PlainTextField& field() { return platform.field(); }
    [[nodiscard]] const std::string& text() { return field().text(); }

    // As somebody's fingers. A finger that is not told where goes on where it is.

    void down(int finger, ui::Point point) { window.touchDown(finger, places_[finger] = point); }
    void down(int finger, const std::string& key) { down(finger, center(key)); }
    void move(int finger, ui::Point point) { window.touchMoved(finger, places_[finger] = point); }
    void move(int finger, const std::string& key) { move(finger, center(key)); }
    void up(int finger) { window.touchUp(finger, places_[finger]); }
    void up(int finger, ui::Point point) { window.touchUp(finger, point); }
    void cancel(int finger) { window.touchCancelled(finger); }
    void advance(double seconds) { platform.advance(seconds); }

    /// Short, and long enough after the last one not to count with it.
    void touch(const std::string& key) {
        advance(0.5);
        tapAgain(key);
        advance(0.06);
    }

    void tapAgain(const std::string& key) {
        down(0, key);
        advance(0.06);
        up(0);
    }

    /// Touches what types each character; "^" is shift, a backspace and "|" a host that tells of a change.
    void type(const std::string& script) {
        for (const std::string& character : platform::characters(script)) {
            if (character == "|") {
                controller->textDidChange();
            } else {
                touch(character == "^" ? "shift" : character == "\b" ? "backspace" : character);
            }
        }
    }

    // What is to be seen.

    [[nodiscard]] const Page& page() const {
        return controller->plane().model.pages.at(static_cast<std::size_t>(controller->currentMode()));
    }

    [[nodiscard]] const Key& key(const std::string& name) const {
        for (const KeyRow& row : page().rows) {
            for (const auto& key : row) {
                if (key->lowercaseOutput == name || nameOf(*key) == name) return *key;
            }
        }
        throw std::invalid_argument("no key \"" + name + "\" on page " +
                                    std::to_string(controller->currentMode()));
    }

    [[nodiscard]] KeyboardKey& face(const std::string& name) const {
        return *controller->plane().layout->viewForKey(key(name));
    }

    [[nodiscard]] ui::Rect frameOf(const std::string& name) const {
        return face(name).frame().offsetBy(keys().convertToWindow({0, 0}));
    }
    [[nodiscard]] ui::Point center(const std::string& name) const { return frameOf(name).center(); }

    [[nodiscard]] ForwardingView& keys() const { return *controller->plane().forwardingView; }
    [[nodiscard]] std::size_t popups() const { return controller->plane().popupLayer->subviews().size(); }

    /// But for the one that asks how the field looks.
    [[nodiscard]] std::size_t timers() const {
        return platform.runLoop.timerCount() - (controller->pollsTraits() ? 1U : 0U);
    }

    /// Names of the keys on show whose ground says that they are held. Shift's says something else.
    [[nodiscard]] std::vector<std::string> highlighted() const {
        std::vector<std::string> names;
        for (ui::View* const view : keys().subviews()) {
            const Key* const model = controller->plane().layout->keyForView(*view);
            const bool isHeld = static_cast<KeyboardKey*>(view)->isHighlighted();
            if (isHeld && !view->isHidden() && model->type != Key::KeyType::Shift) {
                names.push_back(nameOf(*model));
            }
        }
        return names;
    }

private:
    static std::string nameOf(const Key& key) {
        using KeyType = Key::KeyType;
        static const std::map<KeyType, std::string> NAMES = {
            {KeyType::Shift, "shift"},        {KeyType::Backspace, "backspace"},
            {KeyType::Space, "space"},        {KeyType::KeyboardChange, "globe"},
            {KeyType::LaunchEmoji, "emoji"},  {KeyType::adjust_Left, "left"},
            {KeyType::adjust_Right, "right"}, {KeyType::dismiss_Self, "dismiss"}};
        const auto found = NAMES.find(key.type);
        if (found != NAMES.end()) return found->second;
        return key.isReturn() ? "return" : key.keyCapForCase(false);
    }

    std::map<int, ui::Point> places_;
};

}  // namespace vorpel::testing
