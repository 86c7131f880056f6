// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/build_report.h"
#include "compiler/list_file.h"
#include "compiler/recipe.h"

#include <optional>
#include <string>

namespace vorpel::compiler {

/// Finds and opens the files that a recipe names. Refers to the recipe and the report, which must outlive
/// it.
class SourceOpener {
public:
    SourceOpener(const Recipe& recipe, std::string sourcesFolder, BuildReport* report);

    /// Nothing for an optional file that is missing; the report then names it. Throws InputError, which
    /// blames the recipe's line, for another one that cannot be read.
    std::optional<ListFile> open(const SourceFile& source);

private:
    std::optional<std::string> resolve(const SourceFile& source) const;

    const Recipe& recipe_;
    std::string sourcesFolder_;
    BuildReport* report_;
};

}  // namespace vorpel::compiler
