// SPDX-License-Identifier: Apache-2.0
#include "platform/posix/learned_words.h"

#include "platform/characters.h"
#include "platform/posix/file_content.h"
#include "platform/posix/private_folder.h"
#include "platform/work_queue.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <mutex>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace vorpel::platform {
namespace {

bool isWord(std::string_view text) {
    const auto isControl = [](char byte) { return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7f; };
    return !text.empty() && std::ranges::none_of(text, isControl) && isWellFormedUtf8(text);
}

/// Writes what it can of the text and takes that off its front, so that another try goes on behind it.
int writeOff(int descriptor, std::string& text) {
    while (!text.empty()) {
        const ssize_t written = ::write(descriptor, text.data(), text.size());
        if (written < 0 && errno == EINTR) continue;
        if (written < 0) return errno;
        text.erase(0, static_cast<std::size_t>(written));
    }
    return ::fdatasync(descriptor) == 0 ? 0 : errno;
}

int appendOff(const std::string& path, std::string& text) {
    if (const int error = makePrivateFolderFor(path); error != 0) return error;
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor < 0) return errno;
    int error = writeOff(descriptor, text);
    if (::close(descriptor) != 0 && error == 0) error = errno;
    return error;
}

}  // namespace

/// The way to the disk of lines that are not there yet.
class LearnedWords::File {
public:
    File(std::string path, FaultReport report) : path_(std::move(path)), report_(std::move(report)) {}

    /// From now on nothing is appended.
    void leaveAlone() { leftAlone_ = true; }

    /// The file's last line has no end: the next word is to begin a new one.
    void endLineFirst() { lineIsOpen_ = true; }

    /// @return whether somebody must be asked to append
    [[nodiscard]] bool add(std::string_view text) {
        if (leftAlone_) return false;
        const std::lock_guard lock(mutex_);
        if (std::exchange(lineIsOpen_, false)) lines_ += '\n';
        lines_ += text;
        return !std::exchange(appendAwaited_, true);
    }

    void append() {
        const std::lock_guard appending(appending_);
        appendLines();
    }

    void close() {
        const std::lock_guard appending(appending_);
        appendLines();
        closed_ = true;
    }

private:
    void appendLines() {
        if (closed_) return;
        {
            const std::lock_guard lock(mutex_);
            appendAwaited_ = false;
            rest_ += std::exchange(lines_, {});
        }
        if (rest_.empty()) return;
        const int error = appendOff(path_, rest_);
        if (error == 0 || !report_) return;
        report_(path_ + ": learnt words cannot be saved: " + std::strerror(error));
    }

    const std::string path_;
    const FaultReport report_;
    bool leftAlone_ = false;

    std::mutex appending_;  // guards rest_ and closed_; held while the disk works
    std::string rest_;      // what an earlier try left over stands at its front
    bool closed_ = false;

    std::mutex mutex_;  // guards what follows
    std::string lines_;
    bool lineIsOpen_ = false;
    bool appendAwaited_ = false;
};

LearnedWords::LearnedWords(std::string path, WorkQueue& queue, FaultReport report)
    : queue_(queue), file_(std::make_shared<File>(path, report)) {
    std::string content;
    const int error = readRegularFile(path, content);
    if (error == ENOENT) return;
    if (error != 0) {
        file_->leaveAlone();
        if (report)
            report(path + ": learnt words cannot be read and will not be saved: " + std::strerror(error));
        return;
    }
    takeLines(path, content, report);
}

LearnedWords::~LearnedWords() {
    file_->close();
}

void LearnedWords::learnWord(const std::string& word) {
    if (!isWord(word) || !words_.insert(word).second) return;
    if (file_->add(word + "\n")) queue_.async([file = file_] { file->append(); });
}

bool LearnedWords::hasLearnedWord(const std::string& word) const {
    return words_.contains(word);
}

void LearnedWords::synchronize() {
    file_->append();
}

void LearnedWords::takeLines(const std::string& path, const std::string& content, const FaultReport& report) {
    std::size_t number = 0;
    std::size_t firstBad = 0;
    std::size_t badCount = 0;
    for (std::size_t start = 0; start < content.size();) {
        const std::size_t end = std::min(content.find('\n', start), content.size());
        std::string_view line = std::string_view(content).substr(start, end - start);
        if (line.ends_with('\r')) line.remove_suffix(1);
        start = end + 1;
        ++number;
        if (isWord(line)) {
            words_.emplace(line);
        } else if (!line.empty() && badCount++ == 0) {
            firstBad = number;
        }
    }
    if (badCount > 0 && report) {
        report(path + ": lines that are not words are left alone: " + std::to_string(badCount) +
               ", the first is line " + std::to_string(firstBad));
    }
    // A person, or a loss of power, may have left it so.
    if (!content.empty() && content.back() != '\n') file_->endLineFirst();
}

}  // namespace vorpel::platform
