// SPDX-License-Identifier: Apache-2.0
#include "line_protocol.h"

#include "answer_printing.h"
#include "request_line.h"

#include <stdexcept>

namespace vorpel::cli {

namespace {

Json::Value respond(const std::string& line, const std::string& defaultLanguage,
                    const std::function<WordService&(const std::string&)>& serviceFor) {
    if (line.size() > LONGEST_REQUEST_LINE) throw std::runtime_error("the line is too long");
    const RequestLine request = RequestLine::parse(line, defaultLanguage);
    WordService& service = serviceFor(request.language);
    const Answer answer = request.operation == RequestLine::Operation::Suggest
                              ? service.type(request.word, request.previous, &request.touches)
                              : service.predict(request.previous);
    Json::Value response(Json::objectValue);
    response["words"] = toJson(answer)["words"];
    response["autocorrect"] = answer.autoCorrects;
    response["us"] = answer.microseconds;
    return response;
}

}  // namespace

bool readRequestLine(std::istream& input, std::string* line) {
    line->clear();
    std::streambuf* const buffer = input.rdbuf();
    for (bool isEmpty = true;; isEmpty = false) {
        const int next = buffer->sbumpc();
        if (next == std::char_traits<char>::eof()) return !isEmpty;
        if (next == '\n') return true;
        if (line->size() <= LONGEST_REQUEST_LINE) *line += static_cast<char>(next);
    }
}

std::string answerLine(const std::string& line, const std::string& defaultLanguage,
                       const std::function<WordService&(const std::string&)>& serviceFor) {
    Json::Value response(Json::objectValue);
    try {
        response = respond(line, defaultLanguage, serviceFor);
    } catch (const std::exception& error) {
        response["error"] = error.what();
    }
    return toLine(response);
}

}  // namespace vorpel::cli
