// SPDX-License-Identifier: Apache-2.0
#include "keyboard_fixture.h"

#include <gtest/gtest.h>

namespace vorpel {
namespace {

using platform::InterfaceOrientation;
using platform::UserInterfaceIdiom;
using testing::Stage;
using ui::Rect;

TEST(Height, FollowsDeviceOrientationAndWhatIsOnShow) {
    ui::View custom(Rect{0, 0, 100, 226});
    const struct {
        double width;
        UserInterfaceIdiom idiom;
        bool banner, bar, custom, keys;
        double portrait, landscape;
    } CASES[] = {
        {375, UserInterfaceIdiom::Phone, false, false, false, true, 216, 162},
        {375, UserInterfaceIdiom::Phone, true, true, false, true, 316, 262},
        {399.5, UserInterfaceIdiom::Phone, false, false, false, true, 216, 162},
        {400, UserInterfaceIdiom::Phone, false, false, false, true, 226, 162},
        {414, UserInterfaceIdiom::Phone, true, false, true, true, 497, 433},
        {375, UserInterfaceIdiom::Phone, false, false, true, false, 226, 226},
        {768, UserInterfaceIdiom::Pad, false, false, false, true, 264, 352},
        {768, UserInterfaceIdiom::Pad, true, true, true, true, 590, 678},
    };
    for (const auto& test : CASES) {
        Stage stage({.device = testing::deviceOf(test.width, 1024, test.idiom)});
        stage.controller->openCustom(custom);
        const auto height = [&](InterfaceOrientation orientation) {
            return stage.controller->getheightForOrientation(orientation, test.banner, test.bar, test.custom,
                                                             test.keys);
        };
        EXPECT_EQ(height(InterfaceOrientation::Portrait), test.portrait);
        EXPECT_EQ(height(InterfaceOrientation::Landscape), test.landscape);
        stage.controller->dismissCustom();
    }
}

TEST(Height, IsAskedOfTheHostWheneverItChanges) {
    Stage stage;
    ui::View bar;
    stage.controller->addTopBarView(bar);
    stage.controller->hideTopBarView();
    stage.controller->showTopBarView();
    stage.rotate(InterfaceOrientation::Landscape);
    EXPECT_EQ(stage.platform.host.heights, (std::vector<double>{261, 316, 261, 316, 262}));
    EXPECT_EQ(stage.controller->heightConstraint()->constant, 262);
    EXPECT_EQ(stage.controller->heightConstraint()->priority, 1000);
}

class HostCalls : public ::testing::Test, protected Stage {
protected:
    /// y of the keys, or -1 when they are not on show.
    [[nodiscard]] double keysAt() const { return keys().isHidden() ? -1 : keys().frame().y; }

    [[nodiscard]] bool storedFake() const {
        return platform.userDefaults.boolForKey(preferences::FAKE_TEXT_FIELD_ENABLED);
    }

    ui::View bar;
    ui::View custom{Rect{7, 3, 300, 120}};
};

TEST_F(HostCalls, StackTheViewsFromTheTop) {
    EXPECT_EQ(keysAt(), 45);
    controller->addTopBarView(bar);
    EXPECT_EQ(bar.frame(), (Rect{0, 0, 375, 55}));
    EXPECT_EQ(keysAt(), 100);
    controller->openCustom(custom);
    EXPECT_EQ(custom.frame(), (Rect{7, 55, 300, 120}));
    EXPECT_EQ(keysAt(), -1);
    EXPECT_TRUE(storedFake());
    EXPECT_EQ(controller->keyboardHeight(), 55 + 120);
    controller->restoreInput();
    EXPECT_EQ(keysAt(), 55 + 120) << "under the host's view, without the banner";
    EXPECT_FALSE(storedFake());
    controller->hideTopBarView();
    EXPECT_TRUE(bar.isHidden());
    EXPECT_EQ(custom.frame().y, 0);
    EXPECT_EQ(keysAt(), 120);
    EXPECT_EQ(controller->keyboardHeight(), 120 + 216);
    controller->openKeyboard(&custom);
    EXPECT_TRUE(storedFake());
    controller->openKeyboard(nullptr);
    EXPECT_FALSE(storedFake());
    controller->dismissCustom();
    EXPECT_EQ(custom.superview(), nullptr);
    EXPECT_EQ(keysAt(), 45);
    controller->showTopBarView();
    EXPECT_EQ(keysAt(), 100);
    layOut();
    type("q");
    EXPECT_EQ(text(), "q") << "the touches follow the keys";
    ui::View other;
    controller->openCustom(custom);
    controller->openCustom(other);
    EXPECT_EQ(custom.superview(), nullptr) << "one at a time";
}

TEST_F(HostCalls, PutAnOverlayOverTheKeysOnce) {
    ui::View first;
    ui::View second;
    controller->showOverlayView(first);
    controller->showOverlayView(second);
    EXPECT_EQ(second.superview(), nullptr);
    EXPECT_EQ(first.frame(), keys().frame());
    controller->addTopBarView(bar);
    EXPECT_EQ(first.frame(), keys().frame()) << "it goes with the keys";
    touch("q");
    EXPECT_EQ(text(), "") << "and takes their touches";
    controller->hideOverlayView();
    touch("q");
    EXPECT_EQ(text(), "q");
}

TEST_F(HostCalls, StoreSettings) {
    const std::tuple<VorpelIMESettings, const char*, bool> SETTINGS[] = {
        {VorpelIMESettings::AUTO_CAPITALIZATION, "kAutoCapitalization", true},
        {VorpelIMESettings::AUTO_CORRECTION, "kAutoCorrection", false},
        {VorpelIMESettings::WORD_SUGGESTION, "kWordSuggestions", true},
        {VorpelIMESettings::LOWERCASE_KEY_CAPS, "kSmallLowercase", true},
        {VorpelIMESettings::KEYPAD_CLICK_SOUND, "kKeyboardClicks", false}};
    for (const auto& [setting, key, registered] : SETTINGS) {
        EXPECT_EQ(platform.userDefaults.boolForKey(key), registered) << key;
        controller->changeKeyboardSetting(setting, !registered);
        EXPECT_EQ(platform.userDefaults.boolForKey(key), !registered) << key;
    }
}

TEST(LifeCycle, BuildsNothingForAViewWithoutSize) {
    testing::DeterministicPlatform platform;
    const auto controller = VorpelKeyboardViewController::create(platform.platform);
    controller->viewDidLayoutSubviews();
    controller->textDidChange();
    controller->didRotate();
    controller->changeKeyboardLanguage("ar");
    EXPECT_EQ(controller->arabicLayout(), nullptr);
    EXPECT_TRUE(platform.host.heights.empty());
}

}  // namespace
}  // namespace vorpel
