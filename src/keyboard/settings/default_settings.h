// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/banner/extra_view.h"
#include "platform/user_defaults.h"

namespace vorpel {

/// Registers what holds of each preference until the user says otherwise.
void registerKeyboardDefaults(platform::UserDefaults& defaults);

/// The screen within the keyboard that shows and changes its settings. Main thread only; the colours and the
/// preferences must outlive it.
class DefaultSettings : public ExtraView {
public:
    DefaultSettings(const GlobalColors& globalColors, bool darkMode, bool solidColorMode,
                    platform::UserDefaults& defaults);

    void updateAppearance(bool dark) override;

private:
    platform::UserDefaults& defaults_;
};

}  // namespace vorpel
