// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "vorpel/export.h"

#include <optional>
#include <string>

namespace vorpel::platform {

/// The preferences of one user, by key. Owned by the host; must outlive what is created with it.
class VORPEL_EXPORT UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// The text stored under the key, or nothing when there is none.
    [[nodiscard]] virtual std::optional<std::string> stringForKey(const std::string& key) const = 0;
};

}  // namespace vorpel::platform
