// SPDX-License-Identifier: Apache-2.0
#include "platform/notification_center.h"

#include <utility>

namespace vorpel::platform {

struct NotificationCenter::Observation::Observer {
    std::string name;
    Handler handler;
};

NotificationCenter::Observation NotificationCenter::addObserver(std::string name, Handler handler) {
    auto observer =
        std::make_shared<Observation::Observer>(Observation::Observer{std::move(name), std::move(handler)});
    std::erase_if(observers_, [](const auto& gone) { return gone.expired(); });
    observers_.push_back(observer);
    return Observation(std::move(observer));
}

void NotificationCenter::post(const Notification& notification) {
    // A handler may add observers or end some: each is asked for only when its turn comes.
    const auto observers = observers_;
    for (const auto& weak : observers) {
        const auto observer = weak.lock();
        if (observer && observer->name == notification.name) observer->handler(notification);
    }
}

}  // namespace vorpel::platform
