// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// How a code point of the dictionary relates to one input point.
enum ProximityType {
    PROXIMITY_MATCH = 0,
    PROXIMITY_NEAR = 1,
    PROXIMITY_ADDITIONAL = 2,
    PROXIMITY_SUBSTITUTION = 3,
    PROXIMITY_UNRELATED = 4,
};

}  // namespace wordengine
