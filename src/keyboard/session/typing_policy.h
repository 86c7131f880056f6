// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/text_document_proxy.h"

namespace vorpel {

/// What a session may do with what is typed into a field. The one place that decides on privacy.
struct TypingPolicy {
    bool suggests = true;     ///< words in the bar, and what follows from them
    bool corrects = true;     ///< replaces words by itself
    bool showsPopups = true;  ///< large letters over the keys, which others may read
    bool stores = true;       ///< letters, counts and learnt words, beyond the field

    friend bool operator==(const TypingPolicy&, const TypingPolicy&) = default;
};

/// Nothing at all where the field says that it is secret or sensitive, or where the keyboard's own field
/// takes a password; no correction in addresses.
[[nodiscard]] TypingPolicy typingPolicyFor(const platform::TextDocumentProxy& field,
                                           bool ownFieldIsProtected);

}  // namespace vorpel
