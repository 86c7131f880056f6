// SPDX-License-Identifier: Apache-2.0
#include "platform/user_defaults.h"

namespace vorpel::platform {

namespace {

template <typename T>
std::optional<T> valueAs(const std::optional<UserDefaults::Value>& value) {
    const T* const held = value ? std::get_if<T>(&*value) : nullptr;
    return held ? std::optional<T>(*held) : std::nullopt;
}

}  // namespace

std::optional<UserDefaults::Value> UserDefaults::objectForKey(const std::string& key) const {
    if (auto stored = storedObject(key)) return stored;
    const std::lock_guard lock(mutex_);
    const auto found = registered_.find(key);
    return found == registered_.end() ? std::nullopt : std::optional<Value>(found->second);
}

std::optional<std::string> UserDefaults::stringForKey(const std::string& key) const {
    return valueAs<std::string>(objectForKey(key));
}

std::optional<std::vector<std::string>> UserDefaults::stringArrayForKey(const std::string& key) const {
    return valueAs<std::vector<std::string>>(objectForKey(key));
}

bool UserDefaults::boolForKey(const std::string& key) const {
    return valueAs<bool>(objectForKey(key)).value_or(false);
}

std::int64_t UserDefaults::integerForKey(const std::string& key) const {
    return valueAs<std::int64_t>(objectForKey(key)).value_or(0);
}

void UserDefaults::update(const std::string& key,
                          const std::function<std::optional<Value>(std::optional<Value>)>& change) {
    const std::lock_guard lock(updating_);
    setObject(key, change(objectForKey(key)));
}

void UserDefaults::registerDefaults(const std::vector<std::pair<std::string, Value>>& defaults) {
    const std::lock_guard lock(mutex_);
    for (const auto& [key, value] : defaults) registered_.insert_or_assign(key, value);
}

}  // namespace vorpel::platform
