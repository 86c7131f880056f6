// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/build_report.h"
#include "compiler/dictionary_model.h"
#include "compiler/recipe.h"

#include <string>

namespace vorpel::compiler {

struct BuildResult {
    DictionaryModel model;
    BuildReport report;
};

/// Reads everything that a recipe names and makes the dictionary of it, by the steps in
/// docs/formats/recipe.md. Deterministic. Throws InputError for faulty input.
///
/// @param sourcesFolder what `$SOURCES` stands for; empty if the recipe uses no such path
[[nodiscard]] BuildResult buildDictionary(const Recipe& recipe, const std::string& sourcesFolder);

}  // namespace vorpel::compiler
