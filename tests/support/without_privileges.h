// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <stdexcept>
#include <sys/types.h>
#include <unistd.h>

namespace vorpel::testing {

/// While it lives, the superuser is nobody, so that permissions mean something to tests that run as root.
/// Other users stay who they are.
class WithoutPrivileges {
public:
    WithoutPrivileges() : before_(::geteuid()) {
        if (dropped() && ::seteuid(NOBODY) != 0) throw std::runtime_error("cannot become nobody");
    }
    ~WithoutPrivileges() {
        // Root may always take itself back; a test that cannot would mislead all that follow.
        if (dropped() && ::seteuid(before_) != 0) ::_exit(70);
    }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

    [[nodiscard]] bool dropped() const { return before_ == 0; }

private:
    static constexpr uid_t NOBODY = 65534;
    const uid_t before_;
};

}  // namespace vorpel::testing
