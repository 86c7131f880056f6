// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/ver4_dict_buffers.h"

namespace wordengine::backward::v402 {

using wordengine::Ver4DictBuffers;

/// Room for a dictionary of the older layout, in memory, whose trie takes `maxTrieSize` bytes. There is no
/// trie yet.
Ver4DictBuffers::Ver4DictBuffersPtr createVer4DictBuffers(const HeaderPolicy* headerPolicy, int maxTrieSize);

}  // namespace wordengine::backward::v402
