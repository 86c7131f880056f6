// SPDX-License-Identifier: Apache-2.0
#include "dictionary/v4/ver4_patricia_trie_writing_helper.h"

#include "dictionary/trie/dynamic_pt_gc_event_listeners.h"
#include "dictionary/v4/ver4_bigram_list_policy.h"
#include "dictionary/v4/ver4_pt_node_array_reader.h"
#include "dictionary/v4/ver4_shortcut_list_policy.h"

#include <algorithm>
#include <tuple>

namespace wordengine {

namespace {

using Listeners = DynamicPtGcEventListeners;

/// Gives each word its new id, and counts the words.
class TraversePolicyToUpdateAllPtNodeFlagsAndTerminalIds final : public Listeners::Listener {
public:
    TraversePolicyToUpdateAllPtNodeFlagsAndTerminalIds(const PtNodeReader* reader,
                                                       Ver4PatriciaTrieNodeWriter* writer,
                                                       const TerminalIdMap* terminalIdMap)
        : reader_(reader), writer_(writer), terminalIdMap_(terminalIdMap) {}

    bool onAscend() override { return true; }
    bool onDescend(int) override { return true; }
    bool onReadingPtNodeArrayTail() override { return true; }
    bool onVisitingPtNode(const PtNodeParams* ptNodeParams) override {
        if (!ptNodeParams->isTerminal()) return true;
        const auto newId = terminalIdMap_->find(ptNodeParams->getTerminalId());
        if (newId == terminalIdMap_->end()) return false;
        if (!Listeners::isNonWordInfo(*ptNodeParams, *reader_)) ++unigramCount_;
        return writer_->updateTerminalId(ptNodeParams, newId->second);
    }

    [[nodiscard]] int getUnigramCount() const { return unigramCount_; }

private:
    const PtNodeReader* reader_;
    Ver4PatriciaTrieNodeWriter* writer_;
    const TerminalIdMap* terminalIdMap_;
    int unigramCount_ = 0;
};

}  // namespace

struct Ver4PatriciaTrieWritingHelper::Access {
    explicit Access(Ver4DictBuffers* ofBuffers)
        : buffers(ofBuffers),
          bigramPolicy(buffers->getMutableBigramDictContent(), buffers->getTerminalPositionLookupTable(),
                       buffers->getHeaderPolicy()),
          shortcutPolicy(buffers->getMutableShortcutDictContent()),
          reader(buffers->getTrieBuffer(), buffers->getProbabilityContent(), buffers->getHeaderPolicy()),
          arrayReader(buffers->getTrieBuffer()),
          writer({buffers->getWritableTrieBuffer(), buffers->getMutableTerminalPositionLookupTable(),
                  buffers->getMutableProbabilityContent(), &bigramPolicy, &shortcutPolicy, &reader,
                  &arrayReader, buffers->getHeaderPolicy()}) {}

    [[nodiscard]] DynamicPtReadingHelper helperAt(int arrayPos) const {
        DynamicPtReadingHelper helper(&reader, &arrayReader, buffers->getTrieBuffer()->getTailPosition());
        helper.initWithPtNodeArrayPos(arrayPos);
        return helper;
    }

