// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/trie/dynamic_pt_reading_helper.h"
#include "dictionary/trie/pt_node_writer.h"
#include "storage/buffer_with_extendable_buffer.h"

#include <vector>

namespace wordengine {

class PtNodeArrayReader;
class PtNodeReader;

/// What a garbage collection does at each node of a trie, walk after walk. Readers, writers and buffers must
/// outlive the listeners.
class DynamicPtGcEventListeners {
public:
    using Listener = DynamicPtReadingHelper::TraversingEventListener;

    DynamicPtGcEventListeners() = delete;

    /// Children first: words that time has taken and nodes that lead to no word are marked as deleted. A node
    /// whose own word is gone stays, without the word, while a word that is kept passes through it.
    class TraversePolicyToUpdateUnigramProbabilityAndMarkUselessPtNodesAsDeleted final : public Listener {
    public:
        TraversePolicyToUpdateUnigramProbabilityAndMarkUselessPtNodesAsDeleted(
            const PtNodeReader* ptNodeReader, PtNodeWriter* ptNodeWriter)
            : ptNodeReader_(ptNodeReader), ptNodeWriter_(ptNodeWriter) {}

        bool onAscend() override;
        bool onDescend(int) override;
        bool onReadingPtNodeArrayTail() override { return true; }
        bool onVisitingPtNode(const PtNodeParams* ptNodeParams) override;

        [[nodiscard]] int getValidUnigramCount() const { return validUnigramCount_; }

    private:
        bool keep(const PtNodeParams& ptNodeParams, bool isWord);
        bool drop(const PtNodeParams& ptNodeParams);

        const PtNodeReader* ptNodeReader_;
        PtNodeWriter* ptNodeWriter_;
        std::vector<int> keptCounts_;  // of each array on the way down
        int keptChildCount_ = 0;       // of the node that is visited next
        int validUnigramCount_ = 0;
    };

    /// Writes down what time has done to the pairs.
    class TraversePolicyToUpdateBigramProbability final : public Listener {
    public:
        explicit TraversePolicyToUpdateBigramProbability(PtNodeWriter* ptNodeWriter)
            : ptNodeWriter_(ptNodeWriter) {}

        bool onAscend() override { return true; }
        bool onDescend(int) override { return true; }
        bool onReadingPtNodeArrayTail() override { return true; }
        bool onVisitingPtNode(const PtNodeParams* ptNodeParams) override;

        [[nodiscard]] int getValidBigramEntryCount() const { return validBigramEntryCount_; }

    private:
        PtNodeWriter* ptNodeWriter_;
        int validBigramEntryCount_ = 0;
    };

    /// Array by array: copies the nodes that are not deleted to the tail of another buffer, and keeps where
    /// each has gone. What they say of their parents and children is that of the old places still.
    class TraversePolicyToPlaceAndWriteValidPtNodesToBuffer final : public Listener {
    public:
        /// What is read, and where it goes.
        struct Parts {
            const PtNodeReader* ptNodeReader;
            const PtNodeArrayReader* ptNodeArrayReader;
            int trieSize;
            PtNodeWriter* ptNodeWriter;
            BufferWithExtendableBuffer* bufferToWrite;
        };

        TraversePolicyToPlaceAndWriteValidPtNodesToBuffer(
            const Parts& parts, PtNodeWriter::DictPositionRelocationMap* relocationMap)
            : parts_(parts), relocationMap_(relocationMap) {}

        bool onAscend() override { return true; }
        bool onDescend(int ptNodeArrayPos) override;
        bool onReadingPtNodeArrayTail() override;
        bool onVisitingPtNode(const PtNodeParams* ptNodeParams) override;

    private:
        [[nodiscard]] bool countValidNodes(int ptNodeArrayPos, int* outCount) const;
        bool beginArray();

        Parts parts_;
        PtNodeWriter::DictPositionRelocationMap* relocationMap_;
        bool isRoot_ = true;
        bool isWriting_ = false;
        int nodesToCome_ = 0;         // of the chain of arrays
        int nodesToComeInArray_ = 0;  // of the present one
    };

    /// Array by array, in the copy: parents and children are those of the new places.
    class TraversePolicyToUpdateAllPositionFields final : public Listener {
    public:
        TraversePolicyToUpdateAllPositionFields(PtNodeWriter* ptNodeWriter,
                                                const PtNodeWriter::DictPositionRelocationMap* relocationMap)
            : ptNodeWriter_(ptNodeWriter), relocationMap_(relocationMap) {}

        bool onAscend() override { return true; }
        bool onDescend(int) override { return true; }
        bool onReadingPtNodeArrayTail() override { return true; }
        bool onVisitingPtNode(const PtNodeParams* ptNodeParams) override;

    private:
        PtNodeWriter* ptNodeWriter_;
        const PtNodeWriter::DictPositionRelocationMap* relocationMap_;
    };

    /// Whether the word that ends at the node is a mark of the dictionary's own. The mark may stand in a node
    /// above this one.
    [[nodiscard]] static bool isNonWordInfo(const PtNodeParams& ptNodeParams, const PtNodeReader& reader);
};

}  // namespace wordengine
