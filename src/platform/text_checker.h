// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace vorpel::platform {

/// The platform's list of words that its user has taught it. Main thread only.
class TextChecker {
public:
    virtual ~TextChecker() = default;
    virtual void learnWord(const std::string& word) = 0;
    [[nodiscard]] virtual bool hasLearnedWord(const std::string& word) const = 0;
};

}  // namespace vorpel::platform
