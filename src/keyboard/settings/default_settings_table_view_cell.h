// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/settings/settings_colors.h"
#include "ui/animation.h"
#include "ui/switch.h"
#include "ui/table_cell.h"

#include <functional>
#include <string>

namespace vorpel {

/// A row of the settings screen: what it sets, a note, and a switch. The rows of a section stand on one card
/// with round corners. Main thread only.
class DefaultSettingsTableViewCell : public ui::TableCell {
public:
    /// Which ends of its section's card the row has.
    struct Place {
        bool first = false;
        bool last = false;
    };

    /// Told what the switch shows after a person has turned it; may show something else at once.
    using TurnedHandler = std::function<void(bool on)>;

    DefaultSettingsTableViewCell(std::string title, std::string note, Place place, TurnedHandler turned);

    /// A row that cannot be turned is shown pale.
    void show(bool on, bool enabled, ui::Animated animated);

    /// As if the switch had been tapped.
    void turn();

    void setColors(const SettingsColors& colors);

    [[nodiscard]] const ui::Switch& settingSwitch() const { return *switch_; }

    [[nodiscard]] double heightForWidth(double width, ui::Painter& painter) const override;
    void layoutSubviews() override;
    void draw(ui::Painter& painter) override;

private:
    void applyColors();

    Place place_;
    ui::Switch* switch_;  // the accessory
    SettingsColors colors_;
    TurnedHandler turned_;
};

}  // namespace vorpel
