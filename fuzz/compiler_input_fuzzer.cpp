// SPDX-License-Identifier: Apache-2.0
// What dictionaries are compiled from. An input is several files in one: a line "%NAME" begins the file of
// that name, and "%recipe" the recipe that takes them all in.
#include "compiler/dictionary_builder.h"
#include "compiler/dictionary_verifier.h"
#include "compiler/input_error.h"
#include "compiler/list_readers.h"
#include "compiler/recipe.h"
#include "compiler/version2_writer.h"
#include "support/answer_check.h"
#include "support/dictionary_probe.h"
#include "support/memory_file.h"
#include "text/diagnostics.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace vorpel::compiler;
using vorpel::testing::MemoryFile;
using vorpel::testing::require;

using Files = std::map<std::string, std::string, std::less<>>;

Files split(std::string_view input) {
    Files files;
    std::string* file = nullptr;
    while (!input.empty()) {
        const size_t end = std::min(input.find('\n'), input.size() - 1) + 1;
        const std::string_view line = input.substr(0, end);
        input.remove_prefix(end);
        if (line.front() == '%') {
            file = &files[std::string(line.substr(1, line.find_last_not_of('\n')))];
        } else if (file) {
            file->append(line);
        }
    }
    return files;
}

/// Each list by every reader there is: a reader may meet the wrong file.
void readAlone(const std::string& text) {
    const auto take = [](auto&&...) {};
    const auto tryReader = [&](auto&& read) {
        ListFile file = ListFile::fromText(text, "list");
        try {
            read(file);
        } catch (const InputError& error) {
            require(error.line <= file.lineNumber(), "an error blames a line that was read");
        }
    };
    tryReader([&](ListFile& file) { readWordCounts(file, take); });
    tryReader([&](ListFile& file) { readPairCounts(file, take); });
    tryReader([&](ListFile& file) { readArpa(file, {take, take}); });
    tryReader([&](ListFile& file) { readVocabulary(file, take); });
    tryReader([&](ListFile& file) { readWordList(file, take); });
    tryReader([&](ListFile& file) { readFloors(file, take); });
    tryReader([&](ListFile& file) { readSeed(file, take); });
    tryReader([&](ListFile& file) { readPairsSeed(file, take); });
    tryReader([&](ListFile& file) { readReplacements(file, take); });
}

/// The files of one input as the recipe finds them. A recipe may name any path; here it gets these only.
class Sources {
public:
    explicit Sources(const Files& files) {
        for (const auto& [name, text] : files) files_.try_emplace(name, text);
    }

    /// Keeps the first entry of a list, if the input has a file for it.
    template <typename Entry>
    void give(const char* name, std::vector<Entry>* entries, SourceFile Entry::*place) const {
        entries->resize(files_.contains(name) && !entries->empty() ? 1 : 0);
        for (Entry& entry : *entries) give(name, &(entry.*place));
    }
    void give(const char* name, std::vector<SourceFile>* entries) const {
        entries->resize(files_.contains(name) && !entries->empty() ? 1 : 0);
        for (SourceFile& entry : *entries) give(name, &entry);
    }
    void give(const char* name, std::optional<SourceFile>* entry) const {
        if (!files_.contains(name)) entry->reset();
        if (*entry) give(name, &**entry);
    }

private:
    void give(const char* name, SourceFile* file) const { file->path = files_.find(name)->second.path(); }

    std::map<std::string, MemoryFile, std::less<>> files_;
};

void build(Recipe recipe, const Files& files) {
    const Sources sources(files);
    sources.give("words", &recipe.words, &WordSource::file);
    sources.give("arpa", &recipe.arpas, &ArpaSource::file);
    sources.give("vocabulary", &recipe.vocabularies);
    sources.give("floor", &recipe.floors);
    sources.give("seed", &recipe.seeds, &SeedSource::file);
    sources.give("exclude", &recipe.excludes);
    sources.give("offensive", &recipe.offensives);
    sources.give("ngrams", &recipe.ngrams, &NgramSource::file);
    sources.give("pairs-seed", &recipe.pairsSeeds, &PairsSeedSource::file);
    sources.give("corrections", &recipe.corrections, &CorrectionsSource::file);
    sources.give("shortcuts", &recipe.shortcuts, &ShortcutsSource::file);
    if (recipe.caseTwins) sources.give("keep", &recipe.caseTwins->keep);
    const BuildResult result = buildDictionary(recipe, "");
    const std::vector<uint8_t> bytes = Version2Writer::write(result.model);
    require(DictionaryVerifier::verify(bytes).empty(), "what is compiled is sound");
    vorpel::testing::DictionaryProbe(bytes).run();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    wordengine::Diagnostics::setStream(nullptr);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const Files files = split({reinterpret_cast<const char*>(data), size});
    for (const auto& [name, text] : files) readAlone(text);
    const auto recipe = files.find("recipe");
    if (recipe == files.end()) return 0;
    try {
        build(Recipe::parseText(recipe->second, "recipe"), files);
    } catch (const CompileError&) {
        // Faulty, and told so.
    }
    return 0;
}
