// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node_state_input.h"
#include "node/dic_node_state_output.h"
#include "node/dic_node_state_scoring.h"

namespace wordengine {

/// What the search has done to reach a node. The fields that every comparison and cost reads come first,
/// the long buffer last.
class DicNodeState {
public:
    void init() {
        scoring_.init();
        input_.init();
        output_.init();
    }

    void initAsRootWithPreviousWord(const DicNodeState& previous) {
        scoring_.initAsNextWord(previous.scoring_);
        input_.initAsNextWord(previous.input_);
        output_.initAsNextWord(previous.output_);
    }

    void initByCopy(const DicNodeState& other) {
        initByCopyWithoutWords(other);
        output_.copyWords(other.output_);
    }

    void initByCopyWithoutWords(const DicNodeState& other) {
        scoring_ = other.scoring_;
        input_ = other.input_;
        output_.copyPositions(other.output_);
    }

    DicNodeStateScoring scoring_;
    DicNodeStateInput input_;
    DicNodeStateOutput output_;
};

}  // namespace wordengine
