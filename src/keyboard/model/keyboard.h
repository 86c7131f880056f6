// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/model/key.h"

#include <memory>
#include <vector>

namespace vorpel {

/// Keys from left to right.
using KeyRow = std::vector<std::unique_ptr<Key>>;

/// Rows from top to bottom.
class Page {
public:
    std::vector<KeyRow> rows;

    /// At the end of the row; rows that are missing up to it come to be, empty.
    void addKey(std::unique_ptr<Key> key, std::size_t row);
};

/// What keys exist, page by page; where they lie and how they look is not known here. It owns its keys, which
/// keep their place in memory.
class Keyboard {
public:
    std::vector<Page> pages;

    /// As the page's own; pages that are missing up to it come to be, empty.
    void addKey(std::unique_ptr<Key> key, std::size_t row, std::size_t page);
};

}  // namespace vorpel
