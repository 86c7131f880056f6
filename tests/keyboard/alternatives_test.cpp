// SPDX-License-Identifier: Apache-2.0
#include "keyboard/alternatives/alternatives_table.h"
#include "keyboard/model/default_keyboard.h"
#include "keyboard_fixture.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>

namespace vorpel::testing {
namespace {

const platform::FolderBundle SHIPPED({VORPEL_SOURCE_DIR "/data/alternatives"});

Setting settingFor(const char* language) {
    Setting setting{.language = language, .options = {.alternatives = true}};
    setting.device.resourceFolders = {SHIPPED.bundlePath()};
    return setting;
}

/// Finger 1 is the one that holds.
struct HoldStage : Stage {
    explicit HoldStage(const char* language = "en") : Stage(settingFor(language)) {}

    [[nodiscard]] const AlternativesRow* row() const {
        return dynamic_cast<const AlternativesForwardingView&>(keys()).row();
    }
    /// The own letter of the row that is open after some time; empty for no row.
    std::string rowAfter(double seconds) {
        advance(seconds);
        return row() ? row()->texts().front() : "";
    }
    /// To a cell; "~" is a tremble on the key, "far" away from it and the row.
    void slide(const ui::Point& start, const std::string& to) {
        const double by = to == "far" ? 110 : 3;
        const auto index =
            static_cast<std::size_t>(std::ranges::find(row()->texts(), to) - row()->texts().begin());
        const bool isCell = index < row()->texts().size();
        if (!isCell && to != "far" && to != "~") throw std::invalid_argument("the row has no " + to);
        move(1, isCell ? row()->superview()->convertToWindow(row()->grid().cells[index].center())
                       : ui::Point{start.x + by, start.y + by});
    }
    void expectNothingLeft() const {
        EXPECT_EQ(row(), nullptr);
        EXPECT_EQ(popups(), 0U);
        EXPECT_EQ(timers(), 0U);
        EXPECT_TRUE(highlighted().empty());
    }
};

TEST(AlternativesTest, WhatTheFingerIsLiftedOnIsTyped) {
    const struct {
        const char* language;
        int page;
        ShiftState shift;
        const char* key;
        std::vector<std::string> path;
        const char* typed;
    } cases[] = {
        {"en", 0, {}, "e", {}, "e"},
        {"en", 0, {}, "e", {"~"}, "e"},
        {"en", 0, {}, "e", {"é", "ê"}, "ê"},
        {"en", 0, {}, "e", {"é", "e"}, "e"},
        {"en", 0, {}, "e", {"far"}, ""},
        {"en", 0, {}, "e", {"far", "ë"}, "ë"},
        {"en", 0, ShiftState::Enabled, "e", {"É"}, "É"},
        {"en", 0, ShiftState::Locked, "s", {"SS"}, "SS"},
        {"en", 0, ShiftState::Enabled, "i", {"İ"}, "İ"},
        {"en", 1, {}, "0", {"°"}, "°"},
        {"ar", 0, {}, "ا", {"أ"}, "أ"},
        {"ar", 0, {}, "ت", {"\u0651"}, "\u0651"},
        {"ar", 1, {}, "١", {"1"}, "1"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.key) + " for " + c.typed);
        HoldStage stage(c.language);
        stage.controller->setCurrentMode(c.page);
        stage.controller->setShiftState(c.shift);
        const ui::Point start = stage.center(c.key);
        stage.down(1, c.key);
        EXPECT_NE(stage.rowAfter(0.351), "");
        EXPECT_EQ(stage.popups(), 1U);
        const auto& texts = stage.row()->texts();
        EXPECT_EQ(std::set(texts.begin(), texts.end()).size(), texts.size());
        for (const std::string& stop : c.path) stage.slide(start, stop);
        stage.up(1);
        EXPECT_EQ(stage.text(), c.typed);
        EXPECT_EQ(stage.controller->shiftState(),
                  c.shift == ShiftState::Locked ? c.shift : ShiftState::Disabled);
        stage.expectNothingLeft();
    }
}

TEST(AlternativesTest, TheRowOpensWhenAFingerHasRestedOnOneKey) {
    HoldStage stage;
    stage.down(1, "e");
    EXPECT_EQ(stage.rowAfter(0.3), "");
    stage.move(1, "r");
    EXPECT_EQ(stage.rowAfter(0.349), "");
    EXPECT_EQ(stage.rowAfter(0.0011), "r");
    stage.cancel(1);
    // Of two fingers the later one is waited for, whether its key offers anything or not.
    for (const std::string later : {"o", "q"}) {
        stage.down(1, "e");
        stage.advance(0.3);
        stage.down(2, later);
        EXPECT_EQ(stage.rowAfter(0.349), "");
        EXPECT_EQ(stage.rowAfter(0.0011), later == "q" ? "" : later);
        stage.cancel(1);
        stage.cancel(2);
        stage.expectNothingLeft();
    }
}

TEST(AlternativesTest, OtherFingersTypeWhileTheRowIsOpen) {
    HoldStage stage;
    stage.touch("shift");
    stage.down(1, "e");
    EXPECT_EQ(stage.rowAfter(0.4), "E");
    stage.touch("t");
    EXPECT_EQ(stage.rowAfter(0), "e");  // shift is used up
    stage.slide({}, "è");
    stage.touch("q");
    stage.up(1);
    EXPECT_EQ(stage.text(), "Tqè");
    EXPECT_EQ(stage.platform.userDefaults.stringForKey(preferences::STRING_TO_SEND), "Tqè");
}

TEST(AlternativesTest, WhatEndsAHoldLeavesNothing) {
    const auto becomePrivate = [](HoldStage& s) {
        platform::TextInputTraits secret;
        secret.isSecureTextEntry = true;
        s.field().setTraits(secret);
        s.controller->textDidChange();
    };
    const struct {
        const char* what;
        std::function<void(HoldStage&)> happens;
        const char* typed = "";  // by the finger that held
    } cases[] = {
        {"cancel", [](HoldStage& s) { s.cancel(1); }},
        {"turn", [](HoldStage& s) { s.rotate(platform::InterfaceOrientation::Landscape); }},
        {"page", [](HoldStage& s) { s.tapAgain("123"); }},
        {"language", [](HoldStage& s) { s.controller->changeKeyboardLanguage("ar"); }},
        {"settings", [](HoldStage& s) { s.controller->toggleSettings(false); }},
        {"disappearing", [](HoldStage& s) { s.controller->viewWillDisappear(); }},
        {"no window", [](HoldStage& s) { s.window.setRoot(nullptr); }},
        {"the key taken over", [](HoldStage& s) { s.down(2, "e"), s.cancel(2); }},
        {"a private field", becomePrivate, "e"},
    };
    for (const double held : {0.2, 0.4}) {
        for (const auto& c : cases) {
            SCOPED_TRACE(c.what + std::string(" after ") + std::to_string(held));
            HoldStage stage;
            stage.down(1, "e");
            EXPECT_EQ(stage.rowAfter(held), held > 0.35 ? "e" : "");
            c.happens(stage);
            EXPECT_EQ(stage.rowAfter(0), "");
            EXPECT_EQ(stage.rowAfter(1), "");
            stage.up(1);
            stage.advance(0.1);
            EXPECT_EQ(stage.text(), c.typed);
            stage.expectNothingLeft();
        }
    }
}

TEST(AlternativesTest, ADamagedFileIsNamedOnceAndOffersNothing) {
    const TemporaryFolder folder;
    const platform::FolderBundle bundle({folder.path()});
    for (const char* content : {"", "{", "[]", R"({"e": "é"})", R"({"e": [1]})", R"({"e": [""]})",
                                "{\"e\": [\"\xff\"]}", R"({"e": ["é"], "e": ["è"]})"}) {
        const std::string path = folder.write("alternatives_en.json", content);
        AlternativesTable table(bundle);
        wordengine::Diagnostics::setStream(stdout);
        ::testing::internal::CaptureStdout();
        for (int asked = 0; asked < 2; ++asked)
            EXPECT_TRUE(table.alternativesOf("en", "e").empty()) << content;
        const std::string line = ::testing::internal::GetCapturedStdout();
        EXPECT_TRUE(line.starts_with(path + ": ") && line.find('\n') == line.size() - 1) << line;
    }
}

/// A slip in the data would go unseen: what nobody can reach, since no key of the language offers it.
TEST(AlternativesTest, ShippedFilesBringWhatNoPageHas) {
    const struct {
        const char* language;
        Keyboard keyboard;
        const char* needed;
    } cases[] = {
        {"en", defaultKeyboard(0, 0),
         "éèêëñçßøæœ–—•“”„«»‘’€£¥₹₽¢½⅓¼¹²³¿¡…≠≈‰§°"
         "٣"},
        {"ar", arabicKeyboard(0, 0), "أإآئؤءةـ،؛؟پچڤگ0123456789–—•«»€‰"},
    };
    for (const auto& c : cases) {
        AlternativesTable table(SHIPPED);
        std::set<std::string> reached;
        for (const Page& page : c.keyboard.pages) {
            for (const KeyRow& row : page.rows) {
                for (const auto& key : row) {
                    const auto& texts = table.alternativesOf(c.language, key->outputForCase(false));
                    reached.insert(texts.begin(), texts.end());
                }
            }
        }
        for (const std::string& text : platform::characters(c.needed))
            EXPECT_TRUE(reached.contains(text)) << text;
    }
}

TEST(AlternativesTest, CellsLieWithinTheRoomAndAreFoundWhereTheyLie) {
    for (const double width : {320.0, 375.0, 667.0}) {
        const ui::Rect room{0, 0, width, 261};
        for (std::size_t count = 1; count <= 25; ++count) {
            for (double x = 3; x + width / 11 <= width - 3; x += 11) {
                const ui::Rect key{x, 150, width / 11, 38};
                const AlternativesGrid grid = AlternativesGrid::over(key, room, count);
                EXPECT_EQ(grid.panel.intersection(room), grid.panel);
                EXPECT_EQ(grid.cellAt(key.center()), 0U) << width << " " << x << " " << count;
                for (std::size_t i = 0; i < count; ++i) EXPECT_EQ(grid.cellAt(grid.cells[i].center()), i);
            }
        }
    }
}

}  // namespace
}  // namespace vorpel::testing
