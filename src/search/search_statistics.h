// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// What the last search did, for people who look into it. Counting starts anew at each request.
struct SearchStatistics {
    int passes = 0;             ///< rounds over the active nodes, one input point each
    int nodesExpanded = 0;      ///< nodes taken from the active queue and branched
    int childrenExamined = 0;   ///< nodes read from the dictionary, those of corrections included
    int nodesPushedActive = 0;  ///< nodes offered to the next pass; a full queue may have turned some away
    int nodesCached = 0;        ///< nodes offered to the store for a following, longer input
    int terminals = 0;          ///< finished words offered to the results
    bool continuedCachedSearch = false;  ///< began from the nodes stored by the request before
};

}  // namespace wordengine
