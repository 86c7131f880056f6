// SPDX-License-Identifier: Apache-2.0
#include "keyboard/emoji/recent_emoji.h"

#include "keyboard/model/preference_keys.h"

#include <algorithm>
#include <mutex>
#include <optional>
#include <variant>

namespace vorpel {

namespace {

using Emoji = std::vector<std::string>;

void putFirst(Emoji& list, const std::string& emoji) {
    if (const auto found = std::ranges::find(list, emoji); found != list.end()) list.erase(found);
    list.insert(list.begin(), emoji);
    if (list.size() > RecentEmoji::MOST) list.pop_back();
}

}  // namespace

/// What has been saved and not stored.
class RecentEmoji::Pending {
public:
    explicit Pending(platform::UserDefaults& defaults) : defaults_(defaults) {}

    void add(const std::string& emoji) {
        const std::lock_guard lock(mutex_);
        emoji_.push_back(emoji);
    }

    /// Whichever block comes first stores all there is, in its order.
    void store() {
        const std::lock_guard lock(mutex_);
        if (emoji_.empty()) return;
        defaults_.update(preferences::RECENT, [this](const auto& stored) { return onTopOf(stored); });
        emoji_.clear();
    }

    [[nodiscard]] std::optional<Emoji> all() const {
        const std::lock_guard lock(mutex_);
        const auto stored = defaults_.objectForKey(preferences::RECENT);
        if (emoji_.empty() && !(stored && std::holds_alternative<Emoji>(*stored))) return std::nullopt;
        return onTopOf(stored);
    }

private:
    [[nodiscard]] Emoji onTopOf(const std::optional<platform::UserDefaults::Value>& stored) const {
        // Anything but a list is replaced.
        const Emoji* const listed = stored ? std::get_if<Emoji>(&*stored) : nullptr;
        Emoji list = listed ? *listed : Emoji();
        for (const std::string& emoji : emoji_) putFirst(list, emoji);
        return list;
    }

    platform::UserDefaults& defaults_;
    mutable std::mutex mutex_;  // guards emoji_
    Emoji emoji_;
};

RecentEmoji::RecentEmoji(platform::UserDefaults& defaults, platform::WorkQueue& queue)
    : queue_(queue), pending_(std::make_shared<Pending>(defaults)) {}

RecentEmoji::~RecentEmoji() {
    pending_->store();
}

void RecentEmoji::save(const std::string& emoji) {
    pending_->add(emoji);
    queue_.async([pending = pending_] { pending->store(); });
}

std::optional<std::vector<std::string>> RecentEmoji::emoji() const {
    return pending_->all();
}

}  // namespace vorpel
