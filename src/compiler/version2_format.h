// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace vorpel::compiler::version2 {

// The numbers of dictionary format version 2 (docs/formats/dictionary-v2.md), for writing and verifying.

inline constexpr uint32_t MAGIC_NUMBER = 0x9BC13AFE;
inline constexpr int VERSION = 2;
inline constexpr int FIXED_HEADER_SIZE = 12;
inline constexpr int MAX_ATTRIBUTE_LENGTH = 256;

inline constexpr int SMALLEST_ONE_BYTE_CODE_POINT = 0x20;
inline constexpr int LARGEST_ONE_BYTE_CODE_POINT = 0xFF;
inline constexpr int STRING_TERMINATOR = 0x1F;

inline constexpr int LARGEST_ONE_BYTE_COUNT = 0x7F;
inline constexpr int LARGEST_COUNT = 0x7FFF;
inline constexpr int LARGEST_OFFSET = 0xFFFFFF;

inline constexpr int CHILDREN_OFFSET_SIZE_SHIFT = 6;
inline constexpr int FLAG_HAS_MULTIPLE_CHARS = 0x20;
inline constexpr int FLAG_IS_TERMINAL = 0x10;
inline constexpr int FLAG_HAS_SHORTCUT_TARGETS = 0x08;
inline constexpr int FLAG_HAS_BIGRAMS = 0x04;
inline constexpr int FLAG_IS_NOT_A_WORD = 0x02;
inline constexpr int FLAG_IS_BLACKLISTED = 0x01;

inline constexpr int FLAG_ATTRIBUTE_HAS_NEXT = 0x80;
inline constexpr int FLAG_ATTRIBUTE_OFFSET_NEGATIVE = 0x40;
inline constexpr int ATTRIBUTE_OFFSET_SIZE_SHIFT = 4;
inline constexpr int MASK_ATTRIBUTE_OFFSET_SIZE = 0x03;
inline constexpr int MASK_ATTRIBUTE_STRENGTH = 0x0F;

inline constexpr int SHORTCUT_LIST_SIZE_FIELD_SIZE = 2;
inline constexpr int LARGEST_SHORTCUT_LIST = 0xFFFF;

}  // namespace vorpel::compiler::version2
