// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>

namespace vorpel::platform {

/// Work off the main thread, in no order. Any thread may hand it in.
class WorkQueue {
public:
    virtual ~WorkQueue() = default;
    virtual void async(std::function<void()> block) = 0;
};

}  // namespace vorpel::platform
