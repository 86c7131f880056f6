// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/trie/pt_node_flags.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace wordengine {

/// One decoded node of any format. A default one is invalid: a node has at least one code point.
class PtNodeParams {
public:
    static constexpr int NOT_A_TERMINAL_ID = -1;

    PtNodeParams() = default;

    /// A node of an updatable format; its shortcuts and pairs are found by its terminal id.
    PtNodeParams(int headPos, NodeFlags flags, int parentPos, int codePointCount, const int* codePoints,
                 int terminalIdFieldPos, int terminalId, int probability, int childrenPosFieldPos,
                 int childrenPos, int siblingPos)
        : headPos_(headPos),
          flags_(flags),
          hasMovedFlag_(true),
          parentPos_(parentPos),
          terminalIdFieldPos_(terminalIdFieldPos),
          terminalId_(terminalId),
          probability_(probability),
          childrenPosFieldPos_(childrenPosFieldPos),
          childrenPos_(childrenPos),
          shortcutPos_(terminalId),
          bigramPos_(terminalId),
          siblingPos_(siblingPos) {
        setCodePoints(codePointCount, codePoints);
    }

    /// A node of the read-only format.
    PtNodeParams(int headPos, NodeFlags flags, int codePointCount, const int* codePoints, int probability,
                 int childrenPos, int shortcutPos, int bigramPos, int siblingPos)
        : headPos_(headPos),
          flags_(flags),
          probability_(probability),
          childrenPos_(childrenPos),
          shortcutPos_(shortcutPos),
          bigramPos_(bigramPos),
          siblingPos_(siblingPos) {
        setCodePoints(codePointCount, codePoints);
    }

    /// A changed node that keeps the identity and the fields of another one.
    PtNodeParams(const PtNodeParams* ptNodeParams, NodeFlags flags, int parentPos, int codePointCount,
                 const int* codePoints, int probability)
        : headPos_(ptNodeParams->headPos_),
          flags_(flags),
          hasMovedFlag_(true),
          parentPos_(parentPos),
          terminalIdFieldPos_(ptNodeParams->terminalIdFieldPos_),
          terminalId_(ptNodeParams->terminalId_),
          probabilityFieldPos_(ptNodeParams->probabilityFieldPos_),
          probability_(probability),
          childrenPosFieldPos_(ptNodeParams->childrenPosFieldPos_),
          childrenPos_(ptNodeParams->childrenPos_),
          bigramLinkedNodePos_(ptNodeParams->bigramLinkedNodePos_),
          shortcutPos_(ptNodeParams->shortcutPos_),
          bigramPos_(ptNodeParams->bigramPos_),
          siblingPos_(ptNodeParams->siblingPos_) {
        setCodePoints(codePointCount, codePoints);
    }

    /// A node that is yet to be written.
    PtNodeParams(NodeFlags flags, int parentPos, int codePointCount, const int* codePoints, int probability)
        : flags_(flags), hasMovedFlag_(true), parentPos_(parentPos), probability_(probability) {
        setCodePoints(codePointCount, codePoints);
    }

    bool isValid() const { return codePointCount_ > 0; }

    int getHeadPos() const { return headPos_; }
    NodeFlags getFlags() const { return flags_; }

    bool isDeleted() const { return hasState(PtNodeStateFlags::FLAG_IS_DELETED); }
    bool isMoved() const { return hasState(PtNodeStateFlags::FLAG_IS_MOVED); }
    bool willBecomeNonTerminal() const { return hasState(PtNodeStateFlags::FLAG_WILL_BECOME_NON_TERMINAL); }
    bool hasChildren() const { return childrenPos_ != NO_DICT_POS; }
    bool isTerminal() const { return (flags_ & PtNodeFlags::FLAG_IS_TERMINAL) != 0; }
    bool isBlacklisted() const { return (flags_ & PtNodeFlags::FLAG_IS_BLACKLISTED) != 0; }
    bool isNotAWord() const { return (flags_ & PtNodeFlags::FLAG_IS_NOT_A_WORD) != 0; }
    bool hasBigrams() const { return (flags_ & PtNodeFlags::FLAG_HAS_BIGRAMS) != 0; }
    bool hasShortcutTargets() const { return (flags_ & PtNodeFlags::FLAG_HAS_SHORTCUT_TARGETS) != 0; }
    /// A mark of the dictionary's own, such as the beginning of a sentence, that nobody can type.
    bool representsNonWordInfo() const {
        return isValid() && (codePoints_[0] < 0 || codePoints_[0] >= CODE_POINT_BEGINNING_OF_SENTENCE) &&
               isNotAWord();
    }

    int getParentPos() const { return parentPos_; }
    int getCodePointCount() const { return codePointCount_; }
    /// Only the first `getCodePointCount` have a value.
    const int* getCodePoints() const { return codePoints_.data(); }
    int getTerminalIdFieldPos() const { return terminalIdFieldPos_; }
    int getTerminalId() const { return terminalId_; }
    int getProbabilityFieldPos() const { return probabilityFieldPos_; }
    int getProbability() const { return probability_; }
    int getChildrenPosFieldPos() const { return childrenPosFieldPos_; }
    int getChildrenPos() const { return childrenPos_; }
    int getBigramLinkedNodePos() const { return bigramLinkedNodePos_; }
    int getShortcutPos() const { return shortcutPos_; }
    int getBigramsPos() const { return bigramPos_; }
    /// Behind the node, where its next sibling begins if the array has one.
    int getSiblingNodePos() const { return siblingPos_; }

private:
    bool hasState(NodeFlags state) const {
        return hasMovedFlag_ && (flags_ & PtNodeStateFlags::MASK_MOVED) == state;
    }

    void setCodePoints(int count, const int* codePoints) {
        codePointCount_ = static_cast<uint16_t>(std::clamp(count, 0, WORD_LENGTH_LIMIT));
        std::copy_n(codePoints, codePointCount_, codePoints_.begin());
    }

    int headPos_ = NO_DICT_POS;
    NodeFlags flags_ = 0;
    bool hasMovedFlag_ = false;
    int parentPos_ = NO_DICT_POS;
    uint16_t codePointCount_ = 0;
    // Not initialised: a look-up decodes hundreds of nodes, most of them of one code point.
    std::array<int, WORD_LENGTH_LIMIT> codePoints_;
    int terminalIdFieldPos_ = NO_DICT_POS;
    int terminalId_ = NOT_A_TERMINAL_ID;
    int probabilityFieldPos_ = NO_DICT_POS;
    int probability_ = NO_PROBABILITY;
    int childrenPosFieldPos_ = NO_DICT_POS;
    int childrenPos_ = NO_DICT_POS;
    int bigramLinkedNodePos_ = NO_DICT_POS;
    int shortcutPos_ = NO_DICT_POS;
    int bigramPos_ = NO_DICT_POS;
    int siblingPos_ = NO_DICT_POS;
};

}  // namespace wordengine
