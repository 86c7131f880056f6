// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session_stage.h"
#include "platform/posix/thread_operation_queue.h"
#include "platform/posix/thread_pool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace vorpel::testing {
namespace {

/// Answers anything, after a while that differs from question to question.
class SlowWords final : public WordService {
public:
    explicit SlowWords(std::atomic<int>& alive) : alive_(alive) { ++alive_; }
    ~SlowWords() override { --alive_; }
    SlowWords(const SlowWords&) = delete;
    SlowWords& operator=(const SlowWords&) = delete;

    static WordAnswer answerTo(const std::string& word) {
        return {{word + "a", word + "b", word + "c"}, word.size() % 3 == 0};
    }

    WordAnswer suggest(const WordRequest& request) override {
        dawdle();
        return answerTo(request.word);
    }
    std::vector<std::string> predict(const std::string& previousWord) override {
        dawdle();
        return {previousWord + "x", previousWord + "y", previousWord + "z"};
    }

private:
    void dawdle() { std::this_thread::sleep_for(std::chrono::microseconds(random_() % 400)); }

    std::atomic<int>& alive_;
    std::minstd_rand random_;
};

template <class Base>
class SlowKeyboard final : public Base {
public:
    template <typename... Options>
    SlowKeyboard(platform::Platform& platform, std::atomic<int>& alive, const Options&... options)
        : Base(platform, options...), alive_(alive) {
        Base::setUp();
    }

protected:
    WordServiceFactory makeWordServiceFactory() override {
        return [this] { return std::make_unique<SlowWords>(alive_); };
    }

private:
    std::atomic<int>& alive_;
};

/// A keyboard whose queues are real threads, and what a plain model says of its text.
class RandomTyping {
public:
    explicit RandomTyping(bool isEmbedded, unsigned seed)
        : stage_({}, [&](platform::Platform& fake) { return make(fake, isEmbedded); }), random_(seed) {
        stage_.platform.userDefaults.setBool(preferences::kAutoCorrection, true);
        stage_.platform.userDefaults.setBool(preferences::kPeriodShortcut, false);
        stage_.controller->viewWillAppear();
        stage_.controller->textDidChange();
    }
    ~RandomTyping() {
        stage_.controller.reset();
        // Its last blocks still speak to the run loop.
        pool_.reset();
    }

    void act() {
        // Answers come on show at any moment between two keys, or pile up.
        if (pick(3) != 0) stage_.platform.runLoop.runDue();
        const unsigned choice = pick(100);
        if (choice < 60) {
            press(std::string(1, static_cast<char>('a' + pick(4))));
        } else if (choice < 75) {
            stage_.down(0, "space");
            finishWord();
            stage_.up(0);
            expected_ += " ";
        } else if (choice < 80) {
            press(".");
        } else if (choice < 90) {
            stage_.tapAgain("backspace");
            if (!expected_.empty()) expected_.pop_back();
        } else if (choice < 97) {
            tapLabel(pick(3));
        } else if (choice < 98 || expected_.size() > 80) {
            stage_.hostSets(expected_ = "so ");
        } else {
            stage_.controller->viewWillDisappear();
            stage_.controller->viewWillAppear();
        }
    }

    [[nodiscard]] const std::string& text() { return stage_.text(); }
    [[nodiscard]] const std::string& expected() const { return expected_; }

    /// The labels once all is answered, and those that the last word should have.
    void expectTheLastAnswer() {
        stage_.hostSets(expected_ = "so ");
        press("a");
        press("b");
        const auto labels = banner().wordLabels();
        const std::string wanted = SlowWords::answerTo("ab").words[0];
        for (int turn = 0; turn < 5000 && labels[0]->currentTitle() != wanted; ++turn) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            stage_.platform.runLoop.runDue();
        }
        EXPECT_EQ(labels[0]->currentTitle(), wanted);
    }

    void leave() {
        stage_.controller->viewWillDisappear();
        stage_.controller.reset();
        stage_.platform.runLoop.runDue();
        EXPECT_EQ(alive_, 0);
    }

private:
    std::unique_ptr<KeyboardViewController> make(platform::Platform& fake, bool isEmbedded) {
        real_ = std::make_unique<platform::Platform>(platform::Platform{
            .host = fake.host,
            .runLoop = fake.runLoop,
            .notificationCenter = fake.notificationCenter,
            .userDefaults = fake.userDefaults,
            .bundle = fake.bundle,
            .screen = fake.screen,
            .device = fake.device,
            .globalQueue = *pool_,
            .makeOperationQueue = [] { return std::make_unique<platform::ThreadOperationQueue>(); }});
        if (!isEmbedded) return std::make_unique<SlowKeyboard<VPKeyboardViewController>>(*real_, alive_);
        return std::make_unique<SlowKeyboard<VorpelKeyboardViewController>>(
            *real_, alive_, TypingOptions{.touchPoints = true, .distinctLabels = true});
    }

    unsigned pick(unsigned count) { return static_cast<unsigned>(random_()) % count; }
    [[nodiscard]] VPKeyboardViewController& session() {
        return static_cast<VPKeyboardViewController&>(*stage_.controller);
    }
    [[nodiscard]] VPSuggestionsBanner& banner() { return *session().suggestionsBanner(); }

    void press(const std::string& key) {
        stage_.tapAgain(key == "." ? toSigns(key) : key);
        if (key == ".") stage_.tapAgain("ABC");
        expected_ += key;
    }
    const std::string& toSigns(const std::string& key) {
        stage_.tapAgain("123");
        return key;
    }

    [[nodiscard]] std::size_t wordBegin() const { return expected_.find_last_of(" .") + 1; }

    /// What a blank does to the word before it, going by what is on show as it is pressed.
    void finishWord() {
        if (!session().correctionPending() || wordBegin() == expected_.size()) return;
        const std::string title = banner().wordLabel_2.currentTitle();
        const std::string shown = banner().wordLabel_1.currentTitle();
        // The one that hosts embed knows what the correction is for.
        const std::string word = expected_.substr(wordBegin());
        if (title.empty() || (isEmbedded() && shown != '"' + word + '"')) return;
        expected_.replace(wordBegin(), std::string::npos, title + " ");
    }

    [[nodiscard]] bool isEmbedded() {
        return dynamic_cast<VorpelKeyboardViewController*>(stage_.controller.get()) != nullptr;
    }

    void tapLabel(std::size_t index) {
        ui::Button& label = *banner().wordLabels().at(index);
        std::string word = label.currentTitle();
        label.sendActions(ui::ControlEvent::TouchUpInside);
        if (word.empty()) return;
        if (word.front() == '"') word = word.substr(1, word.size() - 2);
        expected_.replace(wordBegin(), std::string::npos, word + " ");
    }

    std::atomic<int> alive_ = 0;
    std::unique_ptr<platform::ThreadPool> pool_ = std::make_unique<platform::ThreadPool>(2);
    std::unique_ptr<platform::Platform> real_;
    Stage stage_;
    std::minstd_rand random_;
    std::string expected_;
};

TEST(SessionRandomTest, NoLetterIsLostWhateverTheWordServiceDoes) {
    constexpr int KEYS = 20000;
    for (const bool isEmbedded : {false, true}) {
        RandomTyping typing(isEmbedded, isEmbedded ? 7 : 3);
        for (int key = 0; key < KEYS; ++key) {
            typing.act();
            ASSERT_EQ(typing.text(), typing.expected()) << "key " << key;
        }
        typing.expectTheLastAnswer();
        typing.leave();
    }
}

}  // namespace
}  // namespace vorpel::testing
