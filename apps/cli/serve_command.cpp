// SPDX-License-Identifier: Apache-2.0
#include "commands.h"
#include "line_protocol.h"
#include "word_service.h"

#include <cstdio>
#include <iostream>
#include <map>
#include <memory>
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

}  // namespace

int serve(const LanguageChoice& choice) {
    Services services(choice);
    services.forLanguage(choice.language);
    const auto serviceFor = [&](const std::string& language) -> WordService& {
        return services.forLanguage(language);
    };
    std::string line;
    while (readRequestLine(std::cin, &line)) {
        std::printf("%s\n", answerLine(line, choice.language, serviceFor).c_str());
        if (std::fflush(stdout) != 0) return 1;
    }
    return 0;
}

}  // namespace vorpel::cli
