// SPDX-License-Identifier: Apache-2.0
#include "dictionary/header_read_write_utils.h"

#include "storage/buffer_with_extendable_buffer.h"
#include "storage/byte_array_view.h"
#include "storage/byte_reader.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

namespace wordengine {

namespace {

using AttributeMap = HeaderReadWriteUtils::AttributeMap;

constexpr int FLAGS_POS =
    HeaderReadWriteUtils::HEADER_MAGIC_NUMBER_SIZE + HeaderReadWriteUtils::HEADER_DICTIONARY_VERSION_SIZE;
constexpr int HEADER_SIZE_POS = FLAGS_POS + HeaderReadWriteUtils::HEADER_FLAG_SIZE;
constexpr int ATTRIBUTES_POS = HEADER_SIZE_POS + HeaderReadWriteUtils::HEADER_SIZE_FIELD_SIZE;

std::vector<int> keyVectorOf(const char* key) {
    std::vector<int> keyVector;
    HeaderReadWriteUtils::insertCharactersIntoVector(key, &keyVector);
    return keyVector;
}

}  // namespace

int HeaderReadWriteUtils::getHeaderSize(ReadOnlyByteArrayView dict) {
    ByteReader reader(dict, HEADER_SIZE_POS);
    return static_cast<int>(reader.readUint32());
}

HeaderReadWriteUtils::DictionaryFlags HeaderReadWriteUtils::getFlags(ReadOnlyByteArrayView dict) {
    ByteReader reader(dict, FLAGS_POS);
    return static_cast<DictionaryFlags>(reader.readUint16());
}

HeaderReadWriteUtils::DictionaryFlags HeaderReadWriteUtils::createAndGetDictionaryFlagsUsingAttributeMap(
    const AttributeMap*) {
    return NO_FLAGS;
}

void HeaderReadWriteUtils::fetchAllHeaderAttributes(ReadOnlyByteArrayView dict,
                                                    AttributeMap* headerAttributes) {
    const int headerSize = getHeaderSize(dict);
    std::array<int, MAX_ATTRIBUTE_KEY_LENGTH> key;
    std::array<int, MAX_ATTRIBUTE_VALUE_LENGTH> value;
    ByteReader reader(dict, ATTRIBUTES_POS);
    for (size_t i = 0; i < MAX_ATTRIBUTE_COUNT && reader.ok() && reader.position() < headerSize; ++i) {
        const int keyLength = reader.readString(MAX_ATTRIBUTE_KEY_LENGTH, key.data());
        const int valueLength = reader.readString(MAX_ATTRIBUTE_VALUE_LENGTH, value.data());
        // A pair that the file's end cuts off is as good as none.
        if (!reader.ok()) return;
        headerAttributes->emplace(std::vector<int>(key.begin(), key.begin() + keyLength),
                                  std::vector<int>(value.begin(), value.begin() + valueLength));
    }
}

bool HeaderReadWriteUtils::writeDictionaryVersion(BufferWithExtendableBuffer* buffer,
                                                  FormatUtils::FORMAT_VERSION version, int* writingPos) {
    if (!buffer->writeUintAndAdvancePosition(FormatUtils::MAGIC_NUMBER, HEADER_MAGIC_NUMBER_SIZE,
                                             writingPos)) {
        return false;
    }
    switch (version) {
        case FormatUtils::VERSION_399:
        case FormatUtils::VERSION_402:
        case FormatUtils::VERSION_403:
            return buffer->writeUintAndAdvancePosition(static_cast<uint32_t>(version),
                                                       HEADER_DICTIONARY_VERSION_SIZE, writingPos);
        default:
            return false;
    }
}

bool HeaderReadWriteUtils::writeDictionaryFlags(BufferWithExtendableBuffer* buffer, DictionaryFlags flags,
                                                int* writingPos) {
    return buffer->writeUintAndAdvancePosition(flags, HEADER_FLAG_SIZE, writingPos);
}

bool HeaderReadWriteUtils::writeDictionaryHeaderSize(BufferWithExtendableBuffer* buffer, int size,
                                                     int* writingPos) {
    return buffer->writeUintAndAdvancePosition(static_cast<uint32_t>(size), HEADER_SIZE_FIELD_SIZE,
                                               writingPos);
}

bool HeaderReadWriteUtils::writeHeaderAttributes(BufferWithExtendableBuffer* buffer,
                                                 const AttributeMap* headerAttributes, int* writingPos) {
    const auto write = [&](const std::vector<int>& codePoints) {
        return buffer->writeCodePointsAndAdvancePosition(
            codePoints.data(), static_cast<int>(codePoints.size()), /* writesTerminator */ true, writingPos);
    };
    return std::all_of(headerAttributes->begin(), headerAttributes->end(), [&](const auto& attribute) {
        const auto& [key, value] = attribute;
        return key.empty() || value.empty() || (write(key) && write(value));
    });
}

void HeaderReadWriteUtils::setCodePointVectorAttribute(AttributeMap* headerAttributes, const char* key,
                                                       const std::vector<int>& value) {
    (*headerAttributes)[keyVectorOf(key)] = value;
}

void HeaderReadWriteUtils::setBoolAttribute(AttributeMap* headerAttributes, const char* key, bool value) {
    setIntAttribute(headerAttributes, key, value ? 1 : 0);
}

void HeaderReadWriteUtils::setIntAttribute(AttributeMap* headerAttributes, const char* key, int value) {
    setIntAttributeInner(headerAttributes, keyVectorOf(key), value);
}

void HeaderReadWriteUtils::setIntAttributeInner(AttributeMap* headerAttributes, const std::vector<int>& key,
                                                int value) {
    char digits[LARGEST_INT_DIGIT_COUNT + 1];
    std::snprintf(digits, sizeof(digits), "%d", value);
    std::vector<int> codePoints;
    insertCharactersIntoVector(digits, &codePoints);
    (*headerAttributes)[key] = std::move(codePoints);
}

std::vector<int> HeaderReadWriteUtils::readCodePointVectorAttributeValue(const AttributeMap* headerAttributes,
                                                                         const char* key) {
    const auto entry = headerAttributes->find(keyVectorOf(key));
    return entry == headerAttributes->end() ? std::vector<int>() : entry->second;
}

bool HeaderReadWriteUtils::readBoolAttributeValue(const AttributeMap* headerAttributes, const char* key,
                                                  bool defaultValue) {
    return readIntAttributeValue(headerAttributes, key, defaultValue ? 1 : 0) != 0;
}

int HeaderReadWriteUtils::readIntAttributeValue(const AttributeMap* headerAttributes, const char* key,
                                                int defaultValue) {
    return readIntAttributeValueInner(headerAttributes, keyVectorOf(key), defaultValue);
}

int HeaderReadWriteUtils::readIntAttributeValueInner(const AttributeMap* headerAttributes,
                                                     const std::vector<int>& key, int defaultValue) {
    const auto entry = headerAttributes->find(key);
    if (entry == headerAttributes->end()) return defaultValue;
    const std::vector<int>& text = entry->second;
    const bool isNegative = !text.empty() && text.front() == '-';
    // Unsigned, so that digits without end wrap around instead of being undefined.
    uint32_t value = 0;
    for (size_t i = isNegative ? 1 : 0; i < text.size(); ++i) {
        if (text[i] < '0' || text[i] > '9') return defaultValue;
        value = value * 10 + static_cast<uint32_t>(text[i] - '0');
    }
    return static_cast<int>(isNegative ? 0 - value : value);
}

void HeaderReadWriteUtils::insertCharactersIntoVector(const char* characters, std::vector<int>* vector) {
    for (const char* c = characters; *c != '\0'; ++c) {
        vector->push_back(static_cast<unsigned char>(*c));
    }
}

}  // namespace wordengine
