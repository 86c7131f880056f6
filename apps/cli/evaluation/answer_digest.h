// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "word_service.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vorpel::cli {

/// One number for a whole row of questions and answers. Two engines that answer every one alike, word
/// for word and score for score, have the same; it does not depend on time or machine.
class AnswerDigest {
public:
    /// Takes in what was asked and all of the answer but its time.
    void add(std::string_view question, const Answer& answer);

    /// Sixteen hexadecimal digits.
    [[nodiscard]] std::string toHex() const;
    [[nodiscard]] long answers() const { return answers_; }
    [[nodiscard]] long words() const { return words_; }

private:
    void addText(std::string_view text);
    void addNumber(int64_t number);
    void addByte(unsigned char byte);

    uint64_t state_ = 0xcbf29ce484222325;  // FNV-1a, 64 bits
    long answers_ = 0;
    long words_ = 0;
};

}  // namespace vorpel::cli
