// SPDX-License-Identifier: Apache-2.0
// A person who types, slips, goes back and goes on, over one dictionary.
#include "compiler/version2_writer.h"
#include "dictionary/prev_words_info.h"
#include "dictionary/v2/patricia_trie_policy.h"
#include "proximity/layouts.h"
#include "search/dic_traverse_session.h"
#include "search/dictionary.h"
#include "search/results/suggestion_results.h"
#include "search/suggest_options.h"
#include "support/answer_check.h"
#include "support/memory_file.h"
#include "text/diagnostics.h"
#include "text/utf.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <fuzzer/FuzzedDataProvider.h>
#include <iterator>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace wordengine;
using vorpel::testing::require;

constexpr int MAX_RESULTS = 18;
constexpr int MAX_REQUESTS = 16;
constexpr size_t SHORTEST_CONTINUED_INPUT = 3;
constexpr int OPTION_COUNT = 4;

const std::vector<std::string>& someWords() {
    static const std::vector<std::string> words = [] {
        std::istringstream text(
            "a the then there their they this that don't won't I in into inner is it its "
            "it's of off to too hello help held café naïve New York new well-known œuvre "
            "zoo ab abc abcd x xx xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx");
        return std::vector<std::string>(std::istream_iterator<std::string>(text), {});
    }();
    return words;
}

vorpel::compiler::DictionaryModel model() {
    vorpel::compiler::DictionaryModel model{{{"locale", "en_US"}}, {}};
    int probability = 40;
    for (const std::string& word : someWords()) {
        model.words.push_back({word, probability = (probability * 7 + 41) % 256, false, false, {}, {}});
    }
    model.words[0].bigrams = {{"zoo", 9}, {"New", 2}};
    model.words[1].bigrams = {{"zoo", 15}, {"x", 0}, {"there", 5}};
    model.words[2].shortcuts = {{"them all", 15}, {"thin", 4}};
    model.words.push_back({"teh", 1, true, false, {{"the", 15}}, {}});
    model.words.push_back({"damn", 0, false, true, {}, {}});
    return model;
}

const Dictionary& dictionary() {
    static const Dictionary opened = [] {
        Diagnostics::setStream(nullptr);
        const vorpel::testing::MemoryFile file(vorpel::compiler::Version2Writer::write(model()));
        return Dictionary(
            std::make_unique<PatriciaTriePolicy>(MmappedBuffer::openBuffer(file.path().c_str(), false)));
    }();
    return opened;
}

const Layout& layout() {
    static const Layout qwerty = qwertyLayout();
    return qwerty;
}

/// What has been typed of one word, and what stands before it.
struct Typing {
    std::vector<int> letters, xs, ys, times;
    std::vector<int> previous;
    bool isBeginningOfSentence = false;
    std::array<int, OPTION_COUNT> options{};

    [[nodiscard]] size_t size() const { return letters.size(); }
    void resize(size_t count) {
        for (std::vector<int>* part : {&letters, &xs, &ys, &times}) part->resize(count);
    }
};

class Session {
public:
    std::vector<SuggestedWord> ask(const Typing& typing) {
        static const std::unique_ptr<const ProximityInfo> keyboard = layout().build();
        const PrevWordsInfo previous(typing.previous.data(), static_cast<int>(typing.previous.size()),
                                     typing.isBeginningOfSentence);
        const SuggestOptions options(typing.options.data(), OPTION_COUNT);
        SuggestionResults results(MAX_RESULTS);
        dictionary().getSuggestions(keyboard.get(), &session_, typing.xs.data(), typing.ys.data(),
                                    typing.times.data(), nullptr, typing.letters.data(),
                                    static_cast<int>(typing.size()), &previous, &options, -1.0f, &results);
        std::vector<SuggestedWord> words = results.getSuggestionsVector();
        check(words);
        return words;
    }

private:
    static void check(const std::vector<SuggestedWord>& words) {
        vorpel::testing::checkAnswer(words, MAX_RESULTS);
        for (const SuggestedWord& word : words) {
            for (int i = 0; i < word.getCodePointCount(); ++i) {
                const int c = word.getCodePoint()[i];
                require(c >= 0 && c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF), "words can be UTF-8");
            }
        }
    }

    DicTraverseSession session_{true};
};

bool areEqual(const std::vector<SuggestedWord>& left, const std::vector<SuggestedWord>& right) {
    return std::equal(left.begin(), left.end(), right.begin(), right.end(), [](const auto& a, const auto& b) {
        return a.getScore() == b.getScore() && a.getType() == b.getType() &&
               std::equal(a.getCodePoint(), a.getCodePoint() + a.getCodePointCount(), b.getCodePoint(),
                          b.getCodePoint() + b.getCodePointCount());
    });
}

