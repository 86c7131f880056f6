// SPDX-License-Identifier: Apache-2.0
#include "keyboard/emoji/recent_emoji.h"

#include "keyboard/model/preference_keys.h"

#include <algorithm>
#include <cstddef>
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

    /// Whichever block comes first stores all there is, in its order. The store may be slow; `add` waits for
    /// nobody.
    void store() {
        const std::lock_guard storing(storing_);
        const Emoji emoji = waiting();
        if (emoji.empty()) return;
        defaults_.update(preferences::RECENT, [&](const auto& stored) { return onTopOf(stored, emoji); });
        const std::lock_guard lock(mutex_);
        emoji_.erase(emoji_.begin(), emoji_.begin() + static_cast<std::ptrdiff_t>(emoji.size()));
    }

    [[nodiscard]] std::optional<Emoji> all() const {
        // In this order: what is stored in between is there twice, which changes nothing.
        const Emoji emoji = waiting();
        const auto stored = defaults_.objectForKey(preferences::RECENT);
        if (emoji.empty() && !(stored && std::holds_alternative<Emoji>(*stored))) return std::nullopt;
        return onTopOf(stored, emoji);
    }

private:
    [[nodiscard]] Emoji waiting() const {
        const std::lock_guard lock(mutex_);
        return emoji_;
    }

    [[nodiscard]] static Emoji onTopOf(const std::optional<platform::UserDefaults::Value>& stored,
                                       const Emoji& waiting) {
        // Anything but a list is replaced.
        const Emoji* const listed = stored ? std::get_if<Emoji>(&*stored) : nullptr;
        Emoji list = listed ? *listed : Emoji();
        for (const std::string& emoji : waiting) putFirst(list, emoji);
        return list;
    }

    platform::UserDefaults& defaults_;
    std::mutex storing_;
    mutable std::mutex mutex_;  // guards emoji_; never held while something is stored
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
