// SPDX-License-Identifier: Apache-2.0
#include "compiler/dictionary_verifier.h"

#include "compiler/version2_format.h"
#include "storage/byte_reader.h"
#include "text/engine_constants.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace vorpel::compiler {
namespace {

using wordengine::ByteReader;

/// Keeps sums of positions and offsets within an int.
constexpr size_t LARGEST_FILE = size_t{1} << 30;

/// A node whose children are still to be visited.
struct PendingChildren {
    int field;
    int array;
    int wordLength;
};

struct BigramTarget {
    int field;
    int target;
};

class Verification {
public:
    explicit Verification(std::span<const uint8_t> file)
        : file_(file), size_(static_cast<int>(file.size())) {}

    std::vector<VerifierFinding> run() {
        if (verifyHeader()) {
            expected_ = body_;
            verifyArray(body_, 0);
            if (expected_ != size_) {
                report(expected_, std::to_string(size_ - expected_) + " bytes that nothing leads to");
            }
            verifyBigramTargets();
        }
        std::ranges::stable_sort(findings_, {}, &VerifierFinding::position);
        return std::move(findings_);
    }

private:
    void report(int position, std::string message) {
        if (findings_.size() < DictionaryVerifier::MAX_FINDINGS) {
            findings_.push_back({position, std::move(message)});
        }
    }

    bool verifyHeader();
    void verifyAttribute(ByteReader* reader, std::set<std::u32string>* keys);
    void verifyArray(int array, int wordLength);
    bool verifyNode(ByteReader* reader, int wordLength, std::vector<int>* firstLetters,
                    std::vector<PendingChildren>* pending);
    void verifyFlags(int node, int flags);
    int verifyLabel(ByteReader* reader, int flags, int* first);
    void verifyCodePoint(int position, int codePoint, bool mayBeSpace);
    bool verifyShortcuts(ByteReader* reader);
    void verifyShortcut(ByteReader* reader);
    bool verifyBigrams(ByteReader* reader);
    void verifyBigramTargets();
    void verifyChildren(const PendingChildren& children);

