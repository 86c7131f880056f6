// SPDX-License-Identifier: Apache-2.0
#include "platform/notification_center.h"

#include <gtest/gtest.h>

#include <optional>

namespace vorpel::platform {
namespace {

using Observation = NotificationCenter::Observation;

struct NotificationCenterTest : ::testing::Test {
    NotificationCenter center;
    std::string log;

    Observation observe(const std::string& name, char letter) {
        return center.addObserver(name, [this, letter](const Notification&) { log += letter; });
    }
    std::string post(const std::string& name) {
        log.clear();
        center.post({name, {}});
        return log;
    }
};

TEST_F(NotificationCenterTest, TellsThoseOfTheNameInTheOrderInWhichTheyCame) {
    const Observation first = observe("a", '1');
    std::optional<Observation> second = observe("a", '2');
    const Observation other = observe("b", '3');
    const Observation third = observe("a", '4');
    EXPECT_EQ(post("a"), "124");
    second.reset();
    EXPECT_EQ(post("a"), "14");
    EXPECT_EQ(post("c"), "");
}

TEST_F(NotificationCenterTest, HandsOverWhatItIsAbout) {
    std::optional<int> seen;
    const Observation observation = center.addObserver("a", [&](const Notification& notification) {
        const int* const number = std::any_cast<int>(&notification.object);
        seen = number ? *number : -1;
    });
    center.post({"a", 7});
    EXPECT_EQ(seen, 7);
    center.post({"a", {}});
    EXPECT_EQ(seen, -1);
}

TEST_F(NotificationCenterTest, AHandlerMayEndItselfEndOthersAndBringNewOnes) {
    std::optional<Observation> self;
    std::optional<Observation> victim;
    std::optional<Observation> brought;
    self = center.addObserver("a", [&](const Notification&) {
        log += 's';
        victim.reset();
        brought = observe("a", 'b');
        self.reset();
        log += '.';
    });
    victim = observe("a", 'v');
    EXPECT_EQ(post("a"), "s.");
    EXPECT_EQ(post("a"), "b");
}

TEST(NotificationCenter, AnObservationMayOutliveTheCentre) {
    Observation observation;
    {
        NotificationCenter center;
        observation = center.addObserver("a", [](const Notification&) {});
    }
    observation = Observation();
}

}  // namespace
}  // namespace vorpel::platform
