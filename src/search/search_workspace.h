// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node.h"
#include "node/dic_node_vector.h"

#include <vector>

namespace wordengine {

/// The room in which one step of a search works. One vector for each loop over children that may be
/// running at the same time as the others; all keep their storage from request to request.
struct SearchWorkspace {
    DicNodeVector children;
    DicNodeVector omissionChildren;
    DicNodeVector insertionChildren;
    DicNodeVector transpositionFirstChildren;
    DicNodeVector transpositionSecondChildren;
    std::vector<DicNode> terminals;
    DicNode poppedNode;
    DicNode correctionNode;
    DicNode terminalNode;
    DicNode nextWordNode;
};

}  // namespace wordengine
