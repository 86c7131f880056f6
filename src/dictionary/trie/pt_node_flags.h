// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

namespace wordengine {

using NodeFlags = uint8_t;

/// The bits of a node's flags byte that mean the same in every format.
struct PtNodeFlags {
    static constexpr NodeFlags FLAG_HAS_MULTIPLE_CHARS = 0x20;
    static constexpr NodeFlags FLAG_IS_TERMINAL = 0x10;
    static constexpr NodeFlags FLAG_HAS_SHORTCUT_TARGETS = 0x08;
    static constexpr NodeFlags FLAG_HAS_BIGRAMS = 0x04;
    static constexpr NodeFlags FLAG_IS_NOT_A_WORD = 0x02;
    static constexpr NodeFlags FLAG_IS_BLACKLISTED = 0x01;
};

/// The top two bits in formats whose nodes can change; elsewhere they mean something else.
struct PtNodeStateFlags {
    static constexpr NodeFlags MASK_MOVED = 0xC0;
    static constexpr NodeFlags FLAG_IS_NOT_MOVED = 0xC0;
    static constexpr NodeFlags FLAG_IS_MOVED = 0x40;
    static constexpr NodeFlags FLAG_IS_DELETED = 0x80;
    static constexpr NodeFlags FLAG_WILL_BECOME_NON_TERMINAL = 0x00;
};

}  // namespace wordengine
