// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel::cli {

/// Reads the command line and runs the command it asks for; the exit status. Bad usage is told in one
/// line on standard error and has the status 2.
int runCommandLine(int argc, char** argv);

}  // namespace vorpel::cli
