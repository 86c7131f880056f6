// SPDX-License-Identifier: Apache-2.0
#include "dictionary/dictionary_structure_with_buffer_policy_factory.h"
#include "dictionary/header_policy.h"
#include "dictionary_fixture.h"
#include "storage/buffer_with_extendable_buffer.h"
#include "text/time_keeper.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace wordengine::test {
namespace {

using Attributes = std::vector<std::pair<std::string, std::string>>;

constexpr int NOW = 1700000000;

class HeaderTest : public ::testing::Test {
protected:
    void SetUp() override { TimeKeeper::startTestModeWithForceCurrentTime(NOW); }
    void TearDown() override { TimeKeeper::stopTestMode(); }
};

HeaderPolicy headerOf(const Bytes& file) {
    return HeaderPolicy(ReadOnlyByteArrayView(file.data(), file.size()), FormatUtils::VERSION_2);
}

HeaderPolicy headerOf(const Attributes& attributes) {
    return headerOf(TrieAssembler::fileOf({}, attributes));
}

std::u32string valueOf(const HeaderPolicy& header, const char* key, int size = 64) {
    std::vector<int> value(static_cast<size_t>(size), -7);
    header.readHeaderValueOrQuestionMark(key, value.data(), size);
    std::u32string text;
    for (int i = 0; value[static_cast<size_t>(i)] != 0; ++i) text += static_cast<char32_t>(value[i]);
    return text;
}

TEST_F(HeaderTest, ReadsNumbersAsDecimalText) {
    const std::vector<std::pair<std::string, int>> cases = {
        {"0", 0},     {"7", 7},     {"-12", -12}, {"007", 7},  {"2147483647", 2147483647},
        {"12x", NOW}, {"1-2", NOW}, {"+5", NOW},  {" 5", NOW}, {"-2147483648", -2147483647 - 1},
        {"-", 0},     {"", 0},      {"--5", NOW}, {"٣", NOW},  {"4294967297", 1}};
    for (const auto& [text, expected] : cases) {
        EXPECT_EQ(headerOf(Attributes{{"date", text}}).getDate(), expected) << text;
    }
    EXPECT_EQ(headerOf(Attributes{}).getDate(), NOW);
}

TEST_F(HeaderTest, DerivesSettingsFromAttributes) {
    const std::vector<std::pair<std::string, float>> rates = {
        {"0", 1e7f}, {"-5", 1e7f}, {"200", 0.5f}, {"many", 1.0f}};
    for (const auto& [text, expected] : rates) {
        EXPECT_EQ(headerOf(Attributes{{"MULTIPLE_WORDS_DEMOTION_RATE", text}}).getMultiWordCostMultiplier(),
                  expected)
            << text;
    }
    EXPECT_TRUE(headerOf(Attributes{}).shouldBoostExactMatches());
    const HeaderPolicy full = headerOf(
        Attributes{{"USES_FORGETTING_CURVE", "-1"}, {"UNIGRAM_COUNT", "5"}, {"MAX_BIGRAM_COUNT", "77"}});
    EXPECT_FALSE(full.shouldBoostExactMatches());
    EXPECT_EQ(full.getUnigramCount(), 5);
    // A new dictionary has the settings and none of the contents.
    const HeaderPolicy fresh(FormatUtils::VERSION_403, codePointsOf(U"fr"), full.getAttributeMap());
    EXPECT_EQ(fresh.getUnigramCount(), 0);
    EXPECT_EQ(*fresh.getLocale(), codePointsOf(U"fr"));
    EXPECT_EQ(fresh.getMaxBigramCount(), 77);
    EXPECT_TRUE(fresh.supportsBeginningOfSentence());
}

TEST_F(HeaderTest, KeepsTheFirstOfEqualKeysAndCutsLongValues) {
    EXPECT_EQ(headerOf(Attributes{{"date", "1"}, {"date", "2"}}).getDate(), 1);
    // The 257th letter is lost to the cut, and the rest of the value is taken for the next key.
    const std::string longValue(300, 'v');
    const HeaderPolicy header = headerOf(Attributes{{"k", longValue}, {"date", "5"}});
    EXPECT_EQ(valueOf(header, "k", 512).size(), 256u);
    EXPECT_EQ(valueOf(header, "k", 2), U"v") << "cut to the buffer";
    EXPECT_EQ(valueOf(header, std::string(43, 'v').c_str()), U"date");
    EXPECT_EQ(header.getDate(), NOW);
}

TEST_F(HeaderTest, WritesWhatItReads) {
    const HeaderPolicy original = headerOf(
        Attributes{{"locale", "en"}, {"MULTIPLE_WORDS_DEMOTION_RATE", "50"}, {"LAST_DECAYED_TIME", "9"}});
    HeaderReadWriteUtils::AttributeMap attributes = *original.getAttributeMap();
    attributes[{}] = codePointsOf(U"a pair without key is left out");
    attributes[codePointsOf(U"no value")] = {};
    attributes[codePointsOf(U"Ключ")] = codePointsOf(U"значение \U0001F600");
    for (const int version : {399, 402, 403}) {
        for (const bool updatesLastDecayedTime : {false, true}) {
            const HeaderPolicy policy(FormatUtils::getFormatVersion(version), *original.getLocale(),
                                      &attributes);
            BufferWithExtendableBuffer buffer(100000);
            ASSERT_TRUE(policy.fillInAndWriteHeaderToBuffer(updatesLastDecayedTime, 11, 22, 33, &buffer));
            const ReadOnlyByteArrayView bytes = buffer.getBuffer(true);
            ASSERT_EQ(FormatUtils::detectFormatVersion(bytes.data(), static_cast<int>(bytes.size())),
                      version);
            const HeaderPolicy read(bytes, FormatUtils::getFormatVersion(version));
            EXPECT_EQ(read.getSize(), buffer.getTailPosition());
            EXPECT_EQ(read.getUnigramCount(), 11);
            EXPECT_EQ(read.getBigramCount(), 22);
            EXPECT_EQ(read.getExtendedRegionSize(), 33);
            EXPECT_EQ(read.getDate(), NOW);
            EXPECT_EQ(read.getLastDecayedTime(), updatesLastDecayedTime ? NOW : 9);
            EXPECT_EQ(read.getMultiWordCostMultiplier(), 2.0f);
            EXPECT_EQ(valueOf(read, "no value"), U"?");
            EXPECT_EQ(read.getAttributeMap()->at(codePointsOf(U"Ключ")),
                      codePointsOf(U"значение \U0001F600"));
            EXPECT_EQ(read.getAttributeMap()->count({}), 0u);
        }
    }
}

TEST_F(HeaderTest, StopsAtTheFirstWriteThatFindsNoRoom) {
    const HeaderReadWriteUtils::AttributeMap none;
    const HeaderPolicy policy(FormatUtils::VERSION_403, codePointsOf(U"en"), &none);
    BufferWithExtendableBuffer large(1000);
    ASSERT_TRUE(policy.fillInAndWriteHeaderToBuffer(true, 1, 2, 3, &large));
    const int needed = large.getTailPosition();
    for (int room = 0; room < needed; ++room) {
        BufferWithExtendableBuffer small(room);
        EXPECT_FALSE(policy.fillInAndWriteHeaderToBuffer(true, 1, 2, 3, &small)) << room;
    }
}

TEST_F(HeaderTest, EndsWithTheFile) {
    const Bytes file = TrieAssembler::fileOf({}, {{"date", "12"}, {"locale", "en"}});
    for (size_t length = 0; length <= file.size(); ++length) {
        // On the heap and of the exact size, so that a read behind the end is seen.
        const HeaderPolicy header = headerOf(Bytes(file.begin(), file.begin() + static_cast<long>(length)));
        EXPECT_EQ(header.getDate(), length < 20 ? NOW : 12) << length;
    }
    // A file of nothing but attributes does not fill the memory with them.
    Bytes attributes{0x9B, 0xC1, 0x3A, 0xFE, 0, 2, 0, 0, 0x7F, 0xFF, 0xFF, 0xFF};
    for (int i = 0; i < 100000; ++i) {
        for (int digit = i; digit > 0; digit /= 50)
            attributes.push_back(static_cast<uint8_t>('A' + digit % 50));
        attributes.insert(attributes.end(), {0x1F, 0x1F});
    }
    EXPECT_EQ(headerOf(attributes).getAttributeMap()->size(), HeaderReadWriteUtils::MAX_ATTRIBUTE_COUNT);
}

TEST(FactoryTest, OpensReadOnlyFilesOfTheFirstFormatOnly) {
    const auto opens = [](const Bytes& bytes, bool isUpdatable) {
        const vorpel::testing::MemoryFile file(bytes);
        return DictionaryStructureWithBufferPolicyFactory::newPolicyForExistingDictFile(
                   file.path().c_str(), 0, static_cast<int>(bytes.size()), isUpdatable) != nullptr;
    };
    Bytes file = TrieAssembler::fileOf({0});
    EXPECT_TRUE(opens(file, false));
    EXPECT_FALSE(opens(file, true));
    EXPECT_FALSE(opens(Bytes(file.begin(), file.begin() + 11), false));
    for (const int version : {0, 3, 399, 402, 403, 404}) {
        file[4] = static_cast<uint8_t>(version >> 8);
        file[5] = static_cast<uint8_t>(version);
        EXPECT_FALSE(opens(file, false)) << version;
    }
    const auto open = &DictionaryStructureWithBufferPolicyFactory::newPolicyForExistingDictFile;
    for (const char* path : {"/tmp", "/nowhere/at/all.dic"}) {
        for (const bool isUpdatable : {false, true}) EXPECT_EQ(open(path, 0, 100, isUpdatable), nullptr);
    }
}

}  // namespace
}  // namespace wordengine::test
