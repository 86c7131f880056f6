// SPDX-License-Identifier: Apache-2.0
#include "field_traits.h"

namespace vorpel::host {

platform::TextInputTraits traitsOfField(const std::string& field) {
    using platform::KeyboardType;
    platform::TextInputTraits traits;
    traits.autocapitalizationType = platform::AutocapitalizationType::None;
    traits.returnKeyType = platform::ReturnKeyType::Default;
    traits.keyboardType = KeyboardType::Default;
    if (field == "text") traits.autocapitalizationType = platform::AutocapitalizationType::Sentences;
    if (field == "email") traits.keyboardType = KeyboardType::EmailAddress;
    if (field == "url") traits.keyboardType = KeyboardType::Url;
    if (field == "number") traits.keyboardType = KeyboardType::NumberPad;
    if (field == "password") traits.isSecureTextEntry = true;
    return traits;
}

}  // namespace vorpel::host
