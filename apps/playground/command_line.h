// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "window_host.h"

#include <optional>
#include <string>

namespace vorpel::playground {

/// What the user asked for.
struct Options {
    std::string language;   ///< "en" or "ar"; empty: the stored one
    std::string themeFile;  ///< empty: the stored theme, if there is one
    bool isDark = false;
    bool tellsTimes = false;
    bool printsText = false;  ///< the field's, when the window has been closed
    double quitAfter = 0;     ///< seconds; 0: when the window is closed
    WindowShape window;
};

/// The options, or the status to end with: what there is to say has been said.
struct CommandLine {
    std::optional<Options> options;
    int status = 0;
};

[[nodiscard]] CommandLine parseCommandLine(int argc, const char* const* argv);

}  // namespace vorpel::playground
