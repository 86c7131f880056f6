// SPDX-License-Identifier: Apache-2.0
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "answer_printing.h"
#include "commands.h"
#include "language_options.h"
#include "word_service.h"

namespace vorpel::cli {

namespace {

struct PredictArguments {
    LanguageChoice choice;
    bool json = false;
    std::vector<std::string> words;
};

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

}  // namespace

void addPredictCommand(CLI::App& app, Action& action) {
    auto arguments = std::make_shared<PredictArguments>();
    CLI::App* command = app.add_subcommand("predict", "The words that may follow each word");
    command->footer("Example: vorpel predict thank how good");
    addLanguageOptions(*command, arguments->choice);
    command->add_flag("--json", arguments->json, "one JSON object a word");
    command->add_option("WORD", arguments->words, "the finished word")->required();
    command->callback([arguments, &action] { action = [arguments] { return predict(*arguments); }; });
}

}  // namespace vorpel::cli
