// SPDX-License-Identifier: Apache-2.0
#include "keyboard_fixture.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace vorpel {
namespace {

using platform::InterfaceOrientation;
using platform::UserInterfaceIdiom;
using testing::Kind;
using testing::Stage;

constexpr int RETURN_TYPES = 12;

/// The letters' page of each return type of a text field, by number; -1 leaves the page.
constexpr int PAGES[RETURN_TYPES] = {0, 20, -1, 20, 10, 20, 30, 50, -1, 40, -1, -1};

std::optional<int> pageOf(int field, int returnType) {
    if (field == 2 || field == 4 || field == 5 || field == 8) return 1;
    if (PAGES[returnType] < 0) return std::nullopt;
    return PAGES[returnType] + (field == 3 ? 6 : field == 7 ? 3 : 0);
}

/// Goes through fields and checks their pages, which lie `base` higher.
void expectPages(Stage& stage, int base, const std::vector<int>& fields) {
    for (const int field : fields) {
        for (int returnType = 0; returnType < RETURN_TYPES; ++returnType) {
            const auto expected = pageOf(field, returnType);
            const int before = stage.controller->currentMode();
            stage.setTraits(static_cast<platform::KeyboardType>(field),
                            static_cast<platform::ReturnKeyType>(returnType));
            stage.controller->textDidChange();
            ASSERT_EQ(stage.controller->currentMode(), expected ? *expected + base : before)
                << "field " << field << " return " << returnType;
            ASSERT_EQ(stage.platform.userDefaults.boolForKey(preferences::kIsNumberType), expected == 1);
        }
    }
}

TEST(PageForField, FollowsFieldReturnKeyAndRoom) {
    const struct {
        double width, height;
        UserInterfaceIdiom idiom;
        const char* model;
        bool plainWide[2];  // upright, sideways
        bool embeddedWide[2];
    } DEVICES[] = {
        {375, 667, UserInterfaceIdiom::Phone, "", {false, true}, {false, true}},
        {320, 480, UserInterfaceIdiom::Phone, "", {false, true}, {false, false}},
        {375, 605, UserInterfaceIdiom::Phone, "", {false, true}, {false, false}},
        {375, 606, UserInterfaceIdiom::Phone, "", {false, true}, {false, true}},
        {375, 667, UserInterfaceIdiom::Phone, "Phone 4", {false, false}, {false, true}},
        {375, 667, UserInterfaceIdiom::Phone, "15 Max", {false, false}, {false, true}},
        {440, 900, UserInterfaceIdiom::Phone, "", {false, true}, {false, true}},
        {441, 900, UserInterfaceIdiom::Phone, "", {true, true}, {false, true}},
        {768, 1024, UserInterfaceIdiom::Pad, "", {false, false}, {false, false}},
    };
    for (const auto& device : DEVICES) {
        for (const Kind kind : {Kind::Plain, Kind::Embedded}) {
            const auto& wide = kind == Kind::Plain ? device.plainWide : device.embeddedWide;
            Stage stage({.device = testing::deviceOf(device.width, device.height, device.idiom, device.model),
                         .kind = kind});
            SCOPED_TRACE(std::to_string(device.width) + device.model + (kind == Kind::Plain ? " plain" : ""));
            // The first device goes through them all, the others through one of each kind.
            const std::vector<int> fields =
                &device == DEVICES ? std::vector{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10} : std::vector{0, 4, 7};
            stage.hostSets("");
            expectPages(stage, wide[0] ? 100 : 0, fields);
            stage.rotate(InterfaceOrientation::Landscape);
            expectPages(stage, wide[1] ? 100 : 0, fields);
        }
    }
}

TEST(PageForField, OfAnUnknownReturnKeyStaysButForItsWidthInTheEmbeddedClass) {
    const struct {
        platform::ReturnKeyType type;
        InterfaceOrientation orientation;
        int plain, embedded;
    } STEPS[] = {{platform::ReturnKeyType::Done, InterfaceOrientation::Portrait, 40, 40},
                 {platform::ReturnKeyType::Continue, InterfaceOrientation::Landscape, 40, 140},
                 {platform::ReturnKeyType::Done, InterfaceOrientation::Landscape, 140, 140},
                 {platform::ReturnKeyType::Continue, InterfaceOrientation::Portrait, 140, 40}};
    for (const Kind kind : {Kind::Plain, Kind::Embedded}) {
        Stage stage({.kind = kind});
        for (const auto& step : STEPS) {
            stage.setTraits(platform::KeyboardType::Default, step.type);
            stage.controller->textDidChange();
            stage.rotate(step.orientation);
            EXPECT_EQ(stage.controller->currentMode(), kind == Kind::Plain ? step.plain : step.embedded);
        }
    }
}

TEST(Rotation, MeasuresTheWideSetAnewForEachWidth) {
    for (const bool laysOutFirst : {false, true}) {
        Stage stage;
        for (const double width : {667.0, 926.0, 606.0, 844.0}) {
            stage.platform.screen.setSize(375, width);
            if (laysOutFirst) {
                stage.platform.screen.setTurned(true);
                stage.layOut();
            }
            stage.rotate(InterfaceOrientation::Landscape);
            Stage fresh({.device = testing::deviceOf(375, width)});
            fresh.rotate(InterfaceOrientation::Landscape);
            for (const char* const key : {"!", "q", "p", "return"}) {
                EXPECT_EQ(stage.frameOf(key), fresh.frameOf(key)) << laysOutFirst << width << key;
            }
        }
    }
}

TEST(Language, ChangesTheKeysAndKeepsTheRest) {
    Stage stage({.language = "ar"});
    int reloads = 0;
    const auto observation = stage.platform.notificationCenter.addObserver(
        "dictionaryReload", [&](const platform::Notification&) { ++reloads; });
    EXPECT_TRUE(stage.controller->isArabicModeOn());
    stage.touch("123");
    for (const auto& [value, language, digit] : {std::tuple("en", "en", "1"), std::tuple("ar", "ar", "١"),
                                                 std::tuple("ar", "ar", "١"), std::tuple("?", "en", "1")}) {
        stage.controller->changeKeyboardLanguage(value);
        EXPECT_EQ(stage.platform.userDefaults.stringForKey(preferences::LANGUAGE), language);
        EXPECT_EQ(stage.platform.host.primaryLanguage, language);
        EXPECT_EQ(stage.controller->currentMode(), 1);
        stage.field().setText("");
        stage.touch(digit);
        EXPECT_EQ(stage.text(), digit);
    }
    EXPECT_EQ(reloads, 4);
}

TEST(Language, MayChangeFromWithinAKeysOwnAction) {
    using enum ui::ControlEvent;
    for (const auto event : {TouchDown, TouchDragExit, TouchUpInside}) {
        for (const char* const value : {"en", "ar"}) {
            Stage stage;
            const auto change = [&](ui::Control&) {
                stage.controller->changeKeyboardLanguage(value);
                stage.controller->changeKeyboardLanguage("en");
            };
            stage.face("q").addTarget(&stage, "change", event, change);
            stage.down(1, "q");
            if (event == TouchDragExit) stage.move(1, "w");
            stage.up(1);
            stage.advance(1);
            EXPECT_EQ(stage.keys().ownedTouchCount(), 0U);
            EXPECT_EQ(stage.timers() + stage.popups(), 0U);
            EXPECT_TRUE(stage.highlighted().empty());
            stage.field().setText("");
            stage.type("w");
            EXPECT_EQ(stage.text(), "w");
        }
    }
}

}  // namespace
}  // namespace vorpel
