// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

#include "language_files.h"

namespace vorpel::cli {

/// --language, --dictionary and --geometry, as every command that asks the word service has them.
inline void addLanguageOptions(CLI::App& command, LanguageChoice& choice) {
    command.add_option("--language", choice.language, "en or ar")
        ->check(CLI::IsMember({"en", "ar"}))
        ->capture_default_str();
    command.add_option("--dictionary", choice.dictionary, "a dictionary file in place of the built one");
    command.add_option("--geometry", choice.geometryFolder,
                       "a folder of key geometry files in place of the built ones");
}

}  // namespace vorpel::cli
