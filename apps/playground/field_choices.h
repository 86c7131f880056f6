// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/text_input_traits.h"

#include <cstddef>

namespace vorpel::playground {

/// What the text field says of itself, as a person goes through what it may be.
class FieldChoices {
public:
    void nextField();
    void nextReturn();
    void setDark(bool dark) { dark_ = dark; }

    [[nodiscard]] const char* fieldLabel() const;
    [[nodiscard]] const char* returnLabel() const;
    [[nodiscard]] bool isDark() const { return dark_; }
    [[nodiscard]] platform::TextInputTraits traits() const;

private:
    std::size_t field_ = 0;
    std::size_t return_ = 0;
    bool dark_ = false;
};

}  // namespace vorpel::playground
