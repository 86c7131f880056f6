// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorpel::testing {

/// A head line with the lines of the keyboard's four rows.
struct GoldenPage {
    std::string head;
    std::vector<std::string> rows;
};

/// What somebody else than the program wrote down of it, in tests/keyboard/golden.
inline std::vector<GoldenPage> readGolden(const std::string& name) {
    const std::string path = std::string(VORPEL_SOURCE_DIR "/tests/keyboard/golden/") + name;
    std::ifstream file(path);
    std::vector<GoldenPage> pages;
    GoldenPage page;
    while (std::getline(file, page.head)) {
        page.rows.resize(4);
        for (std::string& row : page.rows) {
            if (!std::getline(file, row)) throw std::runtime_error(path + ": a page ends early");
        }
        pages.push_back(page);
    }
    if (pages.empty()) throw std::runtime_error(path + ": no page found");
    return pages;
}

}  // namespace vorpel::testing
