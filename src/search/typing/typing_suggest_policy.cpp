// SPDX-License-Identifier: Apache-2.0
#include "search/typing/typing_suggest_policy.h"

namespace wordengine {

const TypingSuggestPolicy TypingSuggestPolicy::sInstance;

}  // namespace wordengine
