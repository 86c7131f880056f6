// SPDX-License-Identifier: Apache-2.0
#include "search/brute_force_answer.h"
#include "search/brute_force_search.h"
#include "search/random_language.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace wordengine::testing {
namespace {

/// Points as they are typed, with their times.
struct Typing {
    TypedWord word;
    std::vector<int> times;

    int points() const { return static_cast<int>(times.size()); }
    void shrinkTo(int points) {
        const auto size = static_cast<size_t>(points);
        word.codePoints.resize(size);
        word.xs.resize(size);
        word.ys.resize(size);
        times.resize(size);
    }
    bool beginsWith(const Typing& other) const {
        const auto isHead = [](const std::vector<int>& head, const std::vector<int>& whole) {
            return head.size() <= whole.size() && std::equal(head.begin(), head.end(), whole.begin());
        };
        return isHead(other.word.xs, word.xs) && isHead(other.word.ys, word.ys) && isHead(other.times, times);
    }
};

/// From which point a session goes on. It keeps, once a request, the nodes that have three points before the
/// end of the input, unless it went on from there itself; more than two points that begin with all those of
/// the request before go on from what was kept.
class KeptPlace {
public:
    /// `nodesAt` says how many nodes reach a point. Returns the point from which this request goes on, 0 for
    /// one that starts afresh.
    template <class NodesAt>
    int advance(const Typing& typing, NodesAt nodesAt) {
        const bool continues = typing.points() > 2 && isKept_ && typing.beginsWith(before_);
        if (!continues) place_ = 0;
        const int start = place_;
        const int border = typing.points() - 3;
        isKept_ = border >= start && border != place_ && nodesAt(border) > 0;
        if (isKept_) place_ = border;
        before_ = typing;
        return start;
    }

private:
    Typing before_;
    int place_ = 0;
    bool isKept_ = false;
};

/// Equal scores may come in any order.
std::vector<FoundWord> sorted(std::vector<FoundWord> answer) {
    std::sort(answer.begin(), answer.end(), [](const FoundWord& left, const FoundWord& right) {
        return left.score != right.score ? left.score > right.score : left.text < right.text;
    });
    return answer;
}

class SearchContinuationTest : public ::testing::Test {
protected:
    static constexpr double AIM = 0.5;

    void append(const std::u32string& letters, Typing* typing) {
        random_.touch(keyboard_, letters, AIM, &typing->word);
        for (size_t i = 0; i < letters.size(); ++i) typing->times.push_back(clock_ += 1 + random_.below(200));
    }

    /// What a user may do between two requests: mostly the next letter, at times several, a letter again,
    /// letters taken back, a point that lies or was hit elsewhere.
    void edit(const std::u32string& text, Typing* typing) {
        const int points = typing->points();
        const auto rest = [&](int letters) {
            const auto begin = std::min(text.size(), static_cast<size_t>(points));
            return text.substr(begin, static_cast<size_t>(letters));
        };
        switch (random_.below(12)) {
            case 0:
                typing->shrinkTo(points - std::min(points - 1, 1 + random_.below(4)));
                break;
            case 1:
                ++(random_.oneIn(2) ? typing->word.xs
                                    : typing->word.ys)[static_cast<size_t>(random_.below(points))];
                break;
            case 2:
                ++typing->times[static_cast<size_t>(random_.below(points))];
                break;
            case 3:
                break;  // the same request again
            case 4:
                append(rest(1 + random_.below(4)), typing);
                break;
            default:
                append(rest(1), typing);
        }
    }

    std::vector<FoundWord> request(ModelLanguage* language, const Typing& typing,
                                   const std::u32string& previous = {}) {
        return language->search(typing.word, previous, typing.times.data());
    }

    RandomLanguage random_{99};
    const ModelKeyboard keyboard_;
    int clock_ = 0;
};

// Going on gives the answer of a fresh session as long as what was decided before the kept place did not
// depend on the points behind it: coordinates and times are compared, letters, previous word and layout are
// the caller's to keep; all that a node decides looks at most one point ahead, and three are left. The
// caches of pairs hold the same as the file. Queues must not have been full, since what they dropped
// depended on the length of the input; these dictionaries do not fill them. What is lost in any case are
// the words that ended at or before the kept place, with at least three points unused.
TEST_F(SearchContinuationTest, GoingOnEqualsStartingAfresh) {
    int continued = 0;
    int identical = 0;
    for (int i = 0; i < 40 && !HasFailure(); ++i) {
        const ModelWords words = random_.words(2 + random_.below(5), 7);
        const std::u32string previous = random_.oneIn(2) ? random_.anyOf(words) : U"";
        ModelLanguage grown(words, keyboard_);
        ModelLanguage fresh(words, keyboard_);
        KeptPlace kept;
        for (int word = 0; word < 4 && !HasFailure(); ++word) {
            const std::u32string text = random_.slippedText(words) + random_.slippedText(words);
            Typing typing;
            append(text.substr(0, 1 + static_cast<size_t>(random_.below(3))), &typing);
            for (int step = 0; step < 16 && !HasFailure(); ++step, edit(text, &typing)) {
                const BruteForceSearch model(words, keyboard_, typing.word, previous);
                const int start = kept.advance(typing, [&](int point) { return model.nodesAt(point); });
                const std::vector<FoundWord> answer = request(&grown, typing, previous);
                ASSERT_EQ(grown.statistics().continuedCachedSearch, start > 0);
                ASSERT_LE(model.mostNodesAtOnce(), 170);
                fresh.startAfresh();
                const std::vector<FoundWord> whole = request(&fresh, typing, previous);
                std::vector<BruteForceWord> left = model.found();
                std::erase_if(left, [&](const BruteForceWord& path) { return path.index <= start; });
                if (left.size() == model.found().size()) {
                    ASSERT_EQ(sorted(answer), sorted(whole));
                    identical += start > 0;
                } else if (!model.isCloseCall()) {
                    ASSERT_EQ(BruteForceAnswer(left, typing.points()).compare(answer), "");
                }
                for (const FoundWord& found : answer) {
                    const bool isInWhole = std::find(whole.begin(), whole.end(), found) != whole.end();
                    ASSERT_TRUE(isInWhole || model.found().size() > ModelLanguage::MAX_RESULTS);
                }
                continued += start > 0;
            }
        }
    }
    EXPECT_GT(continued, 400);
    EXPECT_GT(identical, 100);
}

}  // namespace
}  // namespace wordengine::testing
