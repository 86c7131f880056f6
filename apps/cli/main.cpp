// SPDX-License-Identifier: Apache-2.0
#include <cstdio>
#include <exception>

#include "command_line.h"
#include "text/diagnostics.h"

int main(int argc, char** argv) {
    // Standard output is for answers.
    wordengine::Diagnostics::setStream(stderr);
    try {
        const int status = vorpel::cli::runCommandLine(argc, argv);
        if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return status;
        std::fprintf(stderr, "vorpel: standard output cannot be written\n");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vorpel: %s\n", error.what());
    }
    return 1;
}
