// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/recipe.h"

namespace vorpel::compiler {

/// A relative frequency above 0 on the dictionary's scale, within the rule's limits.
[[nodiscard]] int toScale(const ScaleRule& rule, double frequency);

/// The strength of 0 to 15 with which a reader raises `unigram` nearest to `wanted`; of two the lower.
[[nodiscard]] int strengthNearest(int unigram, int wanted);

}  // namespace vorpel::compiler
