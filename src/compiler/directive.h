// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "compiler/input_error.h"
#include "compiler/recipe.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vorpel::compiler {

/// One line of a recipe taken apart: a name, arguments, options "key=value" and the bare word "optional".
/// Every accessor takes what it asks for, so that finish() can blame what nobody asked for. Errors carry
/// the recipe's path and the line.
class Directive {
public:
    /// Nothing for a line that holds only a comment.
    static std::optional<Directive> parse(std::string_view line, const std::string& recipePath,
                                          int lineNumber);

    const std::string& name() const { return name_; }
    int line() const { return line_; }

    /// The next argument; `what` names it in the error for a missing one.
    std::string argument(const char* what);
    /// The next argument as a path, with "optional" if it stands on the line.
    SourceFile source();
    /// The option's text, or nothing.
    std::optional<std::string> option(const char* key);
    /// Whether the option has just this text; it is taken only then.
    bool hasOption(const char* key, const char* text);
    double number(const char* key, double fallback, double least, double most);
    int integer(const char* key, int fallback, int least, int most);
    std::optional<int> optionalInteger(const char* key, int least, int most);

    /// Throws if arguments, options or "optional" are left.
    void finish() const;

    [[nodiscard]] InputError error(const std::string& reason) const { return {recipePath_, line_, reason}; }

private:
    /// What stands between blanks; quoted text is never an option or a comment.
    struct Token {
        std::string text;
        bool beginsQuoted = false;
    };

    Directive(std::string recipePath, int line) : recipePath_(std::move(recipePath)), line_(line) {}
    std::vector<Token> tokenize(std::string_view line) const;
    void sortTokens(std::vector<Token> tokens);

    std::string recipePath_;
    int line_;
    std::string name_;
    std::vector<std::string> arguments_;
    size_t taken_ = 0;
    std::vector<std::pair<std::string, std::string>> options_;
    bool isOptional_ = false;
};

}  // namespace vorpel::compiler
