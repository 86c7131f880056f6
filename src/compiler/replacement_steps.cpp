// SPDX-License-Identifier: Apache-2.0
#include "compiler/replacement_steps.h"

#include "compiler/list_readers.h"
#include "compiler/slip_steps.h"

#include <algorithm>
#include <utility>

namespace vorpel::compiler {

ReplacementSteps::Entries ReplacementSteps::run() {
    for (const CorrectionsSource& source : recipe_.corrections) {
        source.share > 0.0 ? readRuleMade(source) : readCorrections(source);
    }
    for (const ShortcutsSource& source : recipe_.shortcuts) readShortcuts(source);
    return std::move(entries_);
}

void ReplacementSteps::readCorrections(const CorrectionsSource& source) {
    std::optional<ListFile> file = opener_->open(source.file);
    if (!file) return;
    readReplacements(*file, [&](std::string_view typed, const Targets& targets) {
        if (isWord(typed)) {
            ++report_->correctionsSkipped;
            report_->warnings.push_back(file->place() + ": \"" + std::string(typed) +
                                        "\" is a word of the dictionary; the correction is skipped");
            return;
        }
        warnOfUnknownWords(*file, targets);
        addCorrection(source, typed, targets);
    });
}

/// What a rule made is judged line by line: it knows neither the words nor their frequencies.
void ReplacementSteps::readRuleMade(const CorrectionsSource& source) {
    SlipCounts slips;
    if (std::optional<ListFile> file = opener_->open(source.file)) {
        readReplacements(*file, [&](std::string_view typed, const Targets&) { slips.watch(typed); });
    }
    slips.count(*recipe_.slips, lexicon_,
                [](const Lexicon::Lexeme& lexeme) { return lexeme.probability.has_value(); });
    std::optional<ListFile> file = opener_->open(source.file);
    if (!file) return;
    readReplacements(*file, [&](std::string_view typed, const Targets& targets) {
        const bool isPlain =
            std::ranges::all_of(targets, [&](std::string_view word) { return isWord(word); });
        const double written = source.share * slips.meant(targets.front());
        if (!isPlain || slips.meant(typed) > 0.0 || isWord(typed) || slips.of(typed) > written) {
            ++report_->correctionsSkipped;
            return;
        }
        addCorrection(source, typed, targets);
    });
}

void ReplacementSteps::addCorrection(const CorrectionsSource& source, std::string_view typed,
                                     const Targets& targets) {
    WordEntry& entry = entryFor(typed, source.probability.value_or(probabilityOf(targets.front())));
    report_->corrections += addTargets(&entry, targets, WHITELIST_SHORTCUT_STRENGTH);
}

void ReplacementSteps::readShortcuts(const ShortcutsSource& source) {
    std::optional<ListFile> file = opener_->open(source.file);
    if (!file) return;
    readReplacements(*file, [&](std::string_view typed, const Targets& targets) {
        warnOfUnknownWords(*file, targets);
        WordEntry& entry = entryFor(typed, source.entryProbability);
        report_->shortcuts += addTargets(&entry, targets, source.strength);
    });
}

bool ReplacementSteps::isWord(std::string_view typed) const {
    const int index = lexicon_.find(typed);
    return index != Lexicon::NONE && lexicon_[index].probability.has_value();
}

/// 0 for what is no word of the dictionary, such as two words.
int ReplacementSteps::probabilityOf(std::string_view word) const {
    const int index = lexicon_.find(word);
    return index == Lexicon::NONE ? 0 : lexicon_[index].probability.value_or(0);
}

WordEntry& ReplacementSteps::entryFor(std::string_view typed, int probability) {
    const auto known = entries_.find(typed);
    if (known != entries_.end()) return known->second;
    WordEntry& entry = entries_[std::string(typed)];
    entry.word = typed;
    entry.probability = probability;
    entry.isNotAWord = !isWord(typed);
    return entry;
}

/// Returns how many targets were new.
int ReplacementSteps::addTargets(WordEntry* entry, const Targets& targets, int strength) {
    int added = 0;
    for (const std::string_view target : targets) {
        if (std::ranges::find(entry->shortcuts, target, &ShortcutEntry::target) != entry->shortcuts.end()) {
            continue;
        }
        entry->shortcuts.push_back({std::string(target), strength});
        ++added;
    }
    return added;
}

/// Most often a slip of the list's author.
void ReplacementSteps::warnOfUnknownWords(const ListFile& file, const Targets& targets) {
    for (const std::string_view target : targets) {
        for (const std::string_view word : splitAtBlanks(target)) {
            if (isWord(word)) continue;
            report_->warnings.push_back(file.place() + ": the target \"" + std::string(word) +
                                        "\" is not in the dictionary");
        }
    }
}

}  // namespace vorpel::compiler
