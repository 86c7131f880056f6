// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "vorpel/export.h"

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace vorpel::platform {

/// The preferences of one user, by key: values stored, over defaults that a program registers each time it
/// starts. Owned by the host; must outlive what is created with it. Any thread may read and write: the word
/// service reads preferences on its own queue. An implementation guards what it stores.
class VORPEL_EXPORT UserDefaults {
public:
    using Value = std::variant<bool, std::int64_t, double, std::string, std::vector<std::string>>;

    UserDefaults() = default;
    virtual ~UserDefaults() = default;
    UserDefaults(const UserDefaults&) = delete;
    UserDefaults& operator=(const UserDefaults&) = delete;

    /// The value stored under the key, else the registered one, else nothing.
    [[nodiscard]] std::optional<Value> objectForKey(const std::string& key) const;

    /// The same as a text, a list, a truth or a number; nothing, nothing, false and 0 for any other kind.
    [[nodiscard]] std::optional<std::string> stringForKey(const std::string& key) const;
    [[nodiscard]] std::optional<std::vector<std::string>> stringArrayForKey(const std::string& key) const;
    [[nodiscard]] bool boolForKey(const std::string& key) const;
    [[nodiscard]] std::int64_t integerForKey(const std::string& key) const;

    void setString(const std::string& key, std::string value) { setObject(key, std::move(value)); }
    void setStringArray(const std::string& key, std::vector<std::string> value) {
        setObject(key, std::move(value));
    }
    void setBool(const std::string& key, bool value) { setObject(key, value); }
    void setInteger(const std::string& key, std::int64_t value) { setObject(key, value); }
    void removeObject(const std::string& key) { setObject(key, std::nullopt); }

    /// Values for keys under which nothing is stored; they are never stored themselves.
    void registerDefaults(const std::vector<std::pair<std::string, Value>>& defaults);

    /// Stores the value, or takes the stored one away.
    virtual void setObject(const std::string& key, std::optional<Value> value) = 0;

    /// Stores what `change` makes of the value that `objectForKey` gives; no other such change of any key
    /// comes in between. `change` must not ask for one itself.
    void update(const std::string& key,
                const std::function<std::optional<Value>(std::optional<Value>)>& change);

    /// Returns once all that was stored would outlast the process. Where it cannot be made to, it is told
    /// and tried again at the next change.
    virtual void synchronize() {}

protected:
    [[nodiscard]] virtual std::optional<Value> storedObject(const std::string& key) const = 0;

private:
    std::mutex updating_;
    mutable std::mutex mutex_;  // guards registered_
    std::map<std::string, Value> registered_;
};

}  // namespace vorpel::platform
