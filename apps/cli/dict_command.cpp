// SPDX-License-Identifier: Apache-2.0
#include <cstdio>
#include <fstream>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "commands.h"
#include "compiler/dictionary_builder.h"
#include "compiler/dictionary_listing.h"
#include "compiler/dictionary_verifier.h"
#include "compiler/recipe.h"
#include "compiler/version2_writer.h"

namespace vorpel::cli {

namespace {

struct DictArguments {
    std::string file;
    std::string sources;
    std::string out;
    std::vector<std::string> words;
};

int build(const DictArguments& arguments) {
    const compiler::Recipe recipe = compiler::Recipe::parseFile(arguments.file);
    const compiler::BuildResult result = compiler::buildDictionary(recipe, arguments.sources);
    for (const std::string& warning : result.report.warnings) {
        std::fprintf(stderr, "vorpel: warning: %s\n", warning.c_str());
    }
    compiler::Version2Writer::writeFile(result.model, arguments.out);
    std::fprintf(stderr, "%s:\n%s", arguments.out.c_str(), result.report.summary().c_str());
    return 0;
}

int info(const DictArguments& arguments) {
    const compiler::DictionaryInfo info = compiler::DictionaryListing::open(arguments.file).info();
    std::printf("format version       %d\n", info.formatVersion);
    for (const auto& [key, value] : info.attributes) std::printf("%-20s %s\n", key.c_str(), value.c_str());
    std::printf("file size            %d bytes, %d of them header\n", info.fileSize, info.headerSize);
    std::printf("words                %d\n", info.words);
    std::printf("  never offered      %d\n", info.zeroProbabilityWords);
    std::printf("not words            %d\n", info.notWords);
    std::printf("word pairs           %d\n", info.bigrams);
    std::printf("shortcuts            %d\n", info.shortcuts);
    std::printf("  that replace       %d\n", info.whitelistShortcuts);
    return 0;
}

/// word, probability, marks, and what else the entry holds, separated by tabs.
void printEntry(const compiler::WordEntry& entry) {
    std::printf("%s\t%d", entry.word.c_str(), entry.probability);
    if (entry.isNotAWord) std::printf("\tnot-a-word");
    if (entry.isBlacklisted) std::printf("\tblacklisted");
    for (const compiler::ShortcutEntry& shortcut : entry.shortcuts) {
        const bool replaces = shortcut.strength == compiler::WHITELIST_SHORTCUT_STRENGTH;
        std::printf("\t%s%s", replaces ? "=> " : "-> ", shortcut.target.c_str());
    }
    for (const compiler::BigramEntry& bigram : entry.bigrams) {
        std::printf("\t+%s %d", bigram.target.c_str(), bigram.strength);
    }
    std::printf("\n");
}

int words(const DictArguments& arguments) {
    compiler::DictionaryListing::open(arguments.file).forEachWord(printEntry);
    return 0;
}

int lookUp(const DictArguments& arguments) {
    const compiler::DictionaryListing listing = compiler::DictionaryListing::open(arguments.file);
    int status = 0;
    for (const std::string& word : arguments.words) {
        if (const auto entry = listing.lookup(word)) {
            printEntry(*entry);
        } else {
            std::fprintf(stderr, "vorpel: %s: no word \"%s\"\n", arguments.file.c_str(), word.c_str());
            status = 1;
        }
    }
    return status;
}

int verify(const DictArguments& arguments) {
    std::ifstream file(arguments.file, std::ios::binary);
    if (!file) throw std::runtime_error(arguments.file + ": cannot be opened");
    const std::vector<char> content{std::istreambuf_iterator<char>(file), {}};
    if (file.bad()) throw std::runtime_error(arguments.file + ": cannot be read");
    const auto* bytes = reinterpret_cast<const uint8_t*>(content.data());
    const auto findings = compiler::DictionaryVerifier::verify({bytes, content.size()});
    for (const compiler::VerifierFinding& finding : findings) {
        std::fprintf(stderr, "vorpel: %s: at byte %lld: %s\n", arguments.file.c_str(),
                     static_cast<long long>(finding.position), finding.message.c_str());
    }
    if (!findings.empty()) return 1;
    std::printf("%s: sound, all %zu bytes\n", arguments.file.c_str(), content.size());
    return 0;
}

using Run = int (*)(const DictArguments&);

CLI::App* addOne(CLI::App& dict, const char* name, const char* description, const char* example,
                 const std::shared_ptr<DictArguments>& arguments, Action& action, Run run) {
    CLI::App* command = dict.add_subcommand(name, description);
    command->footer(std::string("Example: vorpel dict ") + example);
    command->callback([arguments, &action, run] { action = [arguments, run] { return run(*arguments); }; });
    return command;
}

}  // namespace

void addDictCommand(CLI::App& app, Action& action) {
    CLI::App* dict = app.add_subcommand("dict", "Make, describe and check dictionaries");
    dict->footer("Example: vorpel dict info build/data/en_US.dic");
    dict->require_subcommand(1);
    auto arguments = std::make_shared<DictArguments>();

    CLI::App* command = addOne(*dict, "build", "Make a dictionary of what a recipe names",
                               "build data/en/en_US.recipe --sources build/sources/en --out en_US.dic",
                               arguments, action, build);
    command->add_option("RECIPE", arguments->file, "what the dictionary is made of")->required();
    command->add_option("--sources", arguments->sources, "the folder that $SOURCES stands for in the recipe");
    command->add_option("--out", arguments->out, "the file to write")->required();

    const auto addReader = [&](const char* name, const char* description, const char* example, Run run) {
        CLI::App* reader = addOne(*dict, name, description, example, arguments, action, run);
        reader->add_option("FILE", arguments->file, "the dictionary")->required();
        return reader;
    };
    addReader("info", "The header and the counts", "info en_US.dic", info);
    addReader("words", "Every entry, one a line", "words en_US.dic", words);
    addReader("verify", "Check every byte", "verify en_US.dic", verify);
    addReader("lookup", "The entries of some words", "lookup en_US.dic the dont", lookUp)
        ->add_option("WORD", arguments->words, "a word as it is spelled")
        ->required();
}

}  // namespace vorpel::cli
