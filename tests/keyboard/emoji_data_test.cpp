// SPDX-License-Identifier: Apache-2.0
#include "keyboard/emoji/vp_emoticon_manager.h"
#include "keyboard/model/preference_keys.h"
#include "platform/characters.h"
#include "platform/posix/thread_pool.h"
#include "support/deterministic_platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

namespace vorpel {

namespace {

using testing::DeterministicPlatform;
using Emoji = std::vector<std::string>;

Emoji pageOf(const platform::Platform& platform, int page) {
    Emoji emoji;
    VPEmoticonManager(platform).setTheCurrentArray(page, emoji);
    return emoji;
}

TEST(EmojiData, PagesHoldWhatIsLaidDownInItsOrder) {
    struct Expected {
        std::size_t count;
        Emoji first;
        Emoji last;
    };
    const Expected pages[] = {
        {0, {}, {}},
        {0x37 + 92, {"😀", "😁"}, {"👛", "👜", "💼", "🌂", "👓", "💍"}},
        {0x32 + 0x14, {"🐌"}, {"🍃"}},
        {0x38, {"🍄"}, {"🍻"}},
        {0x2B, {"🎠"}, {"🏊"}},
        {0x45 + 0x11, {"🚁"}, {"🏰"}},
        {0x4B + 0x18, {"💳"}, {"🔗"}},
        {0x28 + 0x26 + 0xC, {"💋"}, {"🕛"}},
        {247, {"🇦🇫", "🇦🇽", "🇦🇱", "🇩🇿"}, {"🇻🇳", "🇻🇪"}},
    };
    const DeterministicPlatform platform;
    for (int page = 0; page < EMOJI_PAGE_COUNT; ++page) {
        const Expected& expected = pages[page];
        const Emoji found = pageOf(platform.platform, page);
        ASSERT_EQ(found.size(), expected.count) << page;
        EXPECT_TRUE(std::equal(expected.first.begin(), expected.first.end(), found.begin())) << page;
        EXPECT_TRUE(std::equal(expected.last.rbegin(), expected.last.rend(), found.rbegin())) << page;
        const std::set<std::string> distinct(found.begin(), found.end());
        EXPECT_EQ(distinct.size(), found.size() - (page == FACES_AND_PEOPLE ? 1U : 0U)) << page;
        for (const std::string& emoji : found) {
            EXPECT_EQ(platform::characterCount(emoji), 1U) << emoji;
        }
    }
    const Emoji faces = pageOf(platform.platform, FACES_AND_PEOPLE);
    const Emoji literal{"💤", "👹", "👺", "💀", "👻", "👽", "👏", "👐", "👄"};
    EXPECT_TRUE(std::equal(literal.begin(), literal.end(), faces.begin() + 0x37));
    EXPECT_EQ(std::ranges::count(faces, "👏"), 2);
    EXPECT_EQ(VPEmoticonManager(platform.platform).emoji_category_array(),
              (Emoji{"🕛", "😁", "🐌", "🍄", "⚽︎", "🚁", "💳", "💋", "🇮🇳"}));
}

TEST(EmojiData, OtherNumbersAndAnAbsentListLeaveTheArrayAlone) {
    const DeterministicPlatform platform;
    const VPEmoticonManager manager(platform.platform);
    for (const int page : {-1, 9, 1000, 0}) {
        Emoji emoji{"🐌"};
        manager.setTheCurrentArray(page, emoji);
        EXPECT_EQ(emoji, Emoji{"🐌"}) << page;
    }
}

TEST(EmojiData, OlderSystemsGetNoNewerEmoji) {
    class OldDevice final : public platform::Device {
        platform::UserInterfaceIdiom userInterfaceIdiom() const override { return {}; }
        std::string modelName() const override { return {}; }
        std::string systemVersion() const override { return "10.8"; }
    };
    const OldDevice old;
    DeterministicPlatform newer;
    platform::Platform parts{newer.host,
                             newer.runLoop,
                             newer.notificationCenter,
                             newer.userDefaults,
                             newer.bundle,
                             newer.screen,
                             old,
                             newer.globalQueue,
                             {}};
    const std::pair<int, Emoji> missing[] = {{ANIMALS_AND_NATURE, {"\U0001F336"}},
                                             {ACTIVITY, {"\U0001F3C5"}},
                                             {OFFICE, {"\U0001F4FD", "\U0001F4F8"}}};
    for (const auto& [page, emoji] : missing) {
        Emoji all = pageOf(newer.platform, page);
        for (const std::string& one : emoji) EXPECT_EQ(std::erase(all, one), 1U) << one;
        EXPECT_EQ(pageOf(parts, page), all);
    }
}

TEST(EmojiData, WhatCannotBeDrawnIsNotOffered) {
    class NoFlags final : public platform::EmojiCoverage {
        bool canDraw(const std::string& emoji) const override { return emoji.size() == 4 && emoji != "🐌"; }
    };
    const NoFlags coverage;
    DeterministicPlatform platform;
    platform.platform.emojiCoverage = &coverage;
    platform.userDefaults.setStringArray(preferences::RECENT, {"🇦🇫", "🐍", "🐌"});
    EXPECT_EQ(pageOf(platform.platform, RECENT_EMOJI), Emoji{"🐍"});
    EXPECT_EQ(pageOf(platform.platform, FLAGS), Emoji());
    EXPECT_EQ(pageOf(platform.platform, ANIMALS_AND_NATURE).front(), "🐍");
}

/// The list as one would keep it by hand.
void putFirst(Emoji& list, const std::string& emoji) {
    std::erase(list, emoji);
    list.insert(list.begin(), emoji);
    list.resize(std::min<std::size_t>(list.size(), 32));
}

TEST(RecentEmoji, IsTheLatestFirstWhateverHasBeenStoredOfIt) {
    DeterministicPlatform platform;
    // Not a list: it gives way.
    platform.userDefaults.setString(preferences::RECENT, "😀");
    const Emoji flags = pageOf(platform.platform, FLAGS);
    std::mt19937 random(6);
    Emoji model;
    for (int round = 0; round < 40; ++round) {
        VPEmoticonManager manager(platform.platform);
        for (int save = 0; save < 20; ++save) {
            const std::string& emoji = flags[random() % 40];
            manager.saveRecentEmoji(emoji);
            putFirst(model, emoji);
            if (random() % 3 == 0) platform.globalQueue.runAll();
            Emoji seen;
            manager.setTheCurrentArray(RECENT_EMOJI, seen);
            ASSERT_EQ(seen, model);
        }
        // The manager goes with some of them still on their way.
    }
    EXPECT_EQ(platform.userDefaults.stringArrayForKey(preferences::RECENT), model);
    EXPECT_EQ(model.size(), 32U);
    platform.globalQueue.runAll();
    EXPECT_EQ(platform.userDefaults.stringArrayForKey(preferences::RECENT), model);
}

/// Two keyboards of one user save at once, on two threads: each one's order is kept, and nothing is lost.
TEST(RecentEmoji, NoneIsLostToARace) {
    DeterministicPlatform platform;
    const Emoji flags = pageOf(platform.platform, FLAGS);
    for (int round = 0; round < 50; ++round) {
        platform.userDefaults.removeObject(preferences::RECENT);
        platform::ThreadPool queue(2);
        platform::Platform parts{platform.host,
                                 platform.runLoop,
                                 platform.notificationCenter,
                                 platform.userDefaults,
                                 platform.bundle,
                                 platform.screen,
                                 platform.device,
                                 queue,
                                 {}};
        {
            VPEmoticonManager one(parts);
            VPEmoticonManager other(parts);
            for (std::size_t save = 0; save < 16; ++save) {
                one.saveRecentEmoji(flags[save]);
                other.saveRecentEmoji(flags[100 + save]);
            }
        }
        const Emoji stored = platform.userDefaults.stringArrayForKey(preferences::RECENT).value_or(Emoji());
        ASSERT_EQ(stored.size(), 32U);
        for (const std::size_t first : {std::size_t{0}, std::size_t{100}}) {
            auto place = stored.rbegin();
            for (std::size_t save = 0; save < 16; ++save) {
                place = std::find(place, stored.rend(), flags[first + save]);
                ASSERT_NE(place, stored.rend()) << round;
            }
        }
    }
}

}  // namespace

}  // namespace vorpel
