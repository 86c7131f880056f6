// SPDX-License-Identifier: Apache-2.0
#include "command_line.h"

#include <CLI/CLI.hpp>

#include <cstdio>

namespace vorpel::playground {

CommandLine parseCommandLine(int argc, const char* const* argv) {
    constexpr int STATUS_BAD_USAGE = 2;
    constexpr double LEAST_WIDTH = Playground::LEAST_SIZE.width;
    Options options;
    CLI::App app("A window with a text field and the keyboard, for mouse and fingers", "vorpel-playground");
    app.footer(
        "Example: vorpel-playground --language ar --dark --width 600\n"
        "Settings are kept in vorpel/preferences.json in the configuration folder.");
    app.add_option("--language", options.language, "en or ar; otherwise the one used last")
        ->check(CLI::IsMember({"en", "ar"}));
    app.add_flag("--dark", options.isDark, "in dark surroundings");
    app.add_option("--theme", options.themeFile, "a theme file; otherwise the theme used last");
    app.add_option("--width", options.window.width, "of the window, in points")
        ->check(CLI::Range(LEAST_WIDTH, Playground::GREATEST_WIDTH))
        ->capture_default_str();
    app.add_option("--scale", options.window.scale, "pixels a point, where not as the display says")
        ->check(CLI::Range(1.0, 4.0));
    app.add_option("--quit-after", options.quitAfter, "seconds after which the window closes by itself")
        ->check(CLI::PositiveNumber);
    app.add_flag("--times", options.tellsTimes,
                 "tell how long the first frame took, and each touch that typed");
    app.add_flag("--print-text", options.printsText, "print what stands in the text field at the end");
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& success) {
        return {std::nullopt, app.exit(success)};
    } catch (const CLI::ParseError& error) {
        std::fprintf(stderr, "vorpel-playground: %s\n", error.what());
        return {std::nullopt, STATUS_BAD_USAGE};
    }
    return {options, 0};
}

}  // namespace vorpel::playground
