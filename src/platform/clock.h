// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel::platform {

/// Time that never runs backwards, in seconds from some start. Any thread may ask.
class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual double now() const = 0;
};

/// A clock that stands until its owner moves it: pictures and scripts that must not depend on how fast the
/// machine is. One thread.
class ManualClock final : public Clock {
public:
    [[nodiscard]] double now() const override { return now_; }
    void advanceTo(double time) {
        if (time > now_) now_ = time;
    }

private:
    double now_ = 0;
};

}  // namespace vorpel::platform
