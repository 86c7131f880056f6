// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/ver4_dict_constants.h"

namespace wordengine::backward::v402 {

/// The directory of the older layout, with a file for each buffer.
struct Ver4DictConstants : Ver4ContentConstants {
    static constexpr const char* TRIE_FILE_EXTENSION = ".trie";
    static constexpr const char* HEADER_FILE_EXTENSION = ".header";
    static constexpr const char* FREQ_FILE_EXTENSION = ".freq";
    static constexpr const char* TERMINAL_ADDRESS_TABLE_FILE_EXTENSION = ".tat";
    static constexpr const char* BIGRAM_FILE_EXTENSION = ".bigram_freq";
    static constexpr const char* BIGRAM_LOOKUP_TABLE_FILE_EXTENSION = ".bigram_lookup";
    static constexpr const char* BIGRAM_CONTENT_TABLE_FILE_EXTENSION = ".bigram_index_freq";
    static constexpr const char* SHORTCUT_FILE_EXTENSION = ".shortcut_shortcut";
    static constexpr const char* SHORTCUT_LOOKUP_TABLE_FILE_EXTENSION = ".shortcut_lookup";
    static constexpr const char* SHORTCUT_CONTENT_TABLE_FILE_EXTENSION = ".shortcut_index_shortcut";

    static constexpr int BIGRAM_HAS_NEXT_MASK = 0x80;
};

}  // namespace wordengine::backward::v402
