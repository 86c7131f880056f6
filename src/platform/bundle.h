// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "vorpel/export.h"

#include <optional>
#include <string>

namespace vorpel::platform {

/// Where a program's resources lie. Owned by the host; must outlive what is created with it. Called
/// from the thread that sets up the word service.
class VORPEL_EXPORT Bundle {
public:
    virtual ~Bundle() = default;

    /// The path of the resource `NAME.EXTENSION`, or nothing when the bundle does not hold it.
    [[nodiscard]] virtual std::optional<std::string> pathForResource(const std::string& name,
                                                                     const std::string& extension) const = 0;

    /// The folder whose own files are searched by name, such as the key geometry.
    [[nodiscard]] virtual std::string bundlePath() const = 0;
};

}  // namespace vorpel::platform
