// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/bundle.h"

#include <map>
#include <string>
#include <vector>

namespace vorpel {

/// What the keys of each language offer while they are held: the bundle's resources
/// `alternatives_LANGUAGE.json`, each read when its language is first asked for. One that is missing or
/// damaged is told in a plain line, and the keys of its language offer nothing. Main thread only; the bundle
/// must outlive it.
class AlternativesTable {
public:
    explicit AlternativesTable(const platform::Bundle& bundle) : bundle_(bundle) {}

    /// Of the key that types `key` while shift is off, the likeliest first; empty when it has none. The list
    /// stays as long as the table.
    [[nodiscard]] const std::vector<std::string>& alternativesOf(const std::string& language,
                                                                 const std::string& key);

private:
    using Texts = std::map<std::string, std::vector<std::string>>;

    [[nodiscard]] Texts load(const std::string& language) const;

    const platform::Bundle& bundle_;
    std::map<std::string, Texts> languages_;
};

}  // namespace vorpel
