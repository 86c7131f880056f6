// SPDX-License-Identifier: Apache-2.0
#include "compiler/slip_model.h"

#include "compiler/key_page_layout.h"
#include "text/char_utils.h"

#include <cmath>

namespace vorpel::compiler {
namespace {

// Any portrait page tells which keys lie side by side.
constexpr double PAGE_WIDTH = 375;
constexpr double PAGE_HEIGHT = 216;

// Shares of the presses of one key, by the order of magnitude that studies of typing on phones give: one
// press in twenty goes wrong, mostly sideways. Distances are in key pitches.
constexpr double BESIDE = 1.2;
constexpr double BESIDE_SHARE = 0.02;
constexpr double NEAR = 1.9;
constexpr double NEAR_SHARE = 0.003;
constexpr double OMITTED_SHARE = 0.004;
constexpr double DOUBLED_SHARE = 0.003;
constexpr double SWAPPED_SHARE = 0.004;

char32_t letterOf(const KeyFrame& key) {
    return static_cast<char32_t>(wordengine::CharUtils::toLowerCase(key.codePoint));
}

}  // namespace

SlipModel::SlipModel(const std::string& language) {
    const KeyPage page = layOutKeyPage(language, 0, PAGE_WIDTH, PAGE_HEIGHT);
    const double pitch = page.keys[1].centerX() - page.keys[0].centerX();
    for (const KeyFrame& key : page.keys) {
        if (key.codePoint == ' ') continue;
        for (const KeyFrame& other : page.keys) {
            if (other.codePoint == ' ' || other.codePoint == key.codePoint) continue;
            const double distance =
                std::hypot(key.centerX() - other.centerX(), key.centerY() - other.centerY()) / pitch;
            if (distance >= NEAR) continue;
            neighbours_[letterOf(key)].push_back(
                {letterOf(other), distance < BESIDE ? BESIDE_SHARE : NEAR_SHARE});
        }
    }
}

void SlipModel::visitSlips(const std::u32string& word, const Visitor& visit) const {
    std::u32string form;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (const auto near = neighbours_.find(word[i]); near != neighbours_.end()) {
            form = word;
            for (const Neighbour& neighbour : near->second) {
                form[i] = neighbour.letter;
                visit(form, neighbour.share);
            }
        }
        visit(form.assign(word).erase(i, 1), OMITTED_SHARE);
        visit(form.assign(word).insert(i, 1, word[i]), DOUBLED_SHARE);
        if (i + 1 < word.size() && word[i] != word[i + 1]) {
            form = word;
            std::swap(form[i], form[i + 1]);
            visit(form, SWAPPED_SHARE);
        }
    }
}

}  // namespace vorpel::compiler
