// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/settings/default_settings.h"
#include "keyboard/settings/default_settings_table_view_cell.h"
#include "keyboard/settings/settings_list.h"
#include "support/deterministic_platform.h"
#include "support/recording_painter.h"
#include "ui/window.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>

namespace vorpel {

constexpr ui::RowPath ARABIC_ROW{0, 0};
constexpr ui::RowPath ENGLISH_ROW{0, 1};
constexpr ui::RowPath SUGGESTIONS_ROW{1, 0};
constexpr ui::RowPath CORRECTION_ROW{1, 1};
constexpr ui::RowPath CLICKS_ROW{2, 1};

inline ui::Rect inWindow(const ui::View& view) {
    const ui::Point origin = view.convertToWindow({0, 0});
    return {origin.x, origin.y, view.bounds().width, view.bounds().height};
}

inline bool holds(const ui::Rect& outer, const ui::Rect& inner) {
    return outer.unionWith(inner) == outer;
}

/// The settings screen alone in a window, with a finger.
class DefaultSettingsTest : public ::testing::Test {
protected:
    DefaultSettingsTest() { registerKeyboardDefaults(platform.userDefaults); }

    platform::UserDefaults& defaults() { return platform.userDefaults; }

    void open(ui::Size size = {375, 216}) {
        settings = std::make_unique<DefaultSettings>(colors, false, false, platform.userDefaults);
        settings->setFrame({0, 0, size.width, size.height});
        window.setRoot(settings.get());
        frame();
    }

    testing::RecordingPainter frame() {
        testing::RecordingPainter painter;
        window.paint(painter);
        return painter;
    }

    DefaultSettingsTableViewCell& cell(const ui::RowPath& path) {
        return dynamic_cast<DefaultSettingsTableViewCell&>(*settings->table().cellForRow(path));
    }

    bool isOn(const ui::RowPath& path) { return cell(path).settingSwitch().isOn(); }

    /// All switches from the top, as "01 10 101".
    std::string switches() {
        std::string all;
        for (std::size_t section = 0; section < settingsList.size(); ++section) {
            if (section > 0) all += ' ';
            for (std::size_t row = 0; row < settingsList[section].keys.size(); ++row) {
                all += isOn({section, row}) ? '1' : '0';
            }
        }
        return all;
    }

    /// Draws the content upwards by so much, at the left edge, where no switch is.
    void scrollBy(double distance) {
        const ui::Rect table = inWindow(settings->table());
        const ui::Point start{4, distance > 0 ? table.bottom() - 2 : table.y + 2};
        window.touchDown(1, start);
        for (int step = 1; step <= 4; ++step) {
            platform.advance(0.05);
            window.touchMoved(1, {start.x, start.y - distance * step / 4});
        }
        // A finger that rests before it is lifted throws nothing.
        platform.advance(0.5);
        window.touchUp(1, {start.x, start.y - distance});
        platform.advance(1);
        frame();
    }

    /// Scrolls as a finger would until the whole of it is on show.
    bool bringOnShow(const ui::View& view) {
        const ui::Rect table = inWindow(settings->table());
        for (int drag = 0; drag < 40; ++drag) {
            const ui::Rect rect = inWindow(view);
            if (holds(table, rect)) return true;
            scrollBy(rect.y < table.y ? -table.height / 4 : table.height / 4);
        }
        return false;
    }

    void tap(ui::Point point) {
        window.touchDown(1, point);
        platform.advance(0.05);
        window.touchUp(1, point);
        platform.advance(0.5);
        frame();
    }

    void tapSwitch(const ui::RowPath& path) {
        ASSERT_TRUE(bringOnShow(cell(path).settingSwitch()));
        tap(inWindow(cell(path).settingSwitch()).center());
    }

    void tapTitle(const ui::RowPath& path) {
        ASSERT_TRUE(bringOnShow(cell(path).titleLabel()));
        tap(inWindow(cell(path).titleLabel()).center());
    }

    testing::DeterministicPlatform platform;
    GlobalColors colors;
    std::unique_ptr<DefaultSettings> settings;
    ui::Window window{platform.runLoop};
};

}  // namespace vorpel
