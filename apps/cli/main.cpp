// SPDX-License-Identifier: Apache-2.0
#include <cstdio>
#include <exception>

#include "commands.h"
#include "text/diagnostics.h"

namespace {

constexpr int STATUS_FAILURE = 1;
constexpr int STATUS_BAD_USAGE = 2;

int run(int argc, char** argv) {
    CLI::App app{"Words as a touch keyboard sees them: corrected, completed and predicted."};
    app.footer("Example: vorpel suggest teh freind\nEach command has its own --help.");
    app.set_version_flag("--version", VORPEL_VERSION);
    app.require_subcommand(1);
    vorpel::cli::Action action;
    vorpel::cli::addSuggestCommand(app, action);
    vorpel::cli::addPredictCommand(app, action);
    vorpel::cli::addServeCommand(app, action);
    vorpel::cli::addDictCommand(app, action);
    vorpel::cli::addGeometryCommand(app, action);
    vorpel::cli::addEvalCommand(app, action);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& success) {
        return app.exit(success);
    } catch (const CLI::ParseError& error) {
        std::fprintf(stderr, "vorpel: %s\n", error.what());
        return STATUS_BAD_USAGE;
    }
    return action();
}

}  // namespace

int main(int argc, char** argv) {
    // Standard output is for answers.
    wordengine::Diagnostics::setStream(stderr);
    try {
        const int status = run(argc, argv);
        if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
        std::fprintf(stderr, "vorpel: standard output cannot be written\n");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vorpel: %s\n", error.what());
    }
    return STATUS_FAILURE;
}
