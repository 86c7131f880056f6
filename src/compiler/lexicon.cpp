// SPDX-License-Identifier: Apache-2.0
#include "compiler/lexicon.h"

namespace vorpel::compiler {

int Lexicon::intern(std::string_view word) {
    const int known = find(word);
    if (known != NONE) return known;
    const std::string_view kept = words_.emplace_back(word);
    const int index = size();
    indexes_.emplace(kept, index);
    lexemes_.emplace_back().word = kept;
    return index;
}

int Lexicon::find(std::string_view word) const {
    const auto found = indexes_.find(word);
    return found == indexes_.end() ? NONE : found->second;
}

int Lexicon::findInDictionary(std::string_view word) const {
    int index = find(word);
    if (index != NONE && lexemes_[index].twin != NONE) index = lexemes_[index].twin;
    return index != NONE && lexemes_[index].probability ? index : NONE;
}

}  // namespace vorpel::compiler
