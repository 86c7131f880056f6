// SPDX-License-Identifier: Apache-2.0
#include "command_line.h"
#include "data_folders.h"
#include "key_click.h"
#include "keyboard/model/preference_keys.h"
#include "platform/posix/file_user_defaults.h"
#include "platform/posix/learned_words.h"
#include "platform/posix/steady_clock.h"
#include "platform/posix/thread_operation_queue.h"
#include "platform/posix/thread_pool.h"
#include "platform/posix/xdg_folders.h"
#include "sdl_session.h"
#include "text/diagnostics.h"
#include "theme_files.h"
#include "ui/cairo/font_emoji_coverage.h"
#include "window_host.h"

#include <cstdio>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>

namespace vorpel::playground {

namespace {

void report(const std::string& line) {
    std::fprintf(stderr, "vorpel-playground: %s\n", line.c_str());
}

std::string fileIn(const std::optional<std::string>& folder, const char* name) {
    if (!folder) throw std::runtime_error("no folder for the settings: HOME is not set");
    return *folder + "/" + name;
}

/// All of it in the order in which it is needed, and in the opposite order at the end.
void runPlayground(const Options& options) {
    const platform::SteadyClock clock;
    Stopwatch stopwatch(clock, options.tellsTimes);
    const platform::FolderBundle resources = host::keyboardResources();
    const SdlSession sdl;
    platform::RunLoop runLoop(clock);
    sdl.wake(runLoop);
    KeyClick click;
    const ui::FontEmojiCoverage emojiCoverage;
    platform::ThreadPool workQueue(2);
    platform::ThreadPool saving(1);  // apart: what is typed waits for no disk
    platform::FileUserDefaults settings(
        fileIn(platform::xdgConfigurationFolder("vorpel"), "preferences.json"), saving, report);
    platform::LearnedWords words(fileIn(platform::xdgDataFolder("vorpel"), "words.txt"), saving, report);
    if (!options.language.empty()) settings.setString(preferences::LANGUAGE, options.language);
    Playground playground(
        {.runLoop = runLoop,
         .userDefaults = settings,
         .bundle = resources,
         .globalQueue = workQueue,
         .makeOperationQueue = [] { return std::make_unique<platform::ThreadOperationQueue>(); },
         .textChecker = &words,
         .systemSound = &click,
         .emojiCoverage = &emojiCoverage,
         .themes = host::findThemes(report)});
    if (!options.themeFile.empty()) {
        playground.keyboard().themeChangeAccordingly(host::readTheme(options.themeFile));
    }
    playground.setDark(options.isDark);
    WindowHost window(options.window, playground, runLoop, stopwatch);
    platform::Timer end;
    if (options.quitAfter > 0) {
        end = runLoop.scheduledTimer(options.quitAfter, false, [&window] { window.close(); });
    }
    window.run();
    if (options.printsText) std::printf("%s\n", playground.field().text().c_str());
}

}  // namespace

}  // namespace vorpel::playground

int main(int argc, char** argv) {
    wordengine::Diagnostics::setStream(nullptr);
    const auto [options, status] = vorpel::playground::parseCommandLine(argc, argv);
    if (!options) return status;
    try {
        vorpel::playground::runPlayground(*options);
        return 0;
    } catch (const std::exception& error) {
        vorpel::playground::report(error.what());
        return 1;
    }
}
