// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/user_defaults.h"
#include "platform/work_queue.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vorpel {

/// The emoji used of late, the latest first, stored under "recent". They are stored on a queue; what is still
/// on its way is kept in order here, and stored at the latest when this is destroyed. Main thread only; the
/// preferences must outlive it, the queue need not run what it was given.
class RecentEmoji {
public:
    static constexpr std::size_t MOST = 32;

    RecentEmoji(platform::UserDefaults& defaults, platform::WorkQueue& queue);
    ~RecentEmoji();
    RecentEmoji(const RecentEmoji&) = delete;
    RecentEmoji& operator=(const RecentEmoji&) = delete;

    /// Puts the emoji first, and returns at once.
    void save(const std::string& emoji);

    /// Those stored and those on their way; nothing while there never was one.
    [[nodiscard]] std::optional<std::vector<std::string>> emoji() const;

private:
    class Pending;

    platform::WorkQueue& queue_;
    std::shared_ptr<Pending> pending_;  // shared with what stands in the queue
};

}  // namespace vorpel
