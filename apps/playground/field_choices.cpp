// SPDX-License-Identifier: Apache-2.0
#include "field_choices.h"

#include "field_traits.h"

#include <array>

namespace vorpel::playground {

namespace {

using platform::ReturnKeyType;

struct FieldKind {
    const char* name;
    const char* label;
};

struct ReturnKind {
    ReturnKeyType type;
    const char* label;
};

constexpr std::array<FieldKind, 5> FIELDS{{{"text", "Text"},
                                           {"email", "Email"},
                                           {"url", "Web address"},
                                           {"number", "Number"},
                                           {"password", "Password"}}};

// Those for which the keyboard has pages.
constexpr std::array<ReturnKind, 6> RETURNS{{{ReturnKeyType::Default, "Return"},
                                             {ReturnKeyType::Go, "Go"},
                                             {ReturnKeyType::Next, "Next"},
                                             {ReturnKeyType::Search, "Search"},
                                             {ReturnKeyType::Send, "Send"},
                                             {ReturnKeyType::Done, "Done"}}};

}  // namespace

void FieldChoices::nextField() {
    field_ = (field_ + 1) % FIELDS.size();
}

void FieldChoices::nextReturn() {
    return_ = (return_ + 1) % RETURNS.size();
}

const char* FieldChoices::fieldLabel() const {
    return FIELDS.at(field_).label;
}

const char* FieldChoices::returnLabel() const {
    return RETURNS.at(return_).label;
}

platform::TextInputTraits FieldChoices::traits() const {
    platform::TextInputTraits traits = host::traitsOfField(FIELDS.at(field_).name);
    traits.returnKeyType = RETURNS.at(return_).type;
    traits.keyboardAppearance =
        dark_ ? platform::KeyboardAppearance::Dark : platform::KeyboardAppearance::Light;
    return traits;
}

}  // namespace vorpel::playground
