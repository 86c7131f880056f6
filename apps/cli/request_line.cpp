// SPDX-License-Identifier: Apache-2.0
#include "request_line.h"

#include "text/utf.h"

#include <cmath>
#include <memory>
#include <stdexcept>

namespace vorpel::cli {

namespace {

// More letters than any word of a dictionary has, and few enough to be typed in no time.
constexpr std::size_t LONGEST_WORD = 1000;

std::string text(const Json::Value& object, const char* member, const std::string& byDefault) {
    const Json::Value& value = object[member];
    if (value.isNull()) return byDefault;
    if (!value.isString()) throw std::runtime_error(std::string("\"") + member + "\" must be a string");
    return value.asString();
}

double size(const Json::Value& object, const char* member, double byDefault) {
    const Json::Value& value = object[member];
    if (value.isNull()) return byDefault;
    if (!value.isNumeric() || !(value.asDouble() > 0) || !std::isfinite(value.asDouble())) {
        throw std::runtime_error(std::string("\"") + member + "\" must be a number above 0");
    }
    return value.asDouble();
}

std::string language(const Json::Value& object, const std::string& byDefault) {
    const std::string name = text(object, "lang", byDefault);
    if (name != "en" && name != "ar") throw std::runtime_error("\"lang\" must be \"en\" or \"ar\"");
    return name;
}

RequestLine::Operation operation(const Json::Value& object) {
    const std::string name = text(object, "op", "");
    if (name == "suggest") return RequestLine::Operation::Suggest;
    if (name == "predict") return RequestLine::Operation::Predict;
    throw std::runtime_error("\"op\" must be \"suggest\" or \"predict\"");
}

void checkWord(const RequestLine& request) {
    const std::size_t letters = wordengine::utf8ToUtf32Lenient(request.word).size();
    if (letters == 0) throw std::runtime_error("\"word\" is missing or empty");
    if (letters > LONGEST_WORD) throw std::runtime_error("\"word\" is too long");
    const std::size_t points = request.touches.points.size();
    if (points != 0 && points != letters) {
        throw std::runtime_error("\"points\" has " + std::to_string(points) + " entries for " +
                                 std::to_string(letters) + " letters");
    }
}

}  // namespace

Json::Value parseJson(const std::string& text) {
    Json::CharReaderBuilder builder;
    builder["collectComments"] = false;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    Json::Value value;
    std::string reason;
    try {
        if (reader->parse(text.data(), text.data() + text.size(), &value, &reason)) return value;
    } catch (const Json::Exception& error) {
        reason = error.what();
    }
    throw std::runtime_error("not JSON: " + reason);
}

std::vector<std::optional<TouchPoint>> parsePoints(const Json::Value& json) {
    std::vector<std::optional<TouchPoint>> points;
    if (json.isNull()) return points;
    if (!json.isArray()) throw std::runtime_error("\"points\" must be a list or null");
    for (const Json::Value& point : json) {
        if (point.isNull()) {
            points.emplace_back();
            continue;
        }
        const bool isPair =
            point.isArray() && point.size() == 2 && point[0].isNumeric() && point[1].isNumeric();
        if (!isPair || !std::isfinite(point[0].asDouble()) || !std::isfinite(point[1].asDouble())) {
            throw std::runtime_error("\"points\" must hold pairs of numbers");
        }
        points.push_back(TouchPoint{point[0].asDouble(), point[1].asDouble()});
    }
    return points;
}

RequestLine RequestLine::parse(const std::string& line, const std::string& defaultLanguage) {
    const Json::Value object = parseJson(line);
    if (!object.isObject()) throw std::runtime_error("a request must be a JSON object");
    RequestLine request;
    request.operation = cli::operation(object);
    request.language = cli::language(object, defaultLanguage);
    request.previous = text(object, "prev", "");
    if (request.operation == Operation::Predict) return request;
    request.word = text(object, "word", "");
    request.touches.width = size(object, "width", PlainGrid::DEFAULT_WIDTH);
    request.touches.height = size(object, "height", PlainGrid::DEFAULT_HEIGHT);
    request.touches.points = parsePoints(object["points"]);
    checkWord(request);
    return request;
}

}  // namespace vorpel::cli
