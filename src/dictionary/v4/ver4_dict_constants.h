// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace wordengine {

/// Sizes, in bytes, and field values that every format of the updatable dictionaries shares.
struct Ver4ContentConstants {
    static constexpr int MAX_DICTIONARY_SIZE = 8 * 1024 * 1024;
    static constexpr int MAX_DICT_EXTENDED_REGION_SIZE = 1024 * 1024;

    static constexpr int NOT_A_TERMINAL_ID = -1;
    static constexpr int PROBABILITY_SIZE = 1;
    static constexpr int FLAGS_IN_PROBABILITY_FILE_SIZE = 1;
    static constexpr int TERMINAL_ADDRESS_TABLE_ADDRESS_SIZE = 3;
    /// The count of the root's nodes lies at position 0, so no node does.
    static constexpr int NOT_A_TERMINAL_ADDRESS = 0;
    static constexpr int TERMINAL_ID_FIELD_SIZE = 4;
    static constexpr int TIME_STAMP_FIELD_SIZE = 4;
    static constexpr int WORD_LEVEL_FIELD_SIZE = 1;
    static constexpr int WORD_COUNT_FIELD_SIZE = 1;

    static constexpr int BIGRAM_ADDRESS_TABLE_BLOCK_SIZE = 16;
    static constexpr int BIGRAM_ADDRESS_TABLE_DATA_SIZE = 4;
    static constexpr int SHORTCUT_ADDRESS_TABLE_BLOCK_SIZE = 64;
    static constexpr int SHORTCUT_ADDRESS_TABLE_DATA_SIZE = 4;

    static constexpr int BIGRAM_TARGET_TERMINAL_ID_FIELD_SIZE = 3;
    static constexpr int INVALID_BIGRAM_TARGET_TERMINAL_ID = 0xFFFFFF;
    static constexpr int BIGRAM_FLAGS_FIELD_SIZE = 1;
    static constexpr int BIGRAM_PROBABILITY_MASK = 0x0F;
    static constexpr int BIGRAM_LARGE_PROBABILITY_FIELD_SIZE = 1;

    static constexpr int SHORTCUT_FLAGS_FIELD_SIZE = 1;
    static constexpr int SHORTCUT_PROBABILITY_MASK = 0x0F;
    static constexpr int SHORTCUT_HAS_NEXT_MASK = 0x80;
};

/// The directory of two files: a header, and a body of nine buffers.
struct Ver4DictConstants : Ver4ContentConstants {
    static constexpr const char* HEADER_FILE_EXTENSION = ".header";
    static constexpr const char* BODY_FILE_EXTENSION = ".body";

    static constexpr int NUM_OF_BUFFERS_FOR_SINGLE_DICT_CONTENT = 1;
    static constexpr int NUM_OF_BUFFERS_FOR_SPARSE_TABLE_DICT_CONTENT = 3;
    static constexpr int NUM_OF_BUFFERS_FOR_LANGUAGE_MODEL_DICT_CONTENT = 1;
    static constexpr int NUM_OF_CONTENT_BUFFERS_IN_BODY_FILE = 9;

    static constexpr int TRIE_BUFFER_INDEX = 0;
    static constexpr int TERMINAL_ADDRESS_LOOKUP_TABLE_BUFFER_INDEX = 1;
    static constexpr int LANGUAGE_MODEL_BUFFER_INDEX = 2;
    static constexpr int BIGRAM_BUFFERS_INDEX = 3;
    static constexpr int SHORTCUT_BUFFERS_INDEX = 6;

    static constexpr int BIGRAM_IS_LINK_MASK = 0x80;
};

}  // namespace wordengine
