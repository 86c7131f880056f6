// SPDX-License-Identifier: Apache-2.0
#include "capi/service_fixture.h"
#include "text/utf.h"

#include <cmath>
#include <limits>
#include <random>
#include <thread>

namespace vorpel::testing {
namespace {

TEST_F(ServiceTest, AnswersInBothLanguages) {
    OpenService en(english.folder().path(), "en");
    const KeptAnswer hello = en.suggest("hrllo");
    EXPECT_EQ(hello.first(), "hello");
    EXPECT_TRUE(hello.mayReplace);
    EXPECT_EQ(hello.kinds.front(), VORPEL_CORRECTION);
    EXPECT_EQ(en.suggest("teh").kinds.front(), VORPEL_WHITELIST);
    const KeptAnswer next = en.predict("hello");
    EXPECT_EQ(next.texts, std::vector<std::string>{"world"});
    EXPECT_EQ(next.kinds.front(), VORPEL_PREDICTION);
    EXPECT_FALSE(next.mayReplace);

    OpenService ar(arabic.folder().path(), "ar");
    EXPECT_EQ(ar.suggest("مرحا").first(), "مرحبا");
    EXPECT_EQ(ar.predict("شكرا").first(), "مرحبا");
}

TEST_F(ServiceTest, LongWordsAreHandedOutWhole) {
    std::string word;
    for (int i = 0; i < 15; ++i) word += "شك";
    arabic.word(word, 200).writeDictionary();
    OpenService service(arabic.folder().path(), "ar");
    const std::string typed = "شك" + word.substr(6);
    EXPECT_EQ(service.suggest(typed).first(), word) << "of 60 bytes; a letter was left out";
    // 48 letters are a word, though unknown; more have no answer.
    EXPECT_EQ(service.suggest(word + word.substr(0, 36)), KeptAnswer());
    EXPECT_EQ(service.suggest(std::string(1 << 20, 'a')), KeptAnswer());
    EXPECT_EQ(service.suggest(""), KeptAnswer());
    EXPECT_EQ(service.suggest("شكر", std::string(1 << 20, 'a')), service.suggest("شكر"));
}

TEST_F(ServiceTest, WordsThatAreNoTextOfCAreLeftOut) {
    english.word(std::string("tex") + '\0' + "x", 250).word("text", 100).writeDictionary();
    OpenService service(english.folder().path(), "en");
    const KeptAnswer answer = service.suggest("tex");
    EXPECT_EQ(answer.first(), "text");
    EXPECT_FALSE(answer.mayReplace) << "what would replace is not there";
}

TEST_F(ServiceTest, TouchesMoveTheAnswer) {
    OpenService service(english.folder().path(), "en");
    double width = 0, height = 0;
    ASSERT_EQ(vorpel_keyboard_size(service.get(), &width, &height), VORPEL_OK);
    EXPECT_EQ(width, 375);
    EXPECT_EQ(height, 216);
    const auto pointsOf = [&](const std::u32string& letters) {
        Points points;
        for (const char32_t letter : letters) points.push_back(service.center(letter));
        return points;
    };
    // "hild": on the border to "o" it is "hold".
    const KeptAnswer centered = service.suggest("hild", "", pointsOf(U"hild"));
    EXPECT_EQ(centered, service.suggest("hild"));
    Points aimed = pointsOf(U"hild");
    aimed[1].x += 16;
    const KeptAnswer touched = service.suggest("hild", "", aimed);
    EXPECT_EQ(touched.first(), "hold");
    EXPECT_GT(touched.scores.front(), centered.scores.front());

    const double no = std::numeric_limits<double>::quiet_NaN();
    for (const vorpel_point absent :
         {vorpel_point{VORPEL_NO_TOUCH, VORPEL_NO_TOUCH}, vorpel_point{no, 3}, vorpel_point{3, no},
          vorpel_point{-1e300, 0}, vorpel_point{0, INFINITY}}) {
        Points points = aimed;
        points[1] = absent;
        EXPECT_EQ(service.suggest("hild", "", points), centered);
    }
    EXPECT_EQ(service.suggest("hild", "", Points(aimed.begin(), aimed.begin() + 2)), touched)
        << "the letters without a point were hit in the middle anyway";
    EXPECT_EQ(service.center(U'é').x, VORPEL_NO_TOUCH);
    EXPECT_EQ(service.center(0xFFFFFFFF).y, VORPEL_NO_TOUCH);
}

/// A service that is asked again and again answers like one that was never asked before.
TEST_F(ServiceTest, NoRequestLeavesATrace) {
    std::mt19937 random(1);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    OpenService used(english.folder().path(), "en");
    std::string word, previous;
    Points points;
    for (int round = 0; round < 100; ++round) {
        const int step = below(10);
        if (step == 0 || word.size() > 8) {
            word.clear();
            points.clear();
        } else if (step == 1) {
            word.pop_back();
            points.pop_back();
        } else if (step == 2) {
            points[static_cast<size_t>(below(static_cast<int>(word.size())))].x += 10;
        } else if (step == 3) {
            used.predict("hello");
        } else if (step == 4) {
            previous = previous.empty() ? "hello" : "";
        }
        for (int letters = word.empty() ? 1 : below(3); letters > 0; --letters) {
            word += "helowrdpt"[below(9)];
            const vorpel_point center = used.center(static_cast<char32_t>(word.back()));
            points.push_back({center.x + below(30) - 15, center.y + below(30) - 15});
        }
        OpenService fresh(english.folder().path(), "en");
        ASSERT_EQ(used.suggest(word, previous, points), fresh.suggest(word, previous, points))
            << word << " in round " << round;
    }
}

TEST_F(ServiceTest, ServicesOnDifferentThreadsDoNotMeet) {
    OpenService en(english.folder().path(), "en");
    OpenService ar(arabic.folder().path(), "ar");
    const KeptAnswer hello = en.suggest("hrllo");
    const KeptAnswer thanks = ar.suggest("شمرا");
    const auto askOften = [](OpenService& service, const std::string& word, const KeptAnswer& expected) {
        for (int i = 0; i < 50; ++i) {
            EXPECT_EQ(service.suggest(word), expected);
            service.predict(word);
            EXPECT_EQ(vorpel_keyboard_size(nullptr, nullptr, nullptr), VORPEL_ERROR_ARGUMENT);
        }
    };
    const std::string before = vorpel_error_text();
    std::thread second(askOften, std::ref(en), "hrllo", hello);
    std::thread third(askOften, std::ref(ar), "شمرا", thanks);
    std::thread opener([&] {
        for (int i = 0; i < 10; ++i)
            EXPECT_EQ(OpenService(english.folder().path(), "en").suggest("hrllo"), hello);
    });
    second.join();
    third.join();
    opener.join();
    EXPECT_EQ(vorpel_error_text(), before) << "errors are told to the thread that made them";
}

}  // namespace
}  // namespace vorpel::testing
