// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <map>
#include <vector>

namespace wordengine {

/// A dictionary's settings, as the search needs them.
class DictionaryHeaderStructurePolicy {
public:
    /// Attribute keys and values as code points, ordered by key.
    using AttributeMap = std::map<std::vector<int>, std::vector<int>>;

    virtual ~DictionaryHeaderStructurePolicy() = default;

    /// 2, 399, 402, 403, or -1.
    virtual int getFormatVersionNumber() const = 0;
    /// Bytes of the whole header, as the file states it; 0 for a dictionary that was never stored.
    virtual int getSize() const = 0;
    virtual const AttributeMap* getAttributeMap() const = 0;
    virtual bool requiresGermanUmlautProcessing() const = 0;
    /// What a suggestion of several words has its cost multiplied by.
    virtual float getMultiWordCostMultiplier() const = 0;
    /// Fills `outValue` with the value and a closing 0, cut to `outValueSize`; "?" without the key.
    virtual void readHeaderValueOrQuestionMark(const char* key, int* outValue, int outValueSize) const = 0;
    virtual bool shouldBoostExactMatches() const = 0;
    virtual const std::vector<int>* getLocale() const = 0;
    virtual bool supportsBeginningOfSentence() const = 0;

protected:
    DictionaryHeaderStructurePolicy() = default;
    DictionaryHeaderStructurePolicy(const DictionaryHeaderStructurePolicy&) = default;
    DictionaryHeaderStructurePolicy& operator=(const DictionaryHeaderStructurePolicy&) = default;
};

}  // namespace wordengine
