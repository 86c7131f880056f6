// SPDX-License-Identifier: Apache-2.0
#include "commands.h"
#include "compiler/dictionary_builder.h"
#include "compiler/dictionary_listing.h"
#include "compiler/dictionary_verifier.h"
#include "compiler/recipe.h"
#include "compiler/version2_writer.h"
#include "storage/mmapped_buffer.h"

#include <cstdio>
#include <stdexcept>
#include <string>

namespace vorpel::cli {

int buildDict(const DictArguments& arguments) {
    const compiler::Recipe recipe = compiler::Recipe::parseFile(arguments.file);
    const compiler::BuildResult result = compiler::buildDictionary(recipe, arguments.sources);
    for (const std::string& warning : result.report.warnings) {
        std::fprintf(stderr, "vorpel: warning: %s\n", warning.c_str());
    }
    compiler::Version2Writer::writeFile(result.model, arguments.out);
    std::fprintf(stderr, "%s:\n%s", arguments.out.c_str(), result.report.summary().c_str());
    return 0;
}

int describeDict(const DictArguments& arguments) {
    const compiler::DictionaryInfo info = compiler::DictionaryListing::open(arguments.file).info();
    std::printf("format version       %d\n", info.formatVersion);
    for (const auto& [key, value] : info.attributes) std::printf("%-20s %s\n", key.c_str(), value.c_str());
    std::printf("file size            %d bytes, %d of them header\n", info.fileSize, info.headerSize);
    std::printf("words                %d\n", info.words);
    std::printf("  probability 0      %d\n", info.zeroProbabilityWords);
    std::printf("not words            %d\n", info.notWords);
    std::printf("word pairs           %d\n", info.bigrams);
    std::printf("shortcuts            %d\n", info.shortcuts);
    std::printf("  that replace       %d\n", info.whitelistShortcuts);
    return 0;
}

namespace {

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

}  // namespace

int listDict(const DictArguments& arguments) {
    compiler::DictionaryListing::open(arguments.file).forEachWord(printEntry);
    return 0;
}

int lookUpInDict(const DictArguments& arguments) {
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

int verifyDict(const DictArguments& arguments) {
    const auto file = wordengine::MmappedBuffer::openBuffer(arguments.file.c_str(), false);
    if (!file) throw std::runtime_error(arguments.file + ": cannot be opened");
    const wordengine::ReadOnlyByteArrayView content = file->getReadOnlyByteArrayView();
    const auto findings = compiler::DictionaryVerifier::verify({content.data(), content.size()});
    for (const compiler::VerifierFinding& finding : findings) {
        std::fprintf(stderr, "vorpel: %s: at byte %lld: %s\n", arguments.file.c_str(),
                     static_cast<long long>(finding.position), finding.message.c_str());
    }
    if (!findings.empty()) return 1;
    std::printf("%s: sound, all %zu bytes\n", arguments.file.c_str(), content.size());
    return 0;
}

}  // namespace vorpel::cli
