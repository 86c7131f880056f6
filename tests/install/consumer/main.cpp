// SPDX-License-Identifier: Apache-2.0
#include <iostream>
#include <vorpel/platform/memory_user_defaults.h>
#include <vorpel/platform/posix/folder_bundle.h>
#include <vorpel/suggestion/vp_word_suggestions.h>

int main(int, char** arguments) {
    const vorpel::platform::FolderBundle bundle({arguments[1]});
    vorpel::platform::MemoryUserDefaults preferences;
    preferences.setString("Language", "en");
    const auto service = vorpel::VPWordSuggestions::create(bundle, preferences);
    bool canAutoCorrect = false;
    const auto words = service->getSuggestionsForWord("teh", "", {10000, 10000}, &canAutoCorrect);
    std::cerr << (words.empty() ? "nothing" : words.front()) << '\n';
}
