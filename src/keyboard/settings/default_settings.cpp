// SPDX-License-Identifier: Apache-2.0
#include "keyboard/settings/default_settings.h"

#include "keyboard/model/preference_keys.h"

namespace vorpel {

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
    : ExtraView(globalColors, darkMode, solidColorMode), defaults_(defaults) {}

void DefaultSettings::updateAppearance(bool dark) {
    ExtraView::updateAppearance(dark);
    (void)defaults_;
}

}  // namespace vorpel
