// SPDX-License-Identifier: Apache-2.0
#include "keyboard/key_finder.h"

#include <deque>
#include <functional>
#include <map>
#include <utility>

namespace vorpel::cli {

namespace {

using KeyType = Key::KeyType;

constexpr std::pair<KeyType, const char*> NAMES[] = {
    {KeyType::Shift, "shift"},       {KeyType::Backspace, "backspace"}, {KeyType::KeyboardChange, "globe"},
    {KeyType::LaunchEmoji, "emoji"}, {KeyType::Space, "space"},         {KeyType::dismiss_Self, "dismiss"}};

using Test = std::function<bool(const Key&)>;

const Key* firstKey(const KeyPlane& plane, int page, const Test& test) {
    const auto index = static_cast<std::size_t>(page);
    if (page < 0 || index >= plane.model.pages.size()) return nullptr;
    for (const KeyRow& row : plane.model.pages[index].rows) {
        for (const auto& key : row) {
            if (test(*key)) return key.get();
        }
    }
    return nullptr;
}

const Key* typingKey(const KeyPlane& plane, int page, const std::string& text) {
    return firstKey(plane, page, [&](const Key& key) {
        return key.lowercaseOutput == text || key.uppercaseOutput == text;
    });
}

}  // namespace

std::string nameOfKey(const Key& key) {
    for (const auto& [type, name] : NAMES) {
        if (key.type == type) return name;
    }
    return key.isReturn() ? "return" : key.keyCapForCase(false);
}

const Key* findKey(const KeyPlane& plane, int page, const std::string& text) {
    if (const Key* const key = typingKey(plane, page, text)) return key;
    return firstKey(plane, page, [&](const Key& key) {
        return nameOfKey(key) == text || key.keyCapForCase(false) == text || key.keyCapForCase(true) == text;
    });
}

std::optional<std::vector<const Key*>> pathToKey(const KeyPlane& plane, int page, const std::string& text) {
    std::map<int, std::vector<const Key*>> paths{{page, {}}};
    std::deque<int> waiting{page};
    while (!waiting.empty()) {
        const int reached = waiting.front();
        waiting.pop_front();
        if (typingKey(plane, reached, text)) return paths[reached];
        firstKey(plane, reached, [&](const Key& key) {
            if (!key.toMode || paths.contains(*key.toMode)) return false;
            std::vector<const Key*> path = paths[reached];
            path.push_back(&key);
            paths[*key.toMode] = std::move(path);
            waiting.push_back(*key.toMode);
            return false;
        });
    }
    return std::nullopt;
}

}  // namespace vorpel::cli
