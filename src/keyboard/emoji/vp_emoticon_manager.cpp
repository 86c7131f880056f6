// SPDX-License-Identifier: Apache-2.0
#include "keyboard/emoji/vp_emoticon_manager.h"

#include "keyboard/emoji/emoji_lists.h"
#include "platform/characters.h"

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <string_view>
#include <utility>

namespace vorpel {

namespace {

/// Both ends belong to it.
struct CodePointRange {
    char32_t first;
    char32_t last;
};

std::vector<std::string> emojiOf(std::initializer_list<CodePointRange> ranges) {
    std::vector<std::string> emoji;
    for (const CodePointRange& range : ranges) {
        for (char32_t codePoint = range.first; codePoint <= range.last; ++codePoint) {
            emoji.push_back(platform::toUtf8(codePoint));
        }
    }
    return emoji;
}

std::vector<std::string> without(std::vector<std::string> emoji,
                                 std::initializer_list<std::string_view> newer) {
    std::erase_if(emoji, [&](const std::string& one) { return std::ranges::count(newer, one) > 0; });
    return emoji;
}

}  // namespace

bool VPEmoticonManager::isOldSystem() const {
    return device_.systemVersion().find('8') != std::string::npos;
}

std::vector<std::string> VPEmoticonManager::emoji_category_array() const {
    // An older system knows no selector of a variant.
    return {"🕛", "😁", "🐌", "🍄", isOldSystem() ? "⚽" : "⚽︎", "🚁", "💳", "💋", "🇮🇳"};
}

std::vector<std::string> VPEmoticonManager::emoction_array() const {
    std::vector<std::string> emoji = emojiOf({{0x1F600, 0x1F636}});
    std::ranges::move(facesAndPeople(), std::back_inserter(emoji));
    return emoji;
}

std::vector<std::string> VPEmoticonManager::animals_n_nature_array() const {
    std::vector<std::string> emoji = emojiOf({{0x1F40C, 0x1F43D}, {0x1F330, 0x1F343}});
    return isOldSystem() ? without(std::move(emoji), {"\U0001F336"}) : emoji;
}

std::vector<std::string> VPEmoticonManager::food_n_drink_array() const {
    return emojiOf({{0x1F344, 0x1F37B}});
}

std::vector<std::string> VPEmoticonManager::activity_array() const {
    std::vector<std::string> emoji = emojiOf({{0x1F3A0, 0x1F3CA}});
    return isOldSystem() ? without(std::move(emoji), {"\U0001F3C5"}) : emoji;
}

std::vector<std::string> VPEmoticonManager::travel_n_places_array() const {
    return emojiOf({{0x1F681, 0x1F6C5}, {0x1F3E0, 0x1F3F0}});
}

std::vector<std::string> VPEmoticonManager::office_array() const {
    std::vector<std::string> emoji = emojiOf({{0x1F4B3, 0x1F4FD}, {0x1F500, 0x1F517}});
    return isOldSystem() ? without(std::move(emoji), {"\U0001F4FD", "\U0001F4F8"}) : emoji;
}

std::vector<std::string> VPEmoticonManager::miscallenous_array() const {
    return emojiOf({{0x1F48B, 0x1F4B2}, {0x1F518, 0x1F53D}, {0x1F550, 0x1F55B}});
}

std::vector<std::string> VPEmoticonManager::flags() const {
    return countryFlags();
}

void VPEmoticonManager::setTheCurrentArray(int sender, std::vector<std::string>& currentArray) const {
    if (sender == RECENT_EMOJI) {
        auto recent = recent_.emoji();
        if (!recent) return;
        currentArray = std::move(*recent);
    } else if (sender > RECENT_EMOJI && sender < EMOJI_PAGE_COUNT) {
        currentArray = pageArray(sender);
    } else {
        return;
    }
    if (!coverage_) return;
    std::erase_if(currentArray, [&](const std::string& emoji) { return !coverage_->canDraw(emoji); });
}

std::vector<std::string> VPEmoticonManager::pageArray(int page) const {
    switch (page) {
        case FACES_AND_PEOPLE:
            return emoction_array();
        case ANIMALS_AND_NATURE:
            return animals_n_nature_array();
        case FOOD_AND_DRINK:
            return food_n_drink_array();
        case ACTIVITY:
            return activity_array();
        case TRAVEL_AND_PLACES:
            return travel_n_places_array();
        case OFFICE:
            return office_array();
        case MISCELLANEOUS:
            return miscallenous_array();
        default:
            return flags();
    }
}

}  // namespace vorpel
