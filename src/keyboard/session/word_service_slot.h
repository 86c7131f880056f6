// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/session/word_service.h"

#include <atomic>
#include <memory>

namespace vorpel {

/// Where a session's word service stands. The main thread says whether there is to be one, the serial queue
/// makes and dismisses it: an operation of the queue that is dropped does no harm, as the next one sees to
/// what it would have done.
class WordServiceSlot {
public:
    explicit WordServiceSlot(WordServiceFactory factory);

    /// Main thread. A service that is wanted anew is another one.
    void want();
    void wantNone();
    [[nodiscard]] bool isWanted() const { return wanted_ != NONE; }

    /// Serial queue. As it is wanted now; null when none is, or when none can be made, which is told in a
    /// plain line.
    WordService* current();

    /// Serial queue. It failed: none until one is wanted anew.
    void drop() { service_.reset(); }

private:
    static constexpr unsigned NONE = 0;

    WordServiceFactory factory_;
    std::atomic<unsigned> wanted_ = NONE;  // the number of the service that is to be there
    unsigned lastWanted_ = NONE;           // main thread
    unsigned made_ = NONE;                 // serial queue
    std::unique_ptr<WordService> service_;
};

}  // namespace vorpel
