// SPDX-License-Identifier: Apache-2.0
// One line of `vorpel serve`, answered over a small English dictionary.
#include "line_protocol.h"
#include "request_line.h"
#include "support/answer_check.h"
#include "support/small_language.h"
#include "text/diagnostics.h"
#include "text/utf.h"

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

using vorpel::testing::require;

/// Everything is read when the service is made, so that the files may go.
vorpel::cli::WordService makeService() {
    wordengine::Diagnostics::setStream(nullptr);
    vorpel::testing::SmallLanguage language;
    language.word("the", 220).word("then", 160).word("there", 170).word("hello", 150).word("a", 200);
    language.word("don't", 170).correction("dont", "don't").word("café", 60).word("in", 210).word("to", 215);
    language.pair("hello", "there", 9).pair("in", "the", 12).shortcut("to", "too", 3);
    language.writeDictionary();
    language.writeGeometry();
    return vorpel::cli::WordService({"en", language.dictionaryPath(), language.folder().path()});
}

vorpel::cli::WordService& serviceFor(const std::string& language) {
    static vorpel::cli::WordService service = makeService();
    if (language != "en") throw std::runtime_error("only English here");
    return service;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::istringstream input(std::string(reinterpret_cast<const char*>(data), size));
    std::string line;
    while (vorpel::cli::readRequestLine(input, &line)) {
        const std::string answer = vorpel::cli::answerLine(line, "en", serviceFor);
        require(wordengine::isValidUtf8(answer), "an answer is UTF-8");
        require(answer.find('\n') == std::string::npos, "an answer is one line");
        const Json::Value json = vorpel::cli::parseJson(answer);
        require(json.isMember("error") || json["words"].size() <= 18, "words or an error");
    }
    return 0;
}
