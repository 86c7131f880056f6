// SPDX-License-Identifier: Apache-2.0
// Types a sentence letter by letter and prints what a keyboard would show above its keys, and the sentence
// that comes of it when every sure correction is taken.
//
//     g++ -std=c++20 banner.cpp -o banner $(pkg-config --cflags --libs vorpel)
//     ./banner $(pkg-config --variable=datadir vorpel) en how aer yuo
#include <cstddef>
#include <exception>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>
#include <vorpel/platform/memory_user_defaults.h>
#include <vorpel/platform/posix/folder_bundle.h>
#include <vorpel/suggestion/vp_word_suggestions.h>

namespace {

using Words = std::vector<std::string>;

constexpr std::size_t SHOWN = 3;

void show(const std::string& text, const Words& words) {
    std::cout << text << " |";
    for (std::size_t i = 0; i < words.size() && i < SHOWN; ++i) std::cout << ' ' << words[i];
    std::cout << '\n';
}

/// Where the next letter of UTF-8 begins.
std::size_t endOfLetter(const std::string& text, std::size_t start) {
    std::size_t end = start + 1;
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
    return end;
}

/// Asks after each letter, as a keyboard does, and returns the word as it is left behind by the space key.
std::string typeWord(vorpel::VPWordSuggestions& service, const std::string& word,
                     const std::string& previous) {
    // No touch: the middle of each key stands for it.
    constexpr vorpel::TouchPoint untouched{10000, 10000};
    bool mayReplace = false;
    Words words;
    for (std::size_t end = 0; end < word.size();) {
        end = endOfLetter(word, end);
        const std::string typed = word.substr(0, end);
        words = service.getSuggestionsForWord(typed, previous, untouched, &mayReplace);
        show(typed, words);
    }
    return mayReplace && !words.empty() ? words.front() : word;
}

std::unique_ptr<vorpel::VPWordSuggestions> open(const vorpel::platform::Bundle& resources,
                                                const vorpel::platform::UserDefaults& preferences) {
    auto service = vorpel::VPWordSuggestions::create(resources, preferences);
    if (const auto fault = service->findFault()) throw std::runtime_error(fault->text);
    return service;
}

void typeSentence(const std::string& folder, const std::string& language, const Words& typed) {
    // Both must outlive the service.
    const vorpel::platform::FolderBundle resources({folder});
    vorpel::platform::MemoryUserDefaults preferences;
    preferences.setString("Language", language);
    const auto service = open(resources, preferences);

    std::string sentence, previous;
    for (const std::string& word : typed) {
        previous = typeWord(*service, word, previous);
        sentence += previous + ' ';
        bool unused = false;
        show(sentence, service->getPredicWord("", previous, {}, &unused));
    }
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 4) {
        std::cerr << "usage: banner RESOURCE_FOLDER en|ar WORD...\n";
        return 2;
    }
    vorpel::VPWordSuggestions::setDiagnosticsStream(nullptr);
    try {
        typeSentence(arguments[1], arguments[2], Words(arguments + 3, arguments + count));
    } catch (const std::exception& error) {
        std::cerr << "banner: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
