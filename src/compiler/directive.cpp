// SPDX-License-Identifier: Apache-2.0
#include "compiler/directive.h"

#include "compiler/list_file.h"

#include <algorithm>
#include <sstream>

namespace vorpel::compiler {
namespace {

bool isBlank(char c) {
    return c == ' ' || c == '\t';
}

bool isOptionKeyCharacter(char c) {
    return (c >= 'a' && c <= 'z') || c == '-';
}

/// The place of '=' in "key=value", npos in anything else.
size_t endOfKey(std::string_view token) {
    const size_t equals = token.find('=');
    if (equals == 0 || equals == std::string_view::npos) return std::string_view::npos;
    return std::ranges::all_of(token.substr(0, equals), isOptionKeyCharacter) ? equals
                                                                              : std::string_view::npos;
}

std::string plain(double number) {
    std::ostringstream text;
    text << number;
    return text.str();
}

}  // namespace

std::optional<Directive> Directive::parse(std::string_view line, const std::string& recipePath,
                                          int lineNumber) {
    Directive directive(recipePath, lineNumber);
    std::vector<Token> tokens = directive.tokenize(line);
    if (tokens.empty()) return std::nullopt;
    directive.sortTokens(std::move(tokens));
    return directive;
}

std::vector<Directive::Token> Directive::tokenize(std::string_view line) const {
    std::vector<Token> tokens;
    bool isInToken = false;
    bool isQuoted = false;
    for (const char c : line) {
        if (!isQuoted && isBlank(c)) {
            isInToken = false;
            continue;
        }
        if (!isInToken) {
            if (c == '#') break;
            tokens.push_back({"", c == '"'});
            isInToken = true;
        }
        if (c == '"') {
            isQuoted = !isQuoted;
        } else {
            tokens.back().text += c;
        }
    }
    if (isQuoted) throw error("a quotation mark that is not closed");
    return tokens;
}

void Directive::sortTokens(std::vector<Token> tokens) {
    name_ = tokens.front().text;
    // The value of an attribute may be any text.
    const bool takesOptions = name_ != "attribute";
    for (size_t i = 1; i < tokens.size(); ++i) {
        const std::string& text = tokens[i].text;
        const bool isPlain = takesOptions && !tokens[i].beginsQuoted;
        const size_t equals = isPlain ? endOfKey(text) : std::string::npos;
        if (equals != std::string::npos) {
            const std::string key = text.substr(0, equals);
            const bool isNew =
                std::ranges::none_of(options_, [&key](const auto& option) { return option.first == key; });
            if (!isNew) throw error("the option \"" + key + "\" stands twice");
            options_.emplace_back(key, text.substr(equals + 1));
        } else if (isPlain && text == "optional") {
            isOptional_ = true;
        } else {
            arguments_.push_back(text);
        }
    }
}

std::string Directive::argument(const char* what) {
    if (taken_ == arguments_.size() || arguments_[taken_].empty()) {
        throw error("\"" + name_ + "\" needs " + what);
    }
    return arguments_[taken_++];
}

SourceFile Directive::source() {
    SourceFile file{argument("a path"), isOptional_, line_};
    isOptional_ = false;
    return file;
}

std::optional<std::string> Directive::option(const char* key) {
    const auto found = std::ranges::find(options_, key, &std::pair<std::string, std::string>::first);
    if (found == options_.end()) return std::nullopt;
    std::string value = std::move(found->second);
    options_.erase(found);
    return value;
}

bool Directive::hasOption(const char* key, const char* text) {
    return std::erase(options_, std::pair<std::string, std::string>(key, text)) > 0;
}

double Directive::number(const char* key, double fallback, double least, double most) {
    const std::optional<std::string> text = option(key);
    if (!text) return fallback;
    double value = 0.0;
    if (!parseNumber(*text, &value)) throw error(std::string(key) + "=" + *text + " is not a number");
    if (value < least || value > most) {
        throw error(std::string(key) + "=" + *text + " is not " + plain(least) + " to " + plain(most));
    }
    return value;
}

int Directive::integer(const char* key, int fallback, int least, int most) {
    return optionalInteger(key, least, most).value_or(fallback);
}

std::optional<int> Directive::optionalInteger(const char* key, int least, int most) {
    const std::optional<std::string> text = option(key);
    if (!text) return std::nullopt;
    int value = 0;
    if (!parseNumber(*text, &value)) throw error(std::string(key) + "=" + *text + " is not a whole number");
    if (value < least || value > most) {
        throw error(std::string(key) + "=" + *text + " is not " + std::to_string(least) + " to " +
                    std::to_string(most));
    }
    return value;
}

void Directive::finish() const {
    if (taken_ < arguments_.size()) {
        throw error("\"" + name_ + "\" does not take \"" + arguments_[taken_] + "\"");
    }
    if (!options_.empty()) {
        throw error("unknown option \"" + options_.front().first + "\" of \"" + name_ + "\"");
    }
    if (isOptional_) throw error("\"" + name_ + "\" cannot be optional");
}

}  // namespace vorpel::compiler
