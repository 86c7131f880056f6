// SPDX-License-Identifier: Apache-2.0
#include "search/typing/typing_weighting.h"

namespace wordengine {

const TypingWeighting TypingWeighting::sInstance;

}  // namespace wordengine
