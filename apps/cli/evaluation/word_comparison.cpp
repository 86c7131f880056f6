// SPDX-License-Identifier: Apache-2.0
#include "evaluation/word_comparison.h"

#include "text/char_utils.h"
#include "text/utf.h"

namespace vorpel::cli {

std::u32string comparable(const std::string& word, bool foldHamza) {
    std::u32string folded = wordengine::utf8ToUtf32Lenient(word);
    for (char32_t& character : folded) {
        character = static_cast<char32_t>(wordengine::CharUtils::toLowerCase(static_cast<int>(character)));
        const bool isHamzaAlef = character == U'أ' || character == U'إ' || character == U'آ';
        if (foldHamza && isHamzaAlef) character = U'ا';
    }
    return folded;
}

}  // namespace vorpel::cli
