// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/user_defaults.h"

#include <map>
#include <mutex>
#include <string>
#include <utility>

namespace vorpel::platform {

/// Preferences that last as long as the object: what a program without stored settings hands in. Any thread.
class VORPEL_EXPORT MemoryUserDefaults final : public UserDefaults {
public:
    void setObject(const std::string& key, std::optional<Value> value) override {
        const std::lock_guard lock(mutex_);
        if (value) {
            values_.insert_or_assign(key, std::move(*value));
        } else {
            values_.erase(key);
        }
    }

protected:
    [[nodiscard]] std::optional<Value> storedObject(const std::string& key) const override {
        const std::lock_guard lock(mutex_);
        const auto found = values_.find(key);
        return found == values_.end() ? std::nullopt : std::optional<Value>(found->second);
    }

private:
    mutable std::mutex mutex_;  // guards values_
    std::map<std::string, Value> values_;
};

}  // namespace vorpel::platform
