// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>

namespace wordengine {

class BigramProperty;
class DicNode;
class DicNodeChildList;
class DicNodeVector;
class DictionaryHeaderStructurePolicy;
class DictionaryShortcutsStructurePolicy;
class NgramListener;
class PrevWordsInfo;
class UnigramProperty;

/// One opened dictionary of whatever format. Positions are the format's own and mean nothing outside the
/// policy that gave them; any integer may be handed in, and one that leads nowhere finds nothing. Pointers
/// that are handed out live as long as the policy. One thread at a time: reading keeps marks.
class DictionaryStructureWithBufferPolicy {
public:
    using StructurePolicyPtr = std::unique_ptr<DictionaryStructureWithBufferPolicy>;

    virtual ~DictionaryStructureWithBufferPolicy() = default;
    DictionaryStructureWithBufferPolicy(const DictionaryStructureWithBufferPolicy&) = delete;
    DictionaryStructureWithBufferPolicy& operator=(const DictionaryStructureWithBufferPolicy&) = delete;

    virtual int getRootPosition() const = 0;

    /// Appends what there is to know of each child in the array of nodes that is not deleted.
    virtual void readChildren(int ptNodeArrayPos, DicNodeChildList* outChildren) const = 0;

    /// Appends one node per child of `dicNode` that is not deleted.
    void createAndGetAllChildDicNodes(const DicNode* dicNode, DicNodeVector* childDicNodes) const;

    /// Another number for each dictionary that was ever opened, and after each change of one: what has been
    /// read may be kept under its number.
    uint64_t getIdentity() const { return identity_; }

    /// The word that ends at the node: its length, 0 if there is none. `outCodePoints` holds
    /// `maxCodePointCount`; a longer word is not found.
    virtual int getCodePointsAndProbabilityAndReturnCodePointCount(int ptNodePos, int maxCodePointCount,
                                                                   int* outCodePoints,
                                                                   int* outUnigramProbability) const = 0;

    /// The node at which the word ends, or NO_DICT_POS.
    virtual int getTerminalPtNodePositionOfWord(const int* word, int length,
                                                bool forceLowerCaseSearch) const = 0;

    /// What a word's own probability and that of its pairing come to.
    virtual int getProbability(int unigramProbability, int bigramProbability) const = 0;

    /// A null first argument asks for the word's own probability; otherwise NO_PROBABILITY unless the
    /// pair is in the dictionary.
    virtual int getProbabilityOfPtNode(const int* prevWordsPtNodePos, int ptNodePos) const = 0;

    virtual void iterateNgramEntries(const int* prevWordsPtNodePos, NgramListener* listener) const = 0;

    virtual int getShortcutPositionOfPtNode(int ptNodePos) const = 0;

    virtual const DictionaryHeaderStructurePolicy* getHeaderStructurePolicy() const = 0;
    virtual const DictionaryShortcutsStructurePolicy* getShortcutsStructurePolicy() const = 0;

    // The changes: false where the format or the file can not take them.
    virtual bool addUnigramEntry(const int* word, int length, const UnigramProperty* unigramProperty) = 0;
    virtual bool removeUnigramEntry(const int* word, int length) = 0;
    virtual bool addNgramEntry(const PrevWordsInfo* prevWordsInfo, const BigramProperty* bigramProperty) = 0;
    virtual bool removeNgramEntry(const PrevWordsInfo* prevWordsInfo, const int* word, int length) = 0;
    virtual bool flush(const char* filePath) = 0;
    virtual bool flushWithGC(const char* filePath) = 0;
    virtual bool needsToRunGC(bool mindsBlockByGC) const = 0;

    /// Writes the answer to `query` as a C string of at most `maxResultLength` bytes.
    virtual void getProperty(const char* query, int queryLength, char* outResult, int maxResultLength) = 0;

    /// Walks all words: begin with token 0, go on with the token returned, stop at 0. `outCodePoints`
    /// holds WORD_LENGTH_LIMIT; `*outCodePointCount` is left alone when there is no word.
    virtual int getNextWordAndNextToken(int token, int* outCodePoints, int* outCodePointCount) = 0;

    /// Set for good when a read met inconsistent bytes.
    virtual bool isCorrupted() const = 0;

protected:
    DictionaryStructureWithBufferPolicy();

    /// To be called by whoever changes the dictionary.
    void renewIdentity();

private:
    uint64_t identity_;
};

}  // namespace wordengine
