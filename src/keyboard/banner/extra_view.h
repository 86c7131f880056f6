// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/layout/global_colors.h"
#include "ui/view.h"

namespace vorpel {

/// The base of the views that stand above the keys. The colours must outlive it.
class ExtraView : public ui::View {
public:
    ExtraView(const GlobalColors& globalColors, bool darkMode, bool solidColorMode)
        : globalColors_(globalColors), darkMode_(darkMode), solidColorMode_(solidColorMode) {}

    [[nodiscard]] const GlobalColors& globalColors() const { return globalColors_; }
    [[nodiscard]] bool darkMode() const { return darkMode_; }
    [[nodiscard]] bool solidColorMode() const { return solidColorMode_; }

    /// The surroundings have become light or dark.
    virtual void updateAppearance(bool darkMode) { darkMode_ = darkMode; }

private:
    const GlobalColors& globalColors_;
    bool darkMode_;
    bool solidColorMode_;
};

}  // namespace vorpel
