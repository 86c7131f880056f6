// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "vorpel/vorpel.h"

#ifdef __cplusplus
extern "C" {
#endif

/// Programs that were compiled against other versions of the header, as the library meets them: each opens a
/// service, asks for "hrllo" and closes it. They return the status of the first call that failed.

/// Its options end before `dictionary`, and what lies behind them is not its own to give.
vorpel_status runOlderCaller(const char* folder);

/// Its structures are longer than ours. `wish` is what it asks for in the member that we do not know; on
/// success it finds all that it has in the answer beyond our part of it to be 0.
vorpel_status runNewerCaller(const char* folder, int wish, int* unknownMembersAreZero);

#ifdef __cplusplus
}
#endif
