// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/bundle.h"

#include <string>
#include <vector>

namespace vorpel::platform {

/// Resources in a list of folders, the first that holds a name winning. The first folder is the
/// bundle's own path. Nothing is cached: a file that appears later is found.
class VORPEL_EXPORT FolderBundle final : public Bundle {
public:
    explicit FolderBundle(std::vector<std::string> folders);

    [[nodiscard]] std::optional<std::string> pathForResource(const std::string& name,
                                                             const std::string& extension) const override;
    [[nodiscard]] std::string bundlePath() const override;

private:
    std::vector<std::string> folders_;
};

}  // namespace vorpel::platform
