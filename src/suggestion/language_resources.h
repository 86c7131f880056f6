// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <array>
#include <string>

namespace vorpel {

/// The files of one language, by their names in a resource folder.
struct LanguageResources {
    const char* dictionary;  ///< without its extension
    /// Without their extension; the small letters' file first. Both are one where there are no cases.
    std::array<const char*, 2> geometry;

    [[nodiscard]] std::string dictionaryFile() const { return std::string(dictionary) + ".dic"; }
    [[nodiscard]] std::string geometryFile(std::size_t index = 0) const {
        return std::string(geometry.at(index)) + ".json";
    }
};

/// "en" is English, all else Arabic.
inline LanguageResources resourcesOf(const std::string& language) {
    if (language == "en") return {"en_US", {"en_US_P_113", "en_US_P_81"}};
    return {"ar_SA", {"ar_SA_P", "ar_SA_P"}};
}

}  // namespace vorpel
