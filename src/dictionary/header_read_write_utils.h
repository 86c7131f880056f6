// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/dictionary_header_structure_policy.h"
#include "dictionary/format_utils.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace wordengine {

class BufferWithExtendableBuffer;
class ReadOnlyByteArrayView;

/// The bytes of a dictionary's header and the values of its attributes. All integers are big-endian.
/// Reading takes any bytes: a field that is not all there reads as 0, an attribute list ends with the
/// file where the stated header size does not end it sooner.
class HeaderReadWriteUtils {
public:
    using DictionaryFlags = uint16_t;
    using AttributeMap = DictionaryHeaderStructurePolicy::AttributeMap;

    HeaderReadWriteUtils() = delete;

    static constexpr int HEADER_MAGIC_NUMBER_SIZE = 4;
    static constexpr int HEADER_DICTIONARY_VERSION_SIZE = 2;
    static constexpr int HEADER_FLAG_SIZE = 2;
    static constexpr int HEADER_SIZE_FIELD_SIZE = 4;
    static constexpr DictionaryFlags NO_FLAGS = 0;
    /// In code points; more of them are cut off.
    static constexpr int MAX_ATTRIBUTE_KEY_LENGTH = 256;
    static constexpr int MAX_ATTRIBUTE_VALUE_LENGTH = 256;
    /// Far above what any header holds: the attributes of a file made of nothing else would take many
    /// times its size in memory.
    static constexpr size_t MAX_ATTRIBUTE_COUNT = 1024;
    static constexpr int LARGEST_INT_DIGIT_COUNT = 11;

    /// The header size that the file states; negative if it is beyond what a position can be.
    static int getHeaderSize(ReadOnlyByteArrayView dict);
    static DictionaryFlags getFlags(ReadOnlyByteArrayView dict);
    static DictionaryFlags createAndGetDictionaryFlagsUsingAttributeMap(const AttributeMap* attributeMap);
    /// A key that is already in the map keeps its value; beyond MAX_ATTRIBUTE_COUNT no more is read.
    static void fetchAllHeaderAttributes(ReadOnlyByteArrayView dict, AttributeMap* headerAttributes);

    // The writers stop with false at the first write that finds no room, and move `writingPos` on.
    /// Magic number and version. Version 2 is refused behind its magic number: such files are made by
    /// the dictionary compiler, never from a live dictionary.
    static bool writeDictionaryVersion(BufferWithExtendableBuffer* buffer,
                                       FormatUtils::FORMAT_VERSION version, int* writingPos);
    static bool writeDictionaryFlags(BufferWithExtendableBuffer* buffer, DictionaryFlags flags,
                                     int* writingPos);
    static bool writeDictionaryHeaderSize(BufferWithExtendableBuffer* buffer, int size, int* writingPos);
    /// Pairs with an empty key or value are left out.
    static bool writeHeaderAttributes(BufferWithExtendableBuffer* buffer,
                                      const AttributeMap* headerAttributes, int* writingPos);

    static void setCodePointVectorAttribute(AttributeMap* headerAttributes, const char* key,
                                            const std::vector<int>& value);
    static void setBoolAttribute(AttributeMap* headerAttributes, const char* key, bool value);
    static void setIntAttribute(AttributeMap* headerAttributes, const char* key, int value);

    static std::vector<int> readCodePointVectorAttributeValue(const AttributeMap* headerAttributes,
                                                              const char* key);
    static bool readBoolAttributeValue(const AttributeMap* headerAttributes, const char* key,
                                       bool defaultValue);
    /// Decimal text; `defaultValue` without the key and for any other text, 0 for an empty one. Numbers
    /// beyond 32 bits wrap around.
    static int readIntAttributeValue(const AttributeMap* headerAttributes, const char* key, int defaultValue);

    /// Appends each byte of a C string as one code point.
    static void insertCharactersIntoVector(const char* characters, std::vector<int>* vector);

private:
    static void setIntAttributeInner(AttributeMap* headerAttributes, const std::vector<int>& key, int value);
    static int readIntAttributeValueInner(const AttributeMap* headerAttributes, const std::vector<int>& key,
                                          int defaultValue);
};

}  // namespace wordengine
