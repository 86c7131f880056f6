// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/user_defaults.h"

#include <map>
#include <string>
#include <utility>

namespace vorpel::platform {

/// Preferences that last as long as the object: what a program without stored settings hands in.
class VORPEL_EXPORT MemoryUserDefaults final : public UserDefaults {
public:
    void setObject(const std::string& key, std::optional<Value> value) override {
        if (value) {
            values_.insert_or_assign(key, std::move(*value));
        } else {
            values_.erase(key);
        }
    }

protected:
    [[nodiscard]] std::optional<Value> storedObject(const std::string& key) const override {
        const auto found = values_.find(key);
        return found == values_.end() ? std::nullopt : std::optional<Value>(found->second);
    }

private:
    std::map<std::string, Value> values_;
};

}  // namespace vorpel::platform
