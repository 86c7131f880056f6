// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/dictionary_model.h"
#include "compiler/geometry_file_writer.h"
#include "compiler/key_page_layout.h"
#include "compiler/version2_writer.h"
#include "support/temporary_folder.h"

#include <string>
#include <utility>
#include <vector>

namespace vorpel::testing {

/// A folder with the real files of a language, of as many words as a test needs.
class SmallLanguage {
public:
    explicit SmallLanguage(std::string language = "en") : language_(std::move(language)) {}

    SmallLanguage& word(const std::string& text, int probability) {
        entry(text).probability = probability;
        return *this;
    }
    SmallLanguage& pair(const std::string& first, const std::string& second, int strength) {
        entry(first).bigrams.push_back({second, strength});
        return *this;
    }
    /// A form that is no word and that a word replaces.
    SmallLanguage& correction(const std::string& typed, const std::string& intended) {
        entry(typed).isNotAWord = true;
        return shortcut(typed, intended, compiler::WHITELIST_SHORTCUT_STRENGTH);
    }
    SmallLanguage& shortcut(const std::string& from, const std::string& target, int strength) {
        entry(from).shortcuts.push_back({target, strength});
        return *this;
    }

    void writeDictionary() const { compiler::Version2Writer::writeFile(model_, dictionaryPath()); }

    void writeGeometry() const {
        const compiler::KeyPage page = compiler::layOutKeyPage(language_, 0, 375, 216);
        const auto write = [&](const std::string& name, compiler::LetterCase letterCase) {
            compiler::writeGeometryFile(folder_.path(name), page, locale(), letterCase);
        };
        if (language_ == "en") {
            write("en_US_P_113.json", compiler::LetterCase::Lower);
            write("en_US_P_81.json", compiler::LetterCase::Upper);
        } else {
            write("ar_SA_P.json", compiler::LetterCase::Lower);
        }
    }

    [[nodiscard]] std::string dictionaryPath() const { return folder_.path(locale() + ".dic"); }
    [[nodiscard]] const TemporaryFolder& folder() const { return folder_; }

private:
    [[nodiscard]] std::string locale() const { return language_ == "en" ? "en_US" : "ar_SA"; }

    compiler::WordEntry& entry(const std::string& text) {
        for (compiler::WordEntry& word : model_.words) {
            if (word.word == text) return word;
        }
        model_.words.push_back({});
        model_.words.back().word = text;
        return model_.words.back();
    }

    std::string language_;
    compiler::DictionaryModel model_{{{"locale", "test"}}, {}};
    TemporaryFolder folder_;
};

}  // namespace vorpel::testing