    std::span<const uint8_t> file_;
    int size_;
    int body_ = 0;
    /// Where the next array has to begin: the end of the one before it.
    int expected_ = 0;
    /// In rising order, since arrays are visited in rising order.
    std::vector<int> terminals_;
    std::vector<BigramTarget> targets_;
    std::vector<VerifierFinding> findings_;
};

bool Verification::verifyHeader() {
    if (size_ < version2::FIXED_HEADER_SIZE) {
        report(0, "too short for a dictionary");
        return false;
    }
    ByteReader reader(file_.data(), size_);
    if (reader.readUint32() != version2::MAGIC_NUMBER) {
        report(0, "no dictionary: the first four bytes are others");
        return false;
    }
    if (const uint32_t version = reader.readUint16(); version != version2::VERSION) {
        report(4, "format version " + std::to_string(version) + ", not 2");
        return false;
    }
    if (reader.readUint16() != 0) report(6, "flags that are not 0");
    const uint32_t headerSize = reader.readUint32();
    if (headerSize < version2::FIXED_HEADER_SIZE || headerSize > static_cast<uint32_t>(size_)) {
        report(8,
               "a header size of " + std::to_string(headerSize) + " in a file of " + std::to_string(size_));
        return false;
    }
    body_ = static_cast<int>(headerSize);
    ByteReader attributes(file_.data(), body_, version2::FIXED_HEADER_SIZE);
    std::set<std::u32string> keys;
    while (attributes.ok() && attributes.remaining() > 0) verifyAttribute(&attributes, &keys);
    return true;
}

void Verification::verifyAttribute(ByteReader* reader, std::set<std::u32string>* keys) {
    for (const char* part : {"key", "value"}) {
        const int begin = reader->position();
        std::u32string text;
        int position = begin;
        for (int c = reader->readCodePoint(); c != wordengine::NO_CODE_POINT; c = reader->readCodePoint()) {
            verifyCodePoint(position, c, true);
            text += static_cast<char32_t>(c);
            position = reader->position();
        }
        const std::string what = std::string("an attribute's ") + part;
        if (!reader->ok()) report(begin, what + " does not end inside the header");
        if (text.empty()) report(begin, what + " is empty");
        if (text.size() > static_cast<size_t>(version2::MAX_ATTRIBUTE_LENGTH)) {
            report(begin, what + " has more than 256 code points");
        }
        if (part[0] == 'k' && !keys->insert(text).second) report(begin, what + " stands twice");
        if (!reader->ok()) return;
    }
}

/// Calls itself once a level; a level adds a code point, and words of more than 48 are not followed.
void Verification::verifyArray(int array, int wordLength) {
    ByteReader reader(file_.data(), size_, array);
    int count = static_cast<int>(reader.readUint8());
    if (count > version2::LARGEST_ONE_BYTE_COUNT) {
        count = ((count & version2::LARGEST_ONE_BYTE_COUNT) << 8) | static_cast<int>(reader.readUint8());
    }
    if (count == 0 && array != body_) report(array, "an array without nodes");
    std::vector<PendingChildren> pending;
    std::vector<int> firstLetters;
    bool isWhole = reader.ok();
    for (int i = 0; isWhole && i < count; ++i) {
        isWhole = verifyNode(&reader, wordLength, &firstLetters, &pending);
    }
    if (!isWhole) report(array, "an array of nodes that does not end inside the file");
    expected_ = isWhole ? reader.position() : size_;
    std::ranges::sort(firstLetters);
    if (std::ranges::adjacent_find(firstLetters) != firstLetters.end()) {
        report(array, "two nodes of one array begin with the same letter");
    }
    for (const PendingChildren& children : pending) verifyChildren(children);
}

void Verification::verifyChildren(const PendingChildren& children) {
    if (children.array >= size_) {
        report(children.field, "children outside the file");
    } else if (children.array < expected_) {
        report(children.field, "children inside what was read before");
    } else if (children.wordLength >= wordengine::WORD_LENGTH_LIMIT) {
        report(children.field, "words of more than 48 code points");
    } else {
        if (children.array > expected_) {
            report(expected_, std::to_string(children.array - expected_) + " bytes that nothing leads to");
        }
        verifyArray(children.array, children.wordLength);
    }
}

/// False when the file ends inside the node.
bool Verification::verifyNode(ByteReader* reader, int wordLength, std::vector<int>* firstLetters,
                              std::vector<PendingChildren>* pending) {
    const int node = reader->position();
    const int flags = static_cast<int>(reader->readUint8());
    verifyFlags(node, flags);
    int first = wordengine::NO_CODE_POINT;
    const int length = verifyLabel(reader, flags, &first);
    firstLetters->push_back(first);
    if (wordLength + length > wordengine::WORD_LENGTH_LIMIT) {
        report(node, "a word of more than 48 code points");
    }
    if (flags & version2::FLAG_IS_TERMINAL) {
        reader->readUint8();
        terminals_.push_back(node);
    }
    if (const int offsetSize = flags >> version2::CHILDREN_OFFSET_SIZE_SHIFT; offsetSize > 0) {
        const int field = reader->position();
        // A node without letters counts as one, so that arrays nest no deeper than words are long.
        const int offset = static_cast<int>(reader->readUint(offsetSize));
        pending->push_back({field, field + offset, wordLength + std::max(length, 1)});
    }
    if ((flags & version2::FLAG_HAS_SHORTCUT_TARGETS) && !verifyShortcuts(reader)) return false;
    if ((flags & version2::FLAG_HAS_BIGRAMS) && !verifyBigrams(reader)) return false;
    return reader->ok();
}

void Verification::verifyFlags(int node, int flags) {
    if (flags & version2::FLAG_IS_TERMINAL) return;
    constexpr int ONLY_FOR_WORDS = version2::FLAG_HAS_SHORTCUT_TARGETS | version2::FLAG_HAS_BIGRAMS |
                                   version2::FLAG_IS_NOT_A_WORD | version2::FLAG_IS_BLACKLISTED;
    if (flags & ONLY_FOR_WORDS) report(node, "marks of a word on a node where no word ends");
    if (flags >> version2::CHILDREN_OFFSET_SIZE_SHIFT == 0) report(node, "a node that leads to no word");
}

/// The number of code points of a node, the first of them in `first`.
int Verification::verifyLabel(ByteReader* reader, int flags, int* first) {
    const int begin = reader->position();
    const bool hasMany = (flags & version2::FLAG_HAS_MULTIPLE_CHARS) != 0;
    int length = 0;
    int position = begin;
    for (int c = reader->readCodePoint(); c != wordengine::NO_CODE_POINT; c = reader->readCodePoint()) {
        verifyCodePoint(position, c, false);
        if (++length == 1) *first = c;
        if (!hasMany || length > wordengine::WORD_LENGTH_LIMIT) break;
        position = reader->position();
    }
    if (length == 0) report(begin, "a node without letters");
    return length;
}

void Verification::verifyCodePoint(int position, int c, bool mayBeSpace) {
    if (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) {
        report(position, "a code point that does not exist");
    }
    if (c == wordengine::CODE_POINT_SPACE && !mayBeSpace) report(position, "a space in a word");
    if (file_[static_cast<size_t>(position)] < version2::SMALLEST_ONE_BYTE_CODE_POINT &&
        c >= version2::SMALLEST_ONE_BYTE_CODE_POINT && c <= version2::LARGEST_ONE_BYTE_CODE_POINT) {
        report(position, "a code point in three bytes that fits one");
    }
}

/// False when the list's end cannot be told.
bool Verification::verifyShortcuts(ByteReader* reader) {
    const int begin = reader->position();
    const int end = begin + static_cast<int>(reader->readUint16());
    if (!reader->ok() || end > size_ || end < reader->position()) {
        report(begin, "a shortcut list whose size cannot be");
        return false;
    }
    ByteReader list(file_.data(), end, reader->position());
    int flags = version2::FLAG_ATTRIBUTE_HAS_NEXT;
    while ((flags & version2::FLAG_ATTRIBUTE_HAS_NEXT) && list.ok()) {
        const int entry = list.position();
        flags = static_cast<int>(list.readUint8());
        if (flags & ~(version2::FLAG_ATTRIBUTE_HAS_NEXT | version2::MASK_ATTRIBUTE_STRENGTH)) {
            report(entry, "a shortcut with unknown flags");
        }
        verifyShortcut(&list);
    }
    if (!list.ok()) report(begin, "a shortcut list that is longer than its size");
    if (list.ok() && list.remaining() > 0)
        report(list.position(), "a shortcut list that ends before its size");
    reader->seek(end);
    return true;
}

void Verification::verifyShortcut(ByteReader* reader) {
    const int begin = reader->position();
    int length = 0;
    int position = begin;
    for (int c = reader->readCodePoint(); c != wordengine::NO_CODE_POINT; c = reader->readCodePoint()) {
        verifyCodePoint(position, c, true);
        ++length;
        position = reader->position();
    }
    if (length == 0) report(begin, "an empty shortcut target");
    if (length > wordengine::WORD_LENGTH_LIMIT)
        report(begin, "a shortcut target of more than 48 code points");
}

/// False when the file ends inside the list.
bool Verification::verifyBigrams(ByteReader* reader) {
    const size_t firstTarget = targets_.size();
    const int begin = reader->position();
    int flags = version2::FLAG_ATTRIBUTE_HAS_NEXT;
    while ((flags & version2::FLAG_ATTRIBUTE_HAS_NEXT) && reader->ok()) {
        const int entry = reader->position();
        flags = static_cast<int>(reader->readUint8());
        const int field = reader->position();
        const int size =
            (flags >> version2::ATTRIBUTE_OFFSET_SIZE_SHIFT) & version2::MASK_ATTRIBUTE_OFFSET_SIZE;
        if (size == 0) report(entry, "a bigram without an offset");
        const int offset = size == 0 ? 0 : static_cast<int>(reader->readUint(size));
        targets_.push_back(
            {field, (flags & version2::FLAG_ATTRIBUTE_OFFSET_NEGATIVE) ? field - offset : field + offset});
    }
    std::vector<int> targets;
    for (size_t i = firstTarget; i < targets_.size(); ++i) targets.push_back(targets_[i].target);
    std::ranges::sort(targets);
    if (std::ranges::adjacent_find(targets) != targets.end()) report(begin, "two bigrams to the same word");
    return reader->ok();
}

void Verification::verifyBigramTargets() {
    for (const BigramTarget& bigram : targets_) {
        if (!std::ranges::binary_search(terminals_, bigram.target)) {
            report(bigram.field, "a bigram that leads to no word");
        }
    }
}

}  // namespace

std::vector<VerifierFinding> DictionaryVerifier::verify(std::span<const uint8_t> file) {
    if (file.size() > LARGEST_FILE) return {{0, "larger than any dictionary of this format"}};
    return Verification(file).run();
}

}  // namespace vorpel::compiler