/// One after the other, what a person does at a keyboard.
class Typist {
public:
    explicit Typist(FuzzedDataProvider* data) : data_(data) { beginWord(); }

    void run() {
        for (int request = 0; request < MAX_REQUESTS && data_->remaining_bytes() > 0; ++request) {
            act();
            if (typing_.size() < SHORTEST_CONTINUED_INPUT) sinceStart_.clear();
            sinceStart_.push_back(typing_);
            last_ = session_.ask(typing_);
        }
        // A session does not remember what came before the last short request, and nothing else is in it.
        Session fresh;
        std::vector<SuggestedWord> replayed;
        for (const Typing& typing : sinceStart_) replayed = fresh.ask(typing);
        require(areEqual(last_, replayed), "a session that was used answers as a fresh one");
    }

private:
    enum class Act { Letter, Letters, Back, Move, Again, Word, Context, kMaxValue = Context };

    void act() {
        switch (data_->ConsumeEnum<Act>()) {
            case Act::Letter:
                return appendLetter();
            case Act::Letters:
                for (int count = data_->ConsumeIntegralInRange(1, 6); count > 0; --count) appendLetter();
                return;
            case Act::Back:
                typing_.resize(typing_.size() -
                               data_->ConsumeIntegralInRange<size_t>(0, std::min<size_t>(typing_.size(), 5)));
                return;
            case Act::Move:
                if (typing_.size() > 0) {
                    typing_.xs[data_->ConsumeIntegralInRange<size_t>(0, typing_.size() - 1)] ^= 8;
                }
                return;
            case Act::Again:
                return;
            case Act::Word:
                return beginWord();
            case Act::Context:
                return takeContext();
        }
    }

    void beginWord() {
        typing_.resize(0);
        word_ = utf8ToCodePointsLenient(data_->PickValueInArray<const char*>(
            {"the", "thereinto", "dont", "don't", "Its", "helloworld", "cafe", "xxxxxxxxxxxxxxxxxxxxxxxx"}));
    }

    /// Only where a session looks at it again, which is when it forgets.
    void takeContext() {
        typing_.resize(std::min(typing_.size(), SHORTEST_CONTINUED_INPUT - 1));
        const std::vector<std::string>& words = someWords();
        typing_.previous =
            utf8ToCodePointsLenient(words[data_->ConsumeIntegralInRange<size_t>(0, words.size() - 1)]);
        if (data_->ConsumeBool()) typing_.previous.push_back(data_->ConsumeIntegral<int>());
        typing_.isBeginningOfSentence = data_->ConsumeBool();
        // The first option asks for drawn words, for which there is no search.
        for (size_t i = 1; i < typing_.options.size(); ++i) typing_.options[i] = data_->ConsumeBool();
    }

    void appendLetter() {
        if (typing_.size() >= WORD_LENGTH_LIMIT) return;
        int letter = typing_.size() < word_.size() ? word_[typing_.size()] : 'e';
        if (data_->ConsumeProbability<float>() < 0.2f) letter = anyLetter();
        const bool hasKey = layout().keyOf(letter) < layout().keyCount();
        typing_.letters.push_back(letter);
        typing_.xs.push_back(hasKey ? layout().centerX(letter) + data_->ConsumeIntegralInRange(-90, 90) : 0);
        typing_.ys.push_back(hasKey ? layout().centerY(letter) + data_->ConsumeIntegralInRange(-90, 90) : 0);
        if (data_->ConsumeProbability<float>() < 0.05f) typing_.xs.back() = data_->ConsumeIntegral<int>();
        typing_.times.push_back(clock_ += data_->ConsumeIntegralInRange(0, 300));
    }

    int anyLetter() {
        switch (data_->ConsumeIntegralInRange(0, 3)) {
            case 0:
                return data_->PickValueInArray<int>(
                    {'\'', '-', ' ', 'E', 0xE9, 0x153, 0x301, 0x627, 0x10FFFF, -1});
            case 1:
                return data_->ConsumeIntegral<int>();
            default:
                return data_->ConsumeIntegralInRange<int>('a', 'z');
        }
    }

    FuzzedDataProvider* data_;
    Session session_;
    Typing typing_;
    std::vector<int> word_;
    int clock_ = 0;
    std::vector<Typing> sinceStart_;
    std::vector<SuggestedWord> last_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider provider(data, size);
    Typist(&provider).run();
    return 0;
}
