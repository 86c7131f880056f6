// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/session/vorpel_keyboard_view_controller.h"
#include "keyboard/watched_queues.h"
#include "platform/clock.h"
#include "platform/memory_user_defaults.h"
#include "platform/plain_text_field.h"
#include "platform/platform.h"
#include "platform/posix/folder_bundle.h"
#include "ui/cairo/font_emoji_coverage.h"
#include "ui/window.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorpel::cli {

/// What a keyboard is put up for: measures in points.
struct StageShape {
    std::string language = "en";
    double width = 375;
    double height = 0;       ///< of the keys; 0 is what the device's rule says
    double screenWidth = 0;  ///< 0 is the keyboard's own width
    double scale = 2;
    bool isPad = false;
    bool isLandscape = false;
    bool isDark = false;
    bool hasBar = false;  ///< the bar above the keys is on show
    bool autoCorrects = false;
    std::string themeFile;                 ///< empty for the built-in look
    std::vector<std::string> recentEmoji;  ///< the latest first
    platform::TextInputTraits field;
    WordServiceFactory words;  ///< in place of the language's own; empty for that
};

/// A keyboard before a text field, without a screen: time passes only when it is told to. Throws
/// std::runtime_error when its pictures are not found.
class KeyboardStage {
public:
    explicit KeyboardStage(const StageShape& shape);
    ~KeyboardStage();

    [[nodiscard]] VorpelKeyboardViewController& controller() { return *controller_; }
    [[nodiscard]] VPSuggestionsBanner& banner() { return *controller_->suggestionsBanner(); }
    [[nodiscard]] ui::Window& window() { return window_; }
    [[nodiscard]] platform::PlainTextField& field() { return host_.field; }
    [[nodiscard]] double scale() const { return screen_.scale(); }
    [[nodiscard]] const platform::Platform& platform() const { return platform_; }

    /// The whole keyboard, in points.
    [[nodiscard]] ui::Size size();

    void advance(double seconds);

    /// Waits until all that was asked of other threads has been answered.
    void settle();

    /// A finger down and up again, in the window's points, and the time that takes.
    void tap(ui::Point point);

    /// A finger that draws what lies under it along, and rests before it lets go.
    void drag(ui::Point from, ui::Point to);

    /// The key's frame in the window's points, while it is on show.
    [[nodiscard]] ui::Rect frameOf(const Key& key);

    /// Paints everything and writes it as PNG.
    void savePicture(const std::string& path);

private:
    class Controller;

    struct Host final : platform::InputHost {
        platform::PlainTextField field;
        platform::InterfaceOrientation orientation = platform::InterfaceOrientation::Portrait;

        platform::TextDocumentProxy& textDocumentProxy() override { return field; }
        platform::InterfaceOrientation interfaceOrientation() const override { return orientation; }
        void dismissKeyboard() override {}
        void advanceToNextInputMode() override {}
        void setPrimaryLanguage(const std::string& /*language*/) override {}
        void setHeight(double /*height*/) override {}
    };

    void setHeights(const StageShape& shape);

    platform::ManualClock clock_;
    platform::RunLoop runLoop_;
    platform::NotificationCenter notificationCenter_;
    platform::MemoryUserDefaults userDefaults_;
    platform::FolderBundle bundle_;
    platform::PlainScreen screen_;
    platform::PlainDevice device_;
    ui::FontEmojiCoverage emojiCoverage_;
    WatchedQueues queues_;
    Host host_;
    platform::Platform platform_;
    ui::Window window_;
    std::unique_ptr<VorpelKeyboardViewController> controller_;
};

}  // namespace vorpel::cli
