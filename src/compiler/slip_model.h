// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vorpel::compiler {

/// What single slips of the finger make of a word on the letters page of a language: a neighbouring key, a
/// letter left out, doubled or changed over with the next one.
class SlipModel {
public:
    /// Gets a form and the share of the typings of the word that come out so. A form may come more than
    /// once, by different slips.
    using Visitor = std::function<void(const std::u32string& form, double share)>;

    /// Throws std::invalid_argument for a language without a letters page.
    explicit SlipModel(const std::string& language);

    /// `word` is in small letters. Letters that have no key are never hit by mistake.
    void visitSlips(const std::u32string& word, const Visitor& visit) const;

private:
    struct Neighbour {
        char32_t letter;
        double share;
    };

    std::map<char32_t, std::vector<Neighbour>> neighbours_;
};

}  // namespace vorpel::compiler
