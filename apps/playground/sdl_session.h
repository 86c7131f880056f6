// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/run_loop.h"

#include <stdexcept>
#include <string>

namespace vorpel::playground {

/// An error that SDL tells of: what was to be done, and why it could not be.
class SdlError : public std::runtime_error {
public:
    explicit SdlError(const std::string& what);
};

/// SDL's connection to the display, from construction to destruction. One at a time; all that uses SDL must
/// be gone before it.
class SdlSession {
public:
    /// Throws SdlError where there is no display.
    SdlSession();
    ~SdlSession();
    SdlSession(const SdlSession&) = delete;
    SdlSession& operator=(const SdlSession&) = delete;

    /// From now on a block that is handed to the loop ends SDL's wait for events. Before other threads know
    /// the loop.
    void wake(platform::RunLoop& runLoop) const;
};

}  // namespace vorpel::playground
