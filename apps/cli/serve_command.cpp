// SPDX-License-Identifier: Apache-2.0
#include "answer_printing.h"
#include "commands.h"
#include "request_line.h"
#include "word_service.h"

#include <cstdio>
#include <iostream>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

namespace vorpel::cli {

namespace {

/// A service for each language that has been asked for, opened when it first is.
class Services {
public:
    explicit Services(LanguageChoice choice) : choice_(std::move(choice)) {}

    WordService& forLanguage(const std::string& language) {
        std::unique_ptr<WordService>& service = services_[language];
        if (!service) {
            LanguageChoice choice = choice_;
            // The named files are those of the command line's language alone.
            if (language != choice_.language) choice = LanguageChoice{language, {}, {}};
            service = std::make_unique<WordService>(findLanguageFiles(choice));
        }
        return *service;
    }

private:
    LanguageChoice choice_;
    std::map<std::string, std::unique_ptr<WordService>> services_;
};

Json::Value respond(const std::string& line, const LanguageChoice& choice, Services& services) {
    const RequestLine request = RequestLine::parse(line, choice.language);
    WordService& service = services.forLanguage(request.language);
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

int serve(const LanguageChoice& choice) {
    Services services(choice);
    services.forLanguage(choice.language);
    std::string line;
    while (std::getline(std::cin, line)) {
        Json::Value response(Json::objectValue);
        try {
            response = respond(line, choice, services);
        } catch (const std::exception& error) {
            response["error"] = error.what();
        }
        std::printf("%s\n", toLine(response).c_str());
        if (std::fflush(stdout) != 0) return 1;
    }
    return 0;
}

}  // namespace vorpel::cli
