// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v402/ver4_dict_buffers.h"

#include "dictionary/v402/bigram_dict_content.h"
#include "dictionary/v402/probability_dict_content.h"

namespace wordengine::backward::v402 {

Ver4DictBuffers::Ver4DictBuffersPtr createVer4DictBuffers(const HeaderPolicy* headerPolicy, int maxTrieSize) {
    const bool hasHistoricalInfo = headerPolicy->hasHistoricalInfoOfWords();
    return Ver4DictBuffers::createVer4DictBuffers(headerPolicy, maxTrieSize,
                                                  std::make_unique<ProbabilityDictContent>(hasHistoricalInfo),
                                                  std::make_unique<BigramDictContent>(hasHistoricalInfo));
}

}  // namespace wordengine::backward::v402
