// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace vorpel::cli {

/// The files that one language's word service opens.
struct LanguageFiles {
    std::string language;  ///< "en" or "ar"
    std::string dictionary;
    std::string geometryFolder;

    /// The path of the geometry of small letters.
    [[nodiscard]] std::string geometryFile() const;
};

/// What the user asked for on the command line; what is left empty comes from the built data.
struct LanguageChoice {
    std::string language = "en";
    std::string dictionary;
    std::string geometryFolder;
};

/// Finds the files and tries them out. Throws std::runtime_error that names the file and says what is
/// wrong with it or how to make it.
LanguageFiles findLanguageFiles(const LanguageChoice& choice);

}  // namespace vorpel::cli
