// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "vorpel/vorpel.h"

#include <stdexcept>
#include <string>
#include <string_view>

namespace vorpel::capi {

/// An error on its way to the caller.
class Failure : public std::runtime_error {
public:
    Failure(vorpel_status status, const std::string& text) : std::runtime_error(text), status_(status) {}

    [[nodiscard]] vorpel_status status() const { return status_; }

private:
    vorpel_status status_;
};

/// Raises an error of the status for arguments unless the condition holds.
void require(bool condition, const char* text);

/// The text of this thread's last error.
const char* errorText() noexcept;

/// Makes the exception that is being handled this thread's last error. Allocates nothing.
vorpel_status keepCurrentError() noexcept;

}  // namespace vorpel::capi
