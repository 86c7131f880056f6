// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/user_defaults.h"

#include <map>
#include <string>

namespace vorpel::platform {

/// Preferences that last as long as the object: what a program without stored settings hands in.
class VORPEL_EXPORT MemoryUserDefaults final : public UserDefaults {
public:
    void setString(const std::string& key, const std::string& value) { values_[key] = value; }

    [[nodiscard]] std::optional<std::string> stringForKey(const std::string& key) const override {
        const auto found = values_.find(key);
        if (found == values_.end()) return std::nullopt;
        return found->second;
    }

private:
    std::map<std::string, std::string> values_;
};

}  // namespace vorpel::platform
