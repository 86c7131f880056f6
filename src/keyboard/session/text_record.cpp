// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session/text_record.h"

#include "platform/characters.h"

#include <algorithm>
#include <utility>

namespace vorpel {

namespace {

// In seconds.
constexpr double LONGEST_DELAY = 2;

// In bytes. No word reaches farther back, and every key costs a look at all of it.
constexpr std::size_t LONGEST_TEXT = 2048;

std::string lastPart(const std::string& text) {
    if (text.size() <= LONGEST_TEXT) return text;
    return text.substr(platform::characterBoundaryFrom(text, text.size() - LONGEST_TEXT));
}

bool beginsCodePoint(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

/// The text goes on behind the part, by no more than a few characters.
bool holdsAtItsEnd(std::string_view text, std::string_view part) {
    constexpr std::size_t MOST_BEHIND = 64;
    const std::size_t at = part.empty() ? 0 : text.rfind(part);
    return at != std::string_view::npos && text.size() - at - part.size() <= MOST_BEHIND;
}

bool agree(std::string_view a, std::string_view b) {
    return a.ends_with(b) || b.ends_with(a);
}

}  // namespace

/// The answer is the text as it was before the last strokes. `missing` becomes how many bytes those typed.
bool TextRecord::mayBeLate(std::string_view answer, double now, std::size_t* missing) const {
    const std::string known = before().value_or("");
    const std::string_view text = known;
    const auto isOld = [now](const Stroke& stroke) { return stroke.time < now - LONGEST_DELAY; };
    const auto lastOld = std::find_if(strokes_.rbegin(), strokes_.rend(), isOld);
    const std::size_t fresh = typed_.size() - (lastOld == strokes_.rend() ? 0 : lastOld->end);
    const std::size_t most = isPrompt_ ? 0 : fresh;
    for (std::size_t size = 0; size <= most; ++size) {
        *missing = size;
        const std::string_view earlier = text.substr(0, text.size() - size);
        // Fields may show only the last part of a text, but nothing is no part of one.
        if (earlier.empty() || answer.empty() ? earlier == answer : agree(earlier, answer)) return true;
    }
    return false;
}

TextRecord::Told TextRecord::tell(const std::optional<std::string>& before,
                                  const std::optional<std::string>& after, double now) {
    std::size_t missing = 0;
    const std::string answer = before.value_or("");
    const bool isKnown =
        !typed_.empty() && after.value_or("") == after_.value_or("") && mayBeLate(answer, now, &missing);
    if (!isKnown) {
        const bool same = typed_.empty() && lastPart(answer) == told_.value_or("") &&
                          after.value_or("") == after_.value_or("");
        take(before, after);
        return same ? Told::Known : Told::Different;
    }
    if (missing > 0) {
        // It may also be that somebody took these letters away.
        sureFrom_ = typed_.size();
    } else if (answer.size() > typed_.size()) {
        told_ = lastPart(answer.substr(0, answer.size() - typed_.size()));
        sureFrom_ = 0;
        isAnswerSure_ = true;
    }
    return Told::Known;
}

void TextRecord::take(const std::optional<std::string>& before, const std::optional<std::string>& after) {
    told_ = before ? std::optional(lastPart(*before)) : std::nullopt;
    after_ = after;
    typed_.clear();
    strokes_.clear();
    sureFrom_ = 0;
    isAnswerSure_ = true;
    isPrompt_ = false;
}

void TextRecord::insert(const std::string& text, const std::optional<KeyOffset>& offset,
                        const std::optional<std::string>& answer, double now) {
    typed_ += text;
    strokes_.push_back({typed_.size(), offset, now});
    const bool wasPrompt = std::exchange(isPrompt_, shows(answer));
    // A field that takes no more letters, or not these.
    if (wasPrompt && !isPrompt_) sureFrom_ = typed_.size();
    if (typed_.size() > 2 * LONGEST_TEXT) forgetOldStrokes();
}

void TextRecord::forgetOldStrokes() {
    const std::size_t size = platform::characterBoundaryFrom(typed_, typed_.size() - LONGEST_TEXT);
    told_ = lastPart(typed_.substr(0, size));
    isAnswerSure_ = isAnswerSure_ && sureFrom_ == 0;
    sureFrom_ -= std::min(sureFrom_, size);
    typed_.erase(0, size);
    std::erase_if(strokes_, [size](const Stroke& stroke) { return stroke.end <= size; });
    for (Stroke& stroke : strokes_) stroke.end -= size;
}

/// Whether the answer is, or ends in, what is known.
bool TextRecord::shows(const std::optional<std::string>& answer) const {
    const std::string known = before().value_or("");
    const std::string text = answer.value_or("");
    return known.empty() || text.empty() ? known == text : agree(known, text);
}

void TextRecord::deleteBackward(const std::optional<std::string>& answer) {
    if (!typed_.empty()) {
        // What was typed may have joined the character before it.
        const std::string told = told_.value_or("");
        const std::string left = platform::withoutLastCharacter(told + typed_);
        typed_ = left.size() > told.size() ? left.substr(told.size()) : "";
        if (left.size() < told.size()) told_ = left;
        sureFrom_ = std::min(sureFrom_, typed_.size());
        std::erase_if(strokes_, [this](const Stroke& stroke) { return stroke.end > typed_.size(); });
        isPrompt_ = shows(answer);
        return;
    }
    deleteTold(answer);
}

/// A field that is late still shows what is gone; one that shows less has lost a selection too, or holds
/// another text.
void TextRecord::deleteTold(const std::optional<std::string>& answer) {
    const std::string old = told_.value_or("");
    const std::string left = platform::withoutLastCharacter(old);
    const std::string text = lastPart(answer.value_or(""));
    if (left.empty() || text.empty() ? left == text : agree(left, text)) {
        told_ = answer ? std::optional(left) : std::nullopt;
        isAnswerSure_ = true;
    } else if (isPrompt_ && text == old) {
        isAnswerSure_ = true;  // a selection went in place of the character
    } else if (holdsAtItsEnd(text, left)) {
        told_ = left;
        isAnswerSure_ = false;
    } else {
        told_ = text;
        isAnswerSure_ = true;
    }
}

void TextRecord::moveCursor(int characters, const std::optional<std::string>& before,
                            const std::optional<std::string>& after) {
    const std::string old = this->before().value_or("");
    take(before, after);
    if (old.empty() || lastPart(before.value_or("")) != lastPart(old)) return;
    // At the end of the text, or the answer is late.
    if (characters < 0) told_ = platform::withoutLastCharacter(lastPart(old));
    isAnswerSure_ = false;
}

std::optional<std::string> TextRecord::before() const {
    if (!told_ && typed_.empty()) return std::nullopt;
    return told_.value_or("") + typed_;
}

bool TextRecord::isSure(std::size_t size) const {
    return size <= typed_.size() - sureFrom_ || (sureFrom_ == 0 && isAnswerSure_);
}

std::vector<std::optional<KeyOffset>> TextRecord::offsetsOf(std::string_view word) const {
    std::vector<std::optional<KeyOffset>> offsets;
    const std::size_t typed = std::min(word.size(), typed_.size());
    const std::size_t at = typed_.size() - typed;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (!beginsCodePoint(word[i])) continue;
        offsets.emplace_back();
        if (i < word.size() - typed) continue;
        // Each stroke typed one code point; one that typed more was not touched letter by letter.
        const std::size_t begin = at + i - (word.size() - typed);
        const auto stroke = std::ranges::find_if(
            strokes_, [begin](const Stroke& candidate) { return candidate.end > begin; });
        if (stroke != strokes_.end()) offsets.back() = stroke->offset;
    }
    return offsets;
}

}  // namespace vorpel
