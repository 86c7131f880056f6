// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace vorpel::bench {

/// Counts what the program asks `operator new` for while one of these is alive. The source beside this header
/// replaces the operator in the whole program: link it into nothing that measures time. One at a time, on one
/// thread.
class AllocationCounter {
public:
    AllocationCounter();
    ~AllocationCounter();
    AllocationCounter(const AllocationCounter&) = delete;
    AllocationCounter& operator=(const AllocationCounter&) = delete;

    [[nodiscard]] static long allocations();  ///< since the last one was made
    [[nodiscard]] static long bytes();
};

}  // namespace vorpel::bench
