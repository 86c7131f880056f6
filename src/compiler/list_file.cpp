// SPDX-License-Identifier: Apache-2.0
#include "compiler/list_file.h"

#include "text/utf.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <fstream>

namespace vorpel::compiler {
namespace {

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";
constexpr std::string_view BLANKS = " \t";

template <typename Number>
bool parseWhole(std::string_view text, Number* out) {
    const char* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, *out);
    return error == std::errc() && rest == end;
}

}  // namespace

std::string readWholeFile(const std::string& path) {
    errno = 0;
    std::ifstream stream(path, std::ios::binary);
    std::string text;
    if (stream) text.assign(std::istreambuf_iterator<char>(stream), {});
    if (!stream || stream.bad()) {
        throw InputError(path, 0, "cannot be read: " + std::string(std::strerror(errno != 0 ? errno : EIO)));
    }
    return text;
}

ListFile::ListFile(std::string text, std::string path) : path_(std::move(path)), text_(std::move(text)) {
    if (std::string_view(text_).starts_with(BYTE_ORDER_MARK)) position_ = BYTE_ORDER_MARK.size();
}

ListFile ListFile::open(const std::string& path) {
    return ListFile(readWholeFile(path), path);
}

ListFile ListFile::fromText(std::string text, const std::string& path) {
    return ListFile(std::move(text), path);
}

bool ListFile::next(std::string_view* line) {
    while (position_ < text_.size()) {
        const size_t end = std::min(text_.find('\n', position_), text_.size());
        *line = std::string_view(text_).substr(position_, end - position_);
        position_ = end + 1;
        ++lineNumber_;
        if (line->ends_with('\r')) line->remove_suffix(1);
        if (trimmed(*line).empty() || line->front() == '#') continue;
        if (!wordengine::isValidUtf8(*line)) throw error("the line is not UTF-8");
        return true;
    }
    return false;
}

std::vector<std::string_view> splitAt(std::string_view line, char separator) {
    std::vector<std::string_view> parts;
    while (true) {
        const size_t end = line.find(separator);
        parts.push_back(line.substr(0, end));
        if (end == std::string_view::npos) return parts;
        line.remove_prefix(end + 1);
    }
}

std::vector<std::string_view> splitAtBlanks(std::string_view line) {
    std::vector<std::string_view> parts;
    while (true) {
        line = trimmed(line);
        if (line.empty()) return parts;
        const size_t end = std::min(line.find_first_of(BLANKS), line.size());
        parts.push_back(line.substr(0, end));
        line.remove_prefix(end);
    }
}

std::string_view trimmed(std::string_view text) {
    const size_t first = text.find_first_not_of(BLANKS);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(BLANKS) - first + 1);
}

bool parseNumber(std::string_view text, double* out) {
    return parseWhole(text, out) && std::isfinite(*out);
}

bool parseNumber(std::string_view text, int* out) {
    return parseWhole(text, out);
}

}  // namespace vorpel::compiler
