// SPDX-License-Identifier: Apache-2.0
#include "keyboard/keyboard_stage.h"

#include "data_folders.h"
#include "keyboard/model/preference_keys.h"
#include "platform/manual_time.h"
#include "theme_files.h"
#include "ui/cairo/bitmap.h"
#include "ui/cairo/drawing_resources.h"
#include "ui/cairo/paint_window.h"

#include <cstdio>

namespace vorpel::cli {

namespace {

// How long a finger rests on a key, and until the next one comes down, in seconds.
constexpr double PRESS = 0.06;
constexpr double PAUSE = 0.5;

// Upright, where only the width sideways is known.
constexpr double USUAL_WIDTH = 375;

platform::PlainScreen screenOf(const StageShape& shape) {
    const double width = shape.screenWidth > 0 ? shape.screenWidth : shape.width;
    platform::PlainScreen screen(shape.isLandscape ? USUAL_WIDTH : width, width, shape.scale);
    screen.setTurned(shape.isLandscape);
    return screen;
}

}  // namespace

/// Shows the bar only when asked to, and takes words from where it is told.
class KeyboardStage::Controller final : public VorpelKeyboardViewController {
public:
    Controller(platform::Platform& platform, const StageShape& shape)
        : VorpelKeyboardViewController(platform, TypingOptions::all()), words_(shape.words) {
        isBannerView = shape.hasBar;
        setUp();
    }

protected:
    WordServiceFactory makeWordServiceFactory() override {
        return words_ ? words_ : VorpelKeyboardViewController::makeWordServiceFactory();
    }

private:
    WordServiceFactory words_;
};

KeyboardStage::KeyboardStage(const StageShape& shape)
    : runLoop_(clock_),
      bundle_(host::keyboardResources()),
      screen_(screenOf(shape)),
      device_(shape.isPad ? platform::UserInterfaceIdiom::Pad : platform::UserInterfaceIdiom::Phone),
      platform_{.host = host_,
                .runLoop = runLoop_,
                .notificationCenter = notificationCenter_,
                .userDefaults = userDefaults_,
                .bundle = bundle_,
                .screen = screen_,
                .device = device_,
                .globalQueue = queues_.global(),
                .makeOperationQueue = [this] { return queues_.makeOperationQueue(); },
                .emojiCoverage = &emojiCoverage_},
      window_(runLoop_) {
    userDefaults_.setString(preferences::LANGUAGE, shape.language);
    userDefaults_.setBool(preferences::kAutoCorrection, shape.autoCorrects);
    if (!shape.recentEmoji.empty()) userDefaults_.setStringArray(preferences::RECENT, shape.recentEmoji);
    host_.orientation = shape.isLandscape ? platform::InterfaceOrientation::Landscape
                                          : platform::InterfaceOrientation::Portrait;
    platform::TextInputTraits traits = shape.field;
    if (shape.isDark) traits.keyboardAppearance = platform::KeyboardAppearance::Dark;
    host_.field.setTraits(traits);
    controller_ = std::make_unique<Controller>(platform_, shape);
    if (!shape.themeFile.empty()) controller_->themeChangeAccordingly(host::readTheme(shape.themeFile));
    setHeights(shape);
    window_.setRoot(&controller_->view());
    controller_->viewDidLoad();
    controller_->viewWillAppear();
    controller_->viewDidLayoutSubviews();
    controller_->viewDidAppear();
    controller_->textDidChange();
    settle();
}

KeyboardStage::~KeyboardStage() {
    controller_->viewWillDisappear();
    window_.setRoot(nullptr);
}

void KeyboardStage::setHeights(const StageShape& shape) {
    if (shape.height > 0) controller_->originalKeyboardHeight = shape.height;
    const double height =
        controller_->getheightForOrientation(host_.orientation, shape.hasBar, false, false, true);
    controller_->view().setFrame({0, 0, shape.width, height});
}

ui::Size KeyboardStage::size() {
    return controller_->view().frame().size();
}

void KeyboardStage::advance(double seconds) {
    platform::advance(clock_, runLoop_, seconds);
}

void KeyboardStage::settle() {
    do {
        queues_.waitUntilIdle();
        runLoop_.runDue();
    } while (!queues_.isIdle());
}

void KeyboardStage::tap(ui::Point point) {
    constexpr int FINGER = 1;
    window_.touchDown(FINGER, point);
    advance(PRESS);
    window_.touchUp(FINGER, point);
    settle();
    advance(PAUSE);
}

void KeyboardStage::drag(ui::Point from, ui::Point to) {
    constexpr int FINGER = 1;
    constexpr int STEPS = 20;
    const ui::Point way = to - from;
    window_.touchDown(FINGER, from);
    for (int step = 1; step <= STEPS; ++step) {
        advance(1 / ui::DisplayLink::FRAMES_PER_SECOND);
        const double share = static_cast<double>(step) / STEPS;
        window_.touchMoved(FINGER, {from.x + way.x * share, from.y + way.y * share});
    }
    advance(PAUSE);
    window_.touchUp(FINGER, to);
    settle();
    advance(PAUSE);
    window_.layoutIfNeeded();
}

ui::Rect KeyboardStage::frameOf(const Key& key) {
    const ui::View* const view = controller_->plane().layout->viewForKey(key);
    if (!view) return {};
    return view->bounds().offsetBy(view->convertToWindow({0, 0}));
}

void KeyboardStage::savePicture(const std::string& path) {
    ui::Bitmap bitmap = ui::Bitmap::covering(size(), scale());
    ui::DrawingResources resources(
        scale(), [](const std::string& fault) { std::fprintf(stderr, "vorpel: %s\n", fault.c_str()); });
    window_.damageAll();
    paintWindow(window_, bitmap, resources);
    bitmap.savePng(path);
}

}  // namespace vorpel::cli
