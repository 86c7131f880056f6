// SPDX-License-Identifier: Apache-2.0
#include "support/dictionary_probe.h"
#include "support/trie_assembler.h"
#include "text/diagnostics.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vorpel::testing {
namespace {

using wordengine::test::Bytes;
using wordengine::test::TrieAssembler;
using wordengine::test::TrieNode;

// These tests pass by not crashing, under sanitizers, by ending, and by breaking no promise of the probe.

Bytes sampleFile() {
    std::vector<TrieNode> nodes = wordengine::test::trieOf({{U"a", 90},
                                                            {U"in", 120},
                                                            {U"into", 110},
                                                            {U"inner", 60},
                                                            {U"é", 3},
                                                            {U"teh", 1},
                                                            {U"the", 255},
                                                            {U"zo\u0153", 5},
                                                            {std::u32string(48, U'x'), 9}});
    nodes[0].bigrams = {{U"in", 3}, {U"the", 15}};
    nodes.back().bigrams = {{U"a", 7}};
    nodes.back().shortcuts = {{U"eh", 15}, {U"e\u0301", 2}};
    TrieAssembler assembler;
    return TrieAssembler::fileOf(assembler.assemble(nodes), {{"locale", "en"}, {"date", "1"}});
}

class DamageTest : public ::testing::Test {
protected:
    DamageTest() { wordengine::Diagnostics::setStream(nullptr); }

    /// Whether the file was refused or found to be damaged.
    static bool isRefused(const Bytes& file) {
        DictionaryProbe probe(file);
        EXPECT_NO_THROW(probe.run());
        return probe.isRefused();
    }
};

TEST_F(DamageTest, SurvivesEveryTruncation) {
    const Bytes file = sampleFile();
    ASSERT_TRUE(compiler::DictionaryVerifier::verify(file).empty());
    for (size_t length = 0; length <= file.size(); ++length) {
        SCOPED_TRACE("cut to " + std::to_string(length));
        const Bytes cut(file.begin(), file.begin() + static_cast<long>(length));
        EXPECT_EQ(isRefused(cut), length < file.size());
    }
}

TEST_F(DamageTest, SurvivesEveryChangedByte) {
    const Bytes sound = sampleFile();
    for (size_t position = 0; position < sound.size(); ++position) {
        SCOPED_TRACE("at byte " + std::to_string(position));
        const int old = sound[position];
        for (const int value :
             {old ^ 0x01, old ^ 0x04, old ^ 0x10, old ^ 0x40, old ^ 0x80, old ^ 0xFF, 0x00, 0x1F}) {
            Bytes file = sound;
            file[position] = static_cast<uint8_t>(value);
            isRefused(file);
        }
    }
}

/// Letters that all lead to the same next letters, and lists of pairs that have to be read over on the way.
Bytes forgedLists() {
    constexpr int LEVELS = 12;
    constexpr int LETTERS = 26;
    constexpr int PAIRS = 30000;
    constexpr int ARRAY_SIZE = 1 + LETTERS * 6 + PAIRS;
    Bytes body;
    for (int level = 0; level < LEVELS; ++level) {
        const int begin = static_cast<int>(body.size());
        body.push_back(LETTERS);
        for (int i = 0; i < LETTERS; ++i) {
            const int offset = ARRAY_SIZE - (static_cast<int>(body.size()) - begin + 3);
            body.insert(body.end(), {static_cast<uint8_t>(i == LETTERS - 1 ? 0xD4 : 0xD0),
                                     static_cast<uint8_t>('a' + i), 200, static_cast<uint8_t>(offset >> 16),
                                     static_cast<uint8_t>(offset >> 8), static_cast<uint8_t>(offset)});
        }
        body.insert(body.end(), PAIRS - 1, 0x8F);
        body.push_back(0x0F);
    }
    body.push_back(0);
    return TrieAssembler::fileOf(body);
}

TEST_F(DamageTest, ChildrenOutsideTheFileGiveNoCreditForMoreReading) {
    const Bytes file = TrieAssembler::fileOf({1, 0x10, 'a', 200});
    GuardedMapping mapping(file);
    const wordengine::PatriciaTriePolicy policy(mapping.open());
    wordengine::DicNodeChildList children;
    policy.readChildren(0, &children);
    EXPECT_EQ(children.getBytesRead(), 4);
    for (const int position : {4, 5, 1 << 24, -1, wordengine::NO_DICT_POS}) {
        policy.readChildren(position, &children);
        EXPECT_EQ(children.getBytesRead(), 4) << position;
    }
    EXPECT_EQ(children.size(), 1);
    EXPECT_TRUE(policy.isCorrupted());
}

TEST_F(DamageTest, ForgedListsDoNotKeepASearchBusy) {
    constexpr int64_t LIMIT = int64_t{1} << 25;
    const Bytes file = forgedLists();
    GuardedMapping mapping(file);
    const wordengine::Dictionary dictionary(std::make_unique<wordengine::PatriciaTriePolicy>(mapping.open()));
    const wordengine::Layout layout = wordengine::qwertyLayout();
    const auto keyboard = layout.build();
    const std::vector<int> word = {'t', 'h', 'e', 'q', 'u', 'i'};
    std::vector<int> xs, ys;
    for (const int letter : word) {
        xs.push_back(layout.centerX(letter));
        ys.push_back(layout.centerY(letter));
    }
    wordengine::DicTraverseSession session(false);
    wordengine::SuggestionResults results(18);
    dictionary.getSuggestions(keyboard.get(), &session, xs.data(), ys.data(), nullptr, nullptr, word.data(),
                              static_cast<int>(word.size()), nullptr, nullptr, -1.0f, &results);
    EXPECT_LE(session.getWorkspace()->children.getBytesRead(), LIMIT + static_cast<int64_t>(file.size()));
    EXPECT_EQ(results.getSuggestionCount(), 18);
}

}  // namespace
}  // namespace vorpel::testing
