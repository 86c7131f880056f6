// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "word_service.h"

#include <json/json.h>

#include <optional>
#include <string>
#include <vector>

namespace vorpel::cli {

/// One request of the line protocol.
struct RequestLine {
    enum class Operation { Suggest, Predict };

    Operation operation = Operation::Suggest;
    std::string language;
    std::string word;
    std::string previous;
    PlainTouches touches;

    /// Throws std::runtime_error that says what is wrong with the line.
    static RequestLine parse(const std::string& line, const std::string& defaultLanguage);
};

/// Touches as JSON, [[x, y], ...] with null for a letter without one. Throws std::runtime_error.
std::vector<std::optional<TouchPoint>> parsePoints(const Json::Value& json);

/// Throws std::runtime_error for text that is no JSON.
Json::Value parseJson(const std::string& text);

}  // namespace vorpel::cli
