// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/typing/typing_suggest_policy.h"

namespace wordengine {

class TypingSuggestPolicyFactory {
public:
    TypingSuggestPolicyFactory() = delete;

    static const TypingSuggestPolicy* getTypingSuggestPolicy() { return TypingSuggestPolicy::getInstance(); }
};

}  // namespace wordengine
