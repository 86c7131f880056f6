// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/banner/extra_view.h"
#include "keyboard/settings/settings_colors.h"
#include "platform/user_defaults.h"
#include "ui/animation.h"
#include "ui/button.h"
#include "ui/label.h"
#include "ui/table_view.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorpel {

class DefaultSettingsTableViewCell;

/// Registers what holds of each preference until the user says otherwise.
void registerKeyboardDefaults(platform::UserDefaults& defaults);

/// The screen within the keyboard that shows and changes its settings: a bar with the way out, and under it
/// the rows of `settingsList`, scrolling. It covers what lies under it. Main thread only; the colours and the
/// preferences must outlive it.
class DefaultSettings : public ExtraView, private ui::TableDataSource {
public:
    DefaultSettings(const GlobalColors& globalColors, bool darkMode, bool solidColorMode,
                    platform::UserDefaults& defaults);
    ~DefaultSettings() override;

    /// Called when a person wants to leave the screen, which must not be destroyed by it.
    void setCloseHandler(std::function<void()> handler) { closeHandler_ = std::move(handler); }

    /// Goes back to the top and reads what is stored, as others may have changed it.
    void reload();

    /// Reads the stored theme too.
    void updateAppearance(bool dark) override;

    void layoutSubviews() override;

    [[nodiscard]] const ui::Button& doneButton() const { return doneButton_; }
    [[nodiscard]] const ui::TableView& table() const { return table_; }

private:
    struct Row {
        const char* key;
        DefaultSettingsTableViewCell* cell;  // the table's
    };

    struct RowState {
        bool on;
        bool enabled;
    };

    [[nodiscard]] std::size_t sectionCount() const override;
    [[nodiscard]] std::size_t rowCount(std::size_t section) const override;
    [[nodiscard]] std::string sectionTitle(std::size_t section) const override;
    std::unique_ptr<ui::TableCell> makeCell(const ui::RowPath& path) override;
    void rowTapped(const ui::RowPath& path) override;

    [[nodiscard]] RowState stateOf(std::string_view key) const;
    void turned(const char* key, bool on);
    void chooseLanguage(const char* language);
    void showValues(ui::Animated animated);
    void applyColors();

    platform::UserDefaults& defaults_;
    std::function<void()> closeHandler_;
    ui::Label title_;
    ui::Button doneButton_;
    ui::View line_;
    ui::TableView table_;
    std::vector<Row> rows_;
};

}  // namespace vorpel
