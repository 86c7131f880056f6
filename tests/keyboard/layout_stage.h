// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/controller/forwarding_view.h"
#include "keyboard/layout/keyboard_layout.h"
#include "keyboard/model/default_keyboard.h"
#include "support/deterministic_platform.h"
#include "text/diagnostics.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorpel::testing {

/// A layout that may give each key a view of its own.
class SwitchedLayout final : public KeyboardLayout {
public:
    SwitchedLayout(const LayoutParts& parts, const Keyboard& model, ui::View& superview, ui::View& popups,
                   bool pools)
        : KeyboardLayout(parts, model, superview, popups), pools_(pools) {}

    [[nodiscard]] bool shouldPoolKeys() const override { return pools_; }

private:
    bool pools_;
};

enum class Pooling { Off, On };

/// The keys of one language on a screen, without a controller.
class LayoutStage {
public:
    LayoutStage(Keyboard keyboard, const PlatformShape& shape, Pooling pooling = Pooling::On)
        : platform(shape), model(std::move(keyboard)) {
        layout = std::make_unique<SwitchedLayout>(
            LayoutParts{constants, colors, platform.screen, platform.bundle, platform.userDefaults}, model,
            keys, popups, pooling == Pooling::On);
        setSize(shape.width, 216);
    }

    /// The keys', and with them the screen's width.
    void setSize(double width, double height) {
        platform.screen.setSize(width, platform.screen.boundsHeight());
        keys.setFrame({0, 0, width, height});
        popups.setFrame({0, 0, width, height});
    }

    void show(int page, ShiftState state = ShiftState::Disabled) {
        const bool isUpper = uppercase(state);
        layout->layoutKeys(page, isUpper, isUpper, state, nullptr);
    }

    [[nodiscard]] std::vector<const Key*> keysOf(int page) const {
        std::vector<const Key*> all;
        for (const KeyRow& row : model.pages.at(static_cast<std::size_t>(page)).rows) {
            for (const auto& key : row) all.push_back(key.get());
        }
        return all;
    }

    std::optional<wordengine::Diagnostics::Silence> silence{std::in_place};
    DeterministicPlatform platform;
    LayoutConstants constants{platform.screen, platform.device};
    GlobalColors colors;
    Keyboard model;
    ui::View popups;
    ForwardingView keys{platform.runLoop, platform.notificationCenter};
    std::unique_ptr<SwitchedLayout> layout;
};

/// The numbers of the pages that have keys.
inline std::vector<int> pagesWithKeys(const Keyboard& model) {
    std::vector<int> numbers;
    for (std::size_t page = 0; page < model.pages.size(); ++page) {
        if (!model.pages[page].rows.empty()) numbers.push_back(static_cast<int>(page));
    }
    return numbers;
}

}  // namespace vorpel::testing
