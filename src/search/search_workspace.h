// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "node/dic_node.h"
#include "search/children_cache.h"

#include <vector>

namespace wordengine {

/// Storage that a search uses again and again.
struct SearchWorkspace {
    ChildrenCache children;
    std::vector<DicNode> terminals;
    DicNode completedNode;
    DicNode childNode;
    DicNode grandchildNode;
    DicNode digraphNode;
    DicNode terminalNode;
    DicNode nextWordNode;
};

}  // namespace wordengine
