// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace vorpel {

/// Whom the bar of suggestions tells what was tapped. Main thread.
class VPSuggestionsBannerDelegate {
public:
    virtual ~VPSuggestionsBannerDelegate() = default;

    /// Without the quotation marks of a word that was typed so; `tag` is the label's.
    virtual void wordTapped(const std::string& word, int tag) = 0;

    /// The settings are to be on show, or not.
    virtual void toggleSettingsView(bool shown) = 0;
};

}  // namespace vorpel
