// SPDX-License-Identifier: Apache-2.0
#include "keyboard/model/keyboard.h"

#include <utility>

namespace vorpel {

void Page::addKey(std::unique_ptr<Key> key, std::size_t row) {
    if (rows.size() <= row) rows.resize(row + 1);
    rows[row].push_back(std::move(key));
}

void Keyboard::addKey(std::unique_ptr<Key> key, std::size_t row, std::size_t page) {
    if (pages.size() <= page) pages.resize(page + 1);
    pages[page].addKey(std::move(key), row);
}

}  // namespace vorpel
