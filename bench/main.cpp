// SPDX-License-Identifier: Apache-2.0
#include "options.h"

#include <cstdio>
#include <exception>

int main(int argc, char** argv) {
    try {
        return vorpel::bench::run(vorpel::bench::Options::parse(argc, argv));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", argv[0], error.what());
        return 1;
    }
}
