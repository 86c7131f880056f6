// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "support/small_language.h"
#include "vorpel/vorpel.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vorpel::testing {

using Points = std::vector<vorpel_point>;

/// An answer that outlives its service.
struct KeptAnswer {
    std::vector<std::string> texts;
    std::vector<int> scores;
    std::vector<int> kinds;
    bool mayReplace = false;

    bool operator==(const KeptAnswer&) const = default;

    [[nodiscard]] std::string first() const { return texts.empty() ? "(nothing)" : texts.front(); }

    static KeptAnswer of(const vorpel_answer& answer) {
        KeptAnswer kept;
        for (int i = 0; i < answer.count; ++i) {
            kept.texts.emplace_back(answer.words[i].text);
            kept.scores.push_back(answer.words[i].score);
            kept.kinds.push_back(answer.words[i].kind);
        }
        kept.mayReplace = answer.may_replace != 0;
        return kept;
    }
};

/// A service that is closed with the object. Failures of its calls are failures of the test.
class OpenService {
public:
    OpenService(const std::string& folder, const char* language) {
        vorpel_options options = VORPEL_OPTIONS_INIT;
        options.resource_folder = folder.c_str();
        options.language = language;
        EXPECT_EQ(vorpel_open(&options, &service_), VORPEL_OK) << vorpel_error_text();
    }
    ~OpenService() { vorpel_close(service_); }
    OpenService(const OpenService&) = delete;
    OpenService& operator=(const OpenService&) = delete;

    KeptAnswer suggest(const std::string& word, const std::string& previous = "", const Points& points = {}) {
        vorpel_answer answer = VORPEL_ANSWER_INIT;
        EXPECT_EQ(
            vorpel_suggest(service_, word.c_str(), previous.c_str(), points.data(), points.size(), &answer),
            VORPEL_OK)
            << vorpel_error_text();
        return KeptAnswer::of(answer);
    }

    KeptAnswer predict(const std::string& previous) {
        vorpel_answer answer = VORPEL_ANSWER_INIT;
        EXPECT_EQ(vorpel_predict(service_, previous.c_str(), &answer), VORPEL_OK) << vorpel_error_text();
        return KeptAnswer::of(answer);
    }

    vorpel_point center(char32_t letter) {
        vorpel_point point{};
        EXPECT_EQ(vorpel_key_center(service_, letter, &point), VORPEL_OK);
        return point;
    }

    [[nodiscard]] vorpel_service* get() const { return service_; }

private:
    vorpel_service* service_ = nullptr;
};

/// The files of both languages, with a few words each.
class ServiceTest : public ::testing::Test {
protected:
    ServiceTest() : english("en"), arabic("ar") {
        english.word("hello", 150).word("help", 140).word("world", 140).word("hold", 130).word("word", 120);
        english.pair("hello", "world", 9).correction("teh", "the").word("the", 200);
        english.writeDictionary();
        english.writeGeometry();
        arabic.word("مرحبا", 150).word("شكرا", 140).pair("شكرا", "مرحبا", 8);
        arabic.writeDictionary();
        arabic.writeGeometry();
    }

    SmallLanguage english;
    SmallLanguage arabic;
};

}  // namespace vorpel::testing
