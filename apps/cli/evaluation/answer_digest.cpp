// SPDX-License-Identifier: Apache-2.0
#include "evaluation/answer_digest.h"

#include <cstdio>

namespace vorpel::cli {

void AnswerDigest::add(std::string_view question, const Answer& answer) {
    addText(question);
    addNumber(static_cast<int64_t>(answer.words.size()));
    for (const ScoredWord& word : answer.words) {
        addText(word.word);
        addNumber(word.score);
        addText(word.kind);
    }
    addNumber(answer.autoCorrects);
    ++answers_;
    words_ += static_cast<long>(answer.words.size());
}

std::string AnswerDigest::toHex() const {
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(state_));
    return digits;
}

/// With its length, so that no two rows of texts look alike.
void AnswerDigest::addText(std::string_view text) {
    addNumber(static_cast<int64_t>(text.size()));
    for (const char character : text) addByte(static_cast<unsigned char>(character));
}

void AnswerDigest::addNumber(int64_t number) {
    const auto bits = static_cast<uint64_t>(number);
    for (int shift = 0; shift < 64; shift += 8) addByte(static_cast<unsigned char>(bits >> shift));
}

void AnswerDigest::addByte(unsigned char byte) {
    constexpr uint64_t prime = 0x100000001b3;
    state_ = (state_ ^ byte) * prime;
}

}  // namespace vorpel::cli
