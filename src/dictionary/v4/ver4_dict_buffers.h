// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/header_policy.h"
#include "dictionary/v4/bigram_list_content.h"
#include "dictionary/v4/probability_content.h"
#include "dictionary/v4/shortcut_dict_content.h"
#include "dictionary/v4/terminal_position_lookup_table.h"
#include "storage/buffer_with_extendable_buffer.h"

#include <memory>

namespace wordengine {

/// All parts of one dictionary that learns, of either layout.
class Ver4DictBuffers {
public:
    using Ver4DictBuffersPtr = std::unique_ptr<Ver4DictBuffers>;

    /// Room for a dictionary of the newer layout, in memory, whose trie takes `maxTrieSize` bytes. There is
    /// no trie yet.
    static Ver4DictBuffersPtr createVer4DictBuffers(const HeaderPolicy* headerPolicy, int maxTrieSize);

    /// The same of a layout that keeps these two in its own way; both must be empty.
    static Ver4DictBuffersPtr createVer4DictBuffers(const HeaderPolicy* headerPolicy, int maxTrieSize,
                                                    std::unique_ptr<ProbabilityContent> probabilityContent,
                                                    std::unique_ptr<BigramListContent> bigramDictContent);

    Ver4DictBuffers(const Ver4DictBuffers&) = delete;
    Ver4DictBuffers& operator=(const Ver4DictBuffers&) = delete;

    [[nodiscard]] const HeaderPolicy* getHeaderPolicy() const { return &headerPolicy_; }
    [[nodiscard]] bool isUpdatable() const { return isUpdatable_; }

    [[nodiscard]] BufferWithExtendableBuffer* getWritableTrieBuffer() { return &trieBuffer_; }
    [[nodiscard]] const BufferWithExtendableBuffer* getTrieBuffer() const { return &trieBuffer_; }
    [[nodiscard]] TerminalPositionLookupTable* getMutableTerminalPositionLookupTable() {
        return &terminalPositionLookupTable_;
    }
    [[nodiscard]] const TerminalPositionLookupTable* getTerminalPositionLookupTable() const {
        return &terminalPositionLookupTable_;
    }
    [[nodiscard]] ProbabilityContent* getMutableProbabilityContent() { return probabilityContent_.get(); }
    [[nodiscard]] const ProbabilityContent* getProbabilityContent() const {
        return probabilityContent_.get();
    }
    [[nodiscard]] BigramListContent* getMutableBigramDictContent() { return bigramDictContent_.get(); }
    [[nodiscard]] const BigramListContent* getBigramDictContent() const { return bigramDictContent_.get(); }
    [[nodiscard]] ShortcutDictContent* getMutableShortcutDictContent() { return &shortcutDictContent_; }
    [[nodiscard]] const ShortcutDictContent* getShortcutDictContent() const { return &shortcutDictContent_; }

    /// Makes an empty dictionary of what has no trie yet.
    bool writeEmptyTrie();

    /// Copies all but the trie into these buffers, which have nothing else yet, from others of the same
    /// layout: what there is of the words that are kept, under their new ids.
    bool copyContents(const TerminalIdMap& terminalIdMap, const Ver4DictBuffers& original,
                      int* outBigramCount);

    /// One of the parts has little room left.
    [[nodiscard]] bool isNearSizeLimit() const;

private:
    Ver4DictBuffers(const HeaderPolicy& headerPolicy, int maxTrieSize,
                    std::unique_ptr<ProbabilityContent> probabilityContent,
                    std::unique_ptr<BigramListContent> bigramDictContent);

    HeaderPolicy headerPolicy_;
    BufferWithExtendableBuffer trieBuffer_;
    TerminalPositionLookupTable terminalPositionLookupTable_;
    std::unique_ptr<ProbabilityContent> probabilityContent_;
    std::unique_ptr<BigramListContent> bigramDictContent_;
    ShortcutDictContent shortcutDictContent_;
    bool isUpdatable_ = true;
};

}  // namespace wordengine
