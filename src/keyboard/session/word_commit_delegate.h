// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace vorpel {

/// A host's listener. Main thread. It must not destroy the keyboard while it is told.
class VorpelWordCommitDelegate {
public:
    virtual ~VorpelWordCommitDelegate() = default;

    /// A word is finished: typed and left behind, or taken from the bar. Never one of a private field.
    virtual void wordCommitted(const std::string& word) = 0;
};

}  // namespace vorpel
