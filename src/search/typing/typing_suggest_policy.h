// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "search/suggest_policy.h"
#include "search/typing/typing_scoring.h"
#include "search/typing/typing_traversal.h"
#include "search/typing/typing_weighting.h"

namespace wordengine {

/// The search for typed words: one instance for the whole process.
class TypingSuggestPolicy final : public SuggestPolicy {
public:
    static const TypingSuggestPolicy* getInstance() { return &sInstance; }

    const TypingTraversal* getTraversal() const override { return TypingTraversal::getInstance(); }
    const TypingScoring* getScoring() const override { return TypingScoring::getInstance(); }
    const TypingWeighting* getWeighting() const override { return TypingWeighting::getInstance(); }

private:
    TypingSuggestPolicy() = default;

    static const TypingSuggestPolicy sInstance;
};

}  // namespace wordengine
