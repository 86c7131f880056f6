// SPDX-License-Identifier: Apache-2.0
#include "search/typing/typing_traversal.h"

namespace wordengine {

const TypingTraversal TypingTraversal::sInstance;

}  // namespace wordengine
