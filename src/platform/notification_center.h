// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <any>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vorpel::platform {

/// A named event, and what it is about; without a value when it is about nothing in particular.
struct Notification {
    std::string name;
    std::any object;
};

/// Tells whoever asked of what has happened, by name. Main thread only.
class NotificationCenter {
public:
    using Handler = std::function<void(const Notification&)>;

    /// An observer's stay; destroying it ends it. May outlive the centre.
    class Observation {
    public:
        Observation() = default;

    private:
        friend class NotificationCenter;
        struct Observer;
        explicit Observation(std::shared_ptr<Observer> observer) : observer_(std::move(observer)) {}
        std::shared_ptr<Observer> observer_;
    };

    [[nodiscard]] Observation addObserver(std::string name, Handler handler);

    /// Calls the observers of the name in the order in which they came.
    void post(const Notification& notification);

private:
    std::vector<std::weak_ptr<Observation::Observer>> observers_;
};

}  // namespace vorpel::platform
