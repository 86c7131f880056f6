// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

class Scoring;
class Traversal;
class Weighting;

/// Everything that makes a search one for typed (or some other) input. Policies live for ever.
class SuggestPolicy {
public:
    virtual const Traversal* getTraversal() const = 0;
    virtual const Scoring* getScoring() const = 0;
    virtual const Weighting* getWeighting() const = 0;
    virtual ~SuggestPolicy() = default;
    SuggestPolicy(const SuggestPolicy&) = delete;
    SuggestPolicy& operator=(const SuggestPolicy&) = delete;

protected:
    SuggestPolicy() = default;
};

}  // namespace wordengine
