// SPDX-License-Identifier: Apache-2.0
#include "answer_printing.h"
#include "commands.h"
#include "word_service.h"

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace vorpel::cli {

int predict(const PredictArguments& arguments) {
    WordService service(findLanguageFiles(arguments.choice));
    for (const std::string& word : arguments.words) {
        const Answer answer = service.predict(word);
        if (arguments.json) {
            Json::Value line = toJson(answer);
            line["word"] = word;
            std::printf("%s\n", toLine(line).c_str());
        } else {
            std::printf("%s\n", word.c_str());
            printWords(answer);
        }
    }
    return 0;
}

}  // namespace vorpel::cli