    Ver4DictBuffers* buffers;
    Ver4BigramListPolicy bigramPolicy;
    Ver4ShortcutListPolicy shortcutPolicy;
    Ver4PatriciaTrieNodeReader reader;
    Ver4PtNodeArrayReader arrayReader;
    Ver4PatriciaTrieNodeWriter writer;
};

bool Ver4PatriciaTrieWritingHelper::runGC(int rootPtNodeArrayPos, Ver4DictBuffers* buffersToWrite,
                                          int* outUnigramCount, int* outBigramCount) {
    *outUnigramCount = *outBigramCount = 0;
    Access from(buffers_);
    Access to(buffersToWrite);
    TerminalIdMap terminalIdMap;
    // The ids change last: until then the copy is read with those of the old dictionary.
    return markWhatGoes(&from, rootPtNodeArrayPos) && copyTrie(&from, rootPtNodeArrayPos, &to) &&
           buffersToWrite->getMutableTerminalPositionLookupTable()->runGCTerminalIds(&terminalIdMap) &&
           buffersToWrite->copyContents(terminalIdMap, *buffers_, outBigramCount) &&
           renumber(&to, terminalIdMap, outUnigramCount);
}

bool Ver4PatriciaTrieWritingHelper::markWhatGoes(Access* access, int rootPos) {
    const HeaderPolicy& header = *buffers_->getHeaderPolicy();
    Listeners::TraversePolicyToUpdateUnigramProbabilityAndMarkUselessPtNodesAsDeleted markUseless(
        &access->reader, &access->writer);
    if (!access->helperAt(rootPos).traverseAllPtNodesInPostorderDepthFirstManner(&markUseless)) return false;
    if (header.isDecayingDict() && markUseless.getValidUnigramCount() > header.getMaxUnigramCount() &&
        !truncateUnigrams(access, header.getMaxUnigramCount())) {
        return false;
    }
    Listeners::TraversePolicyToUpdateBigramProbability updateBigrams(&access->writer);
    if (!access->helperAt(rootPos).traverseAllPtNodesInPostorderDepthFirstManner(&updateBigrams))
        return false;
    return !header.isDecayingDict() ||
           updateBigrams.getValidBigramEntryCount() <= header.getMaxBigramCount() ||
           truncateBigrams(header.getMaxBigramCount());
}

/// Least probable first, then the latest, then the first in the dictionary.
std::vector<Ver4PatriciaTrieWritingHelper::DictProbability> Ver4PatriciaTrieWritingHelper::leastBeyond(
    std::vector<DictProbability> entries, int maxCount) {
    const auto count = static_cast<int64_t>(entries.size()) - std::max(maxCount, 0);
    std::ranges::sort(entries, {}, [](const DictProbability& entry) {
        return std::tuple(entry.probability, -static_cast<int64_t>(entry.timestamp), entry.dictPos);
    });
    entries.resize(static_cast<size_t>(std::max<int64_t>(count, 0)));
    return entries;
}

bool Ver4PatriciaTrieWritingHelper::truncateUnigrams(Access* access, int maxUnigramCount) {
    const TerminalPositionLookupTable& table = *buffers_->getTerminalPositionLookupTable();
    std::vector<DictProbability> entries;
    for (int id = 0; id < table.getNextTerminalId(); ++id) {
        const int pos = table.getTerminalPtNodePosition(id);
        if (pos == NO_DICT_POS) continue;
        const PtNodeParams word = access->reader.fetchPtNodeParamsInBufferFromPtNodePos(pos);
        const ProbabilityEntry entry = buffers_->getProbabilityContent()->getProbabilityEntry(id);
        entries.push_back({pos, word.getProbability(), entry.getHistoricalInfo()->getTimeStamp()});
    }
    for (const DictProbability& least : leastBeyond(std::move(entries), maxUnigramCount)) {
        const PtNodeParams word = access->reader.fetchPtNodeParamsInBufferFromPtNodePos(least.dictPos);
        if (!word.isValid()) return false;
        if (Listeners::isNonWordInfo(word, access->reader)) continue;
        if (!access->writer.markPtNodeAsWillBecomeNonTerminal(&word)) return false;
    }
    return true;
}

bool Ver4PatriciaTrieWritingHelper::truncateBigrams(int maxBigramCount) {
    const TerminalPositionLookupTable& table = *buffers_->getTerminalPositionLookupTable();
    BigramListContent* const content = buffers_->getMutableBigramDictContent();
    const Ver4BigramListPolicy policy(content, &table, buffers_->getHeaderPolicy());
    std::vector<DictProbability> entries;
    int remainingEntryCount = content->getMaxEntryCount();
    for (int id = 0; id < table.getNextTerminalId(); ++id) {
        if (table.getTerminalPtNodePosition(id) == NO_DICT_POS) continue;
        int pos = content->getBigramListHeadPos(id);
        while (const auto found = content->readNextEntry(&pos, &remainingEntryCount)) {
            if (!found->entry.isValid()) continue;
            entries.push_back({found->pos, policy.getProbability(found->entry),
                               found->entry.getHistoricalInfo()->getTimeStamp()});
        }
    }
    if (remainingEntryCount < 0) return false;
    const std::vector<DictProbability> least = leastBeyond(std::move(entries), maxBigramCount);
    return std::ranges::all_of(least, [&](const DictProbability& entry) {
        const BigramEntry removed = content->getBigramEntry(entry.dictPos).getInvalidatedEntry();
        return content->writeBigramEntry(&removed, entry.dictPos);
    });
}

bool Ver4PatriciaTrieWritingHelper::copyTrie(Access* from, int rootPos, Access* to) {
    constexpr int NEW_ROOT_POS = 0;
    PtNodeWriter::DictPositionRelocationMap relocationMap;
    Listeners::TraversePolicyToPlaceAndWriteValidPtNodesToBuffer place(
        {&from->reader, &from->arrayReader, buffers_->getTrieBuffer()->getTailPosition(), &to->writer,
         to->buffers->getWritableTrieBuffer()},
        &relocationMap);
    if (!from->helperAt(rootPos).traverseAllPtNodesInPtNodeArrayLevelPreorderDepthFirstManner(&place)) {
        return false;
    }
    Listeners::TraversePolicyToUpdateAllPositionFields update(&to->writer, &relocationMap);
    return to->helperAt(NEW_ROOT_POS).traverseAllPtNodesInPtNodeArrayLevelPreorderDepthFirstManner(&update);
}

bool Ver4PatriciaTrieWritingHelper::renumber(Access* access, const TerminalIdMap& terminalIdMap,
                                             int* outUnigramCount) {
    constexpr int ROOT_POS = 0;
    TraversePolicyToUpdateAllPtNodeFlagsAndTerminalIds renumbering(&access->reader, &access->writer,
                                                                   &terminalIdMap);
    if (!access->helperAt(ROOT_POS).traverseAllPtNodesInPostorderDepthFirstManner(&renumbering)) return false;
    *outUnigramCount = renumbering.getUnigramCount();
    return true;
}

}  // namespace wordengine
