// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

#include <CLI/CLI.hpp>

namespace vorpel::cli {

/// What the chosen command does once the command line has been read; returns the exit status.
using Action = std::function<int()>;

// Each adds one command, which sets `action` when it is the one that is asked for.
void addSuggestCommand(CLI::App& app, Action& action);
void addPredictCommand(CLI::App& app, Action& action);
void addServeCommand(CLI::App& app, Action& action);
void addDictCommand(CLI::App& app, Action& action);
void addGeometryCommand(CLI::App& app, Action& action);
void addEvalCommand(CLI::App& app, Action& action);

}  // namespace vorpel::cli
