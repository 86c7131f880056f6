// SPDX-License-Identifier: Apache-2.0
#include "platform/notification_center.h"

#include <gtest/gtest.h>

namespace vorpel::platform {
namespace {

using Observation = NotificationCenter::Observation;

TEST(NotificationCenter, TellsThoseOfTheNameInOrderWhomeverAHandlerEndsAndBrings) {
    std::string log;
    Observation self;
    Observation victim;
    Observation brought;
    {
        NotificationCenter center;
        const auto observe = [&](const std::string& name, char letter) {
            return center.addObserver(name, [&log, letter](const Notification&) { log += letter; });
        };
        const Observation first = observe("a", '1');
        const Observation other = observe("b", '2');
        self = center.addObserver("a", [&](const Notification& notification) {
            log += std::any_cast<std::string>(notification.object);
            victim = {};
            brought = observe("a", 'b');
            self = {};
            log += '.';
        });
        victim = observe("a", 'v');
        center.post({"a", std::string("s")});
        EXPECT_EQ(std::exchange(log, {}), "1s.");
        center.post({"a", {}});
        center.post({"c", {}});
        EXPECT_EQ(log, "1b");
    }
    brought = {};  // an observation may outlive the centre
}

}  // namespace
}  // namespace vorpel::platform
