// SPDX-License-Identifier: Apache-2.0
#include "allocation_counter.h"
#include "dictionary/dictionary_structure_with_buffer_policy_factory.h"
#include "dictionary/prev_words_info.h"
#include "search/dic_traverse_session.h"
#include "search/dictionary.h"
#include "search/results/suggestion_results.h"
#include "suggestion/proximity_provider.h"
#include "support/small_language.h"
#include "text/diagnostics.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace vorpel::testing {
namespace {

TEST(SearchMemoryTest, LaterRequestsAllocateNothing) {
    wordengine::Diagnostics::setStream(nullptr);
    SmallLanguage language("en");
    for (const char* const word : {"hello", "help", "held", "hold", "yellow", "jelly", "on", "low", "the"}) {
        language.word(word, 150);
    }
    language.pair("the", "hello", 9).correction("hwllo", "hello");
    language.writeDictionary();
    language.writeGeometry();
    ProximityProvider keyboard(language.folder().path(""), "en");
    wordengine::Dictionary dictionary(
        wordengine::DictionaryStructureWithBufferPolicyFactory::newPolicyForExistingDictFile(
            language.dictionaryPath().c_str(), 0,
            static_cast<int>(std::filesystem::file_size(language.dictionaryPath())), false));
    wordengine::DicTraverseSession session(true);
    const std::vector<int> previous{'t', 'h', 'e'};
    const wordengine::PrevWordsInfo context(previous.data(), 3, false);
    std::vector<int> typed, xs, ys;
    const auto allocationsOfRequest = [&] {
        wordengine::SuggestionResults results(18);
        const bench::AllocationCounter counter;
        dictionary.getSuggestions(keyboard.getProximity('a'), &session, xs.data(), ys.data(), nullptr,
                                  nullptr, typed.data(), static_cast<int>(typed.size()), &context, nullptr,
                                  -1.0f, &results);
        EXPECT_GT(results.getSuggestionCount(), 0);
        return bench::AllocationCounter::allocations();
    };
    const auto type = [&](const std::string& word) {
        long allocations = 0;
        typed.clear(), xs.clear(), ys.clear();
        for (const char letter : word) {
            typed.push_back(letter);
            xs.push_back(static_cast<int>(keyboard.keyCenter(letter).x));
            ys.push_back(static_cast<int>(keyboard.keyCenter(letter).y));
            allocations += allocationsOfRequest();
        }
        return allocations;
    };
    EXPECT_GT(type("hwllo"), 0) << "the first word makes the room";
    for (const char* const word : {"hwllo", "yelloe", "hellolow", "h"}) EXPECT_EQ(type(word), 0) << word;
}

}  // namespace
}  // namespace vorpel::testing
