// SPDX-License-Identifier: Apache-2.0
#include "keyboard/settings/default_settings.h"

#include "keyboard/model/preference_keys.h"
#include "keyboard/settings/default_settings_table_view_cell.h"
#include "keyboard/settings/settings_list.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <span>

namespace vorpel {

namespace {

constexpr const char* TITLE = "Settings";
constexpr const char* DONE_TITLE = "Done";
constexpr ui::Font BAR_FONT{16, ui::FontWeight::Medium};

// Where the keyboard is low the bar takes less, so that under the first section the next one looks out and
// tells that there is more.
constexpr double BAR_HEIGHT = 44;
constexpr double LOW_BAR_HEIGHT = 36;
constexpr double LOW_BELOW_HEIGHT = 240;

constexpr double LINE_HEIGHT = 0.5;
constexpr double SIDE_MARGIN = 12;
constexpr double DONE_WIDTH = 88;
constexpr double PRESSED_ALPHA = 0.4;

// A switch too far from its title is not seen to belong to it.
constexpr double GREATEST_ROW_WIDTH = 560;

std::string textFor(std::span<const SettingsText> texts, std::string_view key) {
    const auto found = std::ranges::find(texts, key, &SettingsText::key);
    return found == texts.end() ? "" : found->text;
}

/// What is stored for a language row; null for other rows.
const char* languageOf(std::string_view key) {
    if (key == preferences::kArabic) return preferences::ARABIC;
    return key == preferences::kEnglish ? preferences::ENGLISH : nullptr;
}

}  // namespace

void registerKeyboardDefaults(platform::UserDefaults& defaults) {
    defaults.registerDefaults({{preferences::kAutoCapitalization, true},
                               {preferences::kPeriodShortcut, true},
                               {preferences::kKeyboardClicks, false},
                               {preferences::kSmallLowercase, true},
                               {preferences::kWordSuggestions, true},
                               {preferences::kAutoCorrection, false}});
}

DefaultSettings::DefaultSettings(const GlobalColors& globalColors, bool darkMode, bool solidColorMode,
                                 platform::UserDefaults& defaults)
    : ExtraView(globalColors, darkMode, solidColorMode), defaults_(defaults) {
    title_.setText(TITLE);
    title_.setFont(BAR_FONT);
    title_.setTextAlignment(ui::TextAlignment::Center);
    doneButton_.setTitle(DONE_TITLE);
    doneButton_.setFont(BAR_FONT);
    doneButton_.setTitleAlignment(ui::TextAlignment::Right);
    doneButton_.setTitleInsets({0, 0, 0, SIDE_MARGIN});
    doneButton_.addTarget(this, "closeSettings:", ui::ControlEvent::TouchUpInside, [this](ui::Control&) {
        if (closeHandler_) closeHandler_();
    });
    table_.setDataSource(this);
    for (ui::View* const view : std::initializer_list<ui::View*>{&table_, &title_, &doneButton_, &line_}) {
        addSubview(*view);
    }
    applyColors();
    showValues(ui::Animated::No);
}

DefaultSettings::~DefaultSettings() = default;

void DefaultSettings::reload() {
    table_.setContentOffset({});
    showValues(ui::Animated::No);
}

void DefaultSettings::updateAppearance(bool dark) {
    ExtraView::updateAppearance(dark);
    applyColors();
}

void DefaultSettings::applyColors() {
    const auto colors = SettingsColors::of(globalColors(), {darkMode(), solidColorMode()}, defaults_);
    setBackgroundColor(colors.ground);
    title_.setTextColor(colors.groundText);
    doneButton_.setTitleColor(colors.button);
    doneButton_.setTitleColor(colors.button.withAlpha(PRESSED_ALPHA), ui::ControlState::Highlighted);
    line_.setBackgroundColor(colors.line);
    table_.setColors({ui::Color::clear(), colors.line, colors.quietGroundText});
    for (const Row& row : rows_) row.cell->setColors(colors);
}

void DefaultSettings::layoutSubviews() {
    const auto [width, height] = bounds().size();
    const double bar = height < LOW_BELOW_HEIGHT ? LOW_BAR_HEIGHT : BAR_HEIGHT;
    const double inset = std::max(SIDE_MARGIN, std::ceil((width - GREATEST_ROW_WIDTH) / 2));
    const double right = width - inset;
    title_.setFrame({inset + DONE_WIDTH, 0, std::max(0.0, width - 2 * (inset + DONE_WIDTH)), bar});
    doneButton_.setFrame({right - DONE_WIDTH + SIDE_MARGIN, 0, DONE_WIDTH, bar});
    line_.setFrame({0, bar - LINE_HEIGHT, width, LINE_HEIGHT});
    table_.setFrame({0, bar, width, std::max(0.0, height - bar)});
    table_.setSideInset(inset);
}

std::size_t DefaultSettings::sectionCount() const {
    return settingsList.size();
}

std::size_t DefaultSettings::rowCount(std::size_t section) const {
    return settingsList[section].keys.size();
}

std::string DefaultSettings::sectionTitle(std::size_t section) const {
    return settingsList[section].title;
}

std::unique_ptr<ui::TableCell> DefaultSettings::makeCell(const ui::RowPath& path) {
    const auto keys = settingsList[path.section].keys;
    const char* const key = keys[path.row];
    auto cell = std::make_unique<DefaultSettingsTableViewCell>(
        textFor(settingsNames, key), textFor(settingsNotes, key),
        DefaultSettingsTableViewCell::Place{path.row == 0, path.row + 1 == keys.size()},
        [this, key](bool on) { turned(key, on); });
    rows_.push_back({key, cell.get()});
    return cell;
}

/// A switch is small for a finger; the whole row does.
void DefaultSettings::rowTapped(const ui::RowPath& path) {
    const char* const key = settingsList[path.section].keys[path.row];
    std::ranges::find(rows_, std::string_view(key), &Row::key)->cell->turn();
}

DefaultSettings::RowState DefaultSettings::stateOf(std::string_view key) const {
    if (const char* const language = languageOf(key)) {
        // As the keyboard itself takes it: what is not Arabic is English.
        const bool arabic = defaults_.stringForKey(preferences::LANGUAGE) == preferences::ARABIC;
        return {(language == std::string_view(preferences::ARABIC)) == arabic, true};
    }
    const bool needless =
        key == preferences::kAutoCorrection && !defaults_.boolForKey(preferences::kWordSuggestions);
    return {!needless && defaults_.boolForKey(std::string(key)), !needless};
}

void DefaultSettings::turned(const char* key, bool on) {
    const char* const language = languageOf(key);
    if (!language) {
        defaults_.setBool(key, on);
    } else if (on) {
        chooseLanguage(language);
    }
    // A language that was turned off comes on again: there is always one.
    showValues(ui::Animated::Yes);
}

void DefaultSettings::chooseLanguage(const char* language) {
    const bool changed = defaults_.stringForKey(preferences::LANGUAGE) != language;
    defaults_.setString(preferences::LANGUAGE, language);
    defaults_.setBool(preferences::NEED_TO_RELOAD_LANGUAGE, changed);
}

void DefaultSettings::showValues(ui::Animated animated) {
    for (const Row& row : rows_) {
        const RowState state = stateOf(row.key);
        row.cell->show(state.on, state.enabled, animated);
    }
}

}  // namespace vorpel
