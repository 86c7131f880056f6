// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/emoji/recent_emoji.h"
#include "platform/platform.h"

#include <string>
#include <vector>

namespace vorpel {

/// The pages of the emoji keyboard, in their order.
enum EmojiPage : int {
    RECENT_EMOJI,
    FACES_AND_PEOPLE,
    ANIMALS_AND_NATURE,
    FOOD_AND_DRINK,
    ACTIVITY,
    TRAVEL_AND_PLACES,
    OFFICE,
    MISCELLANEOUS,
    FLAGS,
    EMOJI_PAGE_COUNT
};

/// The content of the emoji keyboard: an icon and the emoji of each page, and the emoji used of late. Strings
/// hold one emoji each, UTF-8. Main thread only.
class VPEmoticonManager {
public:
    /// The recent emoji are stored in the platform's preferences, on its global queue.
    explicit VPEmoticonManager(const platform::Platform& platform)
        : device_(platform.device),
          coverage_(platform.emojiCoverage),
          recent_(platform.userDefaults, platform.globalQueue) {}

    /// The emoji of the page that can be drawn. Any other number leaves the array as it is, and so does the
    /// recent page while nothing has been stored.
    void setTheCurrentArray(int sender, std::vector<std::string>& currentArray) const;

    /// Puts the emoji first among those used of late, and returns at once. None is lost, and their order
    /// kept, however many are on their way.
    void saveRecentEmoji(const std::string& emoji) { recent_.save(emoji); }

    /// The icons of the pages, in their order.
    [[nodiscard]] std::vector<std::string> emoji_category_array() const;

    // All that a page may have, whether it can be drawn or not. Some pictures are newer than systems with an
    // "8" in their version.

    [[nodiscard]] std::vector<std::string> emoction_array() const;
    [[nodiscard]] std::vector<std::string> animals_n_nature_array() const;
    [[nodiscard]] std::vector<std::string> food_n_drink_array() const;
    [[nodiscard]] std::vector<std::string> activity_array() const;
    [[nodiscard]] std::vector<std::string> travel_n_places_array() const;
    [[nodiscard]] std::vector<std::string> office_array() const;
    [[nodiscard]] std::vector<std::string> miscallenous_array() const;
    [[nodiscard]] std::vector<std::string> flags() const;

private:
    [[nodiscard]] bool isOldSystem() const;
    [[nodiscard]] std::vector<std::string> pageArray(int page) const;

    const platform::Device& device_;
    const platform::EmojiCoverage* coverage_;
    RecentEmoji recent_;
};

}  // namespace vorpel
