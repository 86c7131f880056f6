// SPDX-License-Identifier: Apache-2.0
#include "keyboard/controller/vorpel_keyboard_view_controller.h"
#include "keyboard/model/preference_keys.h"
#include "keyboard/settings_fixture.h"

#include <gtest/gtest.h>

#include <memory>

namespace vorpel {
namespace {

/// The screen as the keyboard shows it.
class SettingsInKeyboardTest : public DefaultSettingsTest {
protected:
    SettingsInKeyboardTest() {
        keyboard->view().setFrame({0, 0, 375, 261});
        window.setRoot(&keyboard->view());
        keyboard->viewDidLoad();
        keyboard->viewDidLayoutSubviews();
        frame();
    }

    void openSettings() {
        keyboard->toggleSettings(false);
        platform.settle();
        frame();
        ASSERT_TRUE(keyboard->settingsOnShow());
    }

    ui::Point placeOf(const ui::RowPath& path) {
        auto* const row = keyboard->settingsView()->table().cellForRow(path);
        return inWindow(*row->accessory()).center();
    }

    ui::Point done() { return inWindow(keyboard->settingsView()->doneButton()).center(); }

    std::unique_ptr<VorpelKeyboardViewController> keyboard =
        VorpelKeyboardViewController::create(platform.platform);
};

TEST_F(SettingsInKeyboardTest, CoversTheKeysUntilItIsDone) {
    openSettings();
    const ui::Rect keys = inWindow(*keyboard->forwardingView());
    ASSERT_EQ(inWindow(*keyboard->settingsView()), keys);
    for (double y = keys.y + 50; y < keys.bottom(); y += 9) tap({6, y});
    EXPECT_EQ(platform.field().text(), "") << "no key is felt through the screen";

    window.touchDown(1, done());
    window.touchMoved(1, {done().x - 250, done().y + 120});
    window.touchUp(1, {done().x - 250, done().y + 120});
    EXPECT_TRUE(keyboard->settingsOnShow()) << "the finger has thought better of it";
    tap(done());
    EXPECT_FALSE(keyboard->settingsOnShow());
    tap({keys.center().x, keys.y + 30});
    EXPECT_NE(platform.field().text(), "");
}

TEST_F(SettingsInKeyboardTest, ALanguageIsLoadedWhenTheScreenIsDone) {
    openSettings();
    tap(placeOf(ARABIC_ROW));
    EXPECT_FALSE(keyboard->isArabicModeOn());
    tap(done());
    platform.settle();
    EXPECT_TRUE(keyboard->isArabicModeOn());
    EXPECT_EQ(platform.host.primaryLanguage, "ar");
    EXPECT_FALSE(defaults().boolForKey(preferences::NEED_TO_RELOAD_LANGUAGE));

    openSettings();
    tap(placeOf(ENGLISH_ROW));
    tap(done());
    EXPECT_FALSE(keyboard->isArabicModeOn());
}

TEST_F(SettingsInKeyboardTest, ShowsAnewWhatTheHostHasChangedMeanwhile) {
    openSettings();
    tap(done());
    keyboard->changeKeyboardSetting(VorpelIMESettings::WORD_SUGGESTION, false);
    keyboard->changeKeyboardLanguage("ar");
    openSettings();
    const auto on = [&](const ui::RowPath& path) {
        auto* const row = keyboard->settingsView()->table().cellForRow(path);
        return dynamic_cast<DefaultSettingsTableViewCell&>(*row).settingSwitch().isOn();
    };
    EXPECT_FALSE(on(SUGGESTIONS_ROW));
    EXPECT_TRUE(on(ARABIC_ROW));
    EXPECT_FALSE(on(ENGLISH_ROW));
}

}  // namespace
}  // namespace vorpel
