// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/bigram_entry.h"
#include "dictionary/v4/dict_content.h"
#include "dictionary/v4/probability_entry.h"
#include "dictionary/v4/shortcut_dict_content.h"
#include "dictionary/v4/terminal_position_lookup_table.h"

namespace wordengine::backward::v402 {

// What the older layout has in common with the newer one, under the names of its own.

using wordengine::BigramEntry;
using wordengine::DictContent;
using wordengine::ProbabilityEntry;
using wordengine::ShortcutDictContent;
using wordengine::SingleDictContent;
using wordengine::SparseTableDictContent;
using wordengine::TerminalPositionLookupTable;

}  // namespace wordengine::backward::v402
