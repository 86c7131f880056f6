// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "platform/posix/fault_report.h"
#include "platform/text_checker.h"

#include <memory>
#include <string>
#include <unordered_set>

namespace vorpel::platform {

class WorkQueue;

/// Learnt words that last: a UTF-8 text file with one word a line, which a person may edit while no keyboard
/// runs. New words are soon appended on a work queue; what stands in the file is never changed. Only its
/// owner can read a file that is made here.
class LearnedWords final : public TextChecker {
public:
    /// Reads the file; a missing one is empty. One that cannot be read is reported, and nothing is appended
    /// to it. Lines that are not words are reported and left alone. The queue must outlive the object, but
    /// may drop what it was handed.
    LearnedWords(std::string path, WorkQueue& queue, FaultReport report);

    /// Appends what is not appended yet. Nothing is reported after this.
    ~LearnedWords() override;
    LearnedWords(const LearnedWords&) = delete;
    LearnedWords& operator=(const LearnedWords&) = delete;

    /// A text that is not UTF-8, is empty or holds a control character is no word: it is not learnt.
    void learnWord(const std::string& word) override;
    [[nodiscard]] bool hasLearnedWord(const std::string& word) const override;

    /// Returns once the words learnt so far would outlast the process; if that fails, it is reported and
    /// tried again with the next word.
    void synchronize();

private:
    class File;
    void takeLines(const std::string& path, const std::string& content, const FaultReport& report);

    WorkQueue& queue_;
    std::unordered_set<std::string> words_;
    std::shared_ptr<File> file_;  // shared with what stands in the queue
};

}  // namespace vorpel::platform
