// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/ver4_dict_buffers.h"

#include "dictionary/trie/dynamic_pt_writing_utils.h"
#include "dictionary/v4/bigram_dict_content.h"
#include "dictionary/v4/language_model_dict_content.h"

#include <utility>

namespace wordengine {

using Ver4DictBuffersPtr = Ver4DictBuffers::Ver4DictBuffersPtr;

Ver4DictBuffersPtr Ver4DictBuffers::createVer4DictBuffers(const HeaderPolicy* headerPolicy, int maxTrieSize) {
    const bool hasHistoricalInfo = headerPolicy->hasHistoricalInfoOfWords();
    return createVer4DictBuffers(headerPolicy, maxTrieSize,
                                 std::make_unique<LanguageModelDictContent>(hasHistoricalInfo),
                                 std::make_unique<BigramDictContent>(hasHistoricalInfo));
}

Ver4DictBuffersPtr Ver4DictBuffers::createVer4DictBuffers(
    const HeaderPolicy* headerPolicy, int maxTrieSize, std::unique_ptr<ProbabilityContent> probabilityContent,
    std::unique_ptr<BigramListContent> bigramDictContent) {
    return Ver4DictBuffersPtr(new Ver4DictBuffers(*headerPolicy, maxTrieSize, std::move(probabilityContent),
                                                  std::move(bigramDictContent)));
}

bool Ver4DictBuffers::writeEmptyTrie() {
    return trieBuffer_.getTailPosition() == 0 && DynamicPtWritingUtils::writeEmptyDictionary(&trieBuffer_, 0);
}

bool Ver4DictBuffers::copyContents(const TerminalIdMap& terminalIdMap, const Ver4DictBuffers& original,
                                   int* outBigramCount) {
    return probabilityContent_->runGC(&terminalIdMap, original.probabilityContent_.get(), nullptr) &&
           bigramDictContent_->runGC(&terminalIdMap, original.bigramDictContent_.get(), outBigramCount) &&
           shortcutDictContent_.runGC(&terminalIdMap, &original.shortcutDictContent_);
}

Ver4DictBuffers::Ver4DictBuffers(const HeaderPolicy& headerPolicy, int maxTrieSize,
                                 std::unique_ptr<ProbabilityContent> probabilityContent,
                                 std::unique_ptr<BigramListContent> bigramDictContent)
    : headerPolicy_(headerPolicy),
      trieBuffer_(maxTrieSize),
      probabilityContent_(std::move(probabilityContent)),
      bigramDictContent_(std::move(bigramDictContent)) {}

bool Ver4DictBuffers::isNearSizeLimit() const {
    return trieBuffer_.isNearSizeLimit() || terminalPositionLookupTable_.isNearSizeLimit() ||
           probabilityContent_->isNearSizeLimit() || bigramDictContent_->isNearSizeLimit() ||
           shortcutDictContent_.isNearSizeLimit();
}

}  // namespace wordengine
