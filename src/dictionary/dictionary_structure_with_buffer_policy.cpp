// SPDX-License-Identifier: Apache-2.0
#include "dictionary/dictionary_structure_with_buffer_policy.h"

#include "node/dic_node.h"
#include "node/dic_node_child.h"
#include "node/dic_node_vector.h"

#include <atomic>

namespace wordengine {

namespace {

uint64_t nextIdentity() {
    // Dictionaries may be opened on several threads.
    static std::atomic<uint64_t> last{0};
    return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

}  // namespace

DictionaryStructureWithBufferPolicy::DictionaryStructureWithBufferPolicy() : identity_(nextIdentity()) {}

void DictionaryStructureWithBufferPolicy::renewIdentity() {
    identity_ = nextIdentity();
}

void DictionaryStructureWithBufferPolicy::createAndGetAllChildDicNodes(const DicNode* dicNode,
                                                                       DicNodeVector* childDicNodes) const {
    if (!dicNode->hasChildren()) return;
    DicNodeChildList children;
    readChildren(dicNode->getChildrenPtNodeArrayPos(), &children);
    for (int i = 0; i < children.size(); ++i) {
        childDicNodes->pushLeavingChild(dicNode, children[i], children.codePointsOf(children[i]));
    }
}

}  // namespace wordengine
