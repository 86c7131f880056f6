// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session/typing_policy.h"

namespace vorpel {

TypingPolicy typingPolicyFor(const platform::TextDocumentProxy& field, bool ownFieldIsProtected) {
    const bool isPrivate = ownFieldIsProtected || field.isSecureTextEntry().value_or(false) ||
                           field.isSensitive().value_or(false);
    if (isPrivate) return {.suggests = false, .corrects = false, .showsPopups = false, .stores = false};
    // Addresses are made of words that no dictionary has.
    const auto type = field.keyboardType();
    const bool isAddress =
        type == platform::KeyboardType::Url || type == platform::KeyboardType::EmailAddress;
    return {.corrects = !isAddress};
}

}  // namespace vorpel
