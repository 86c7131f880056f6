// SPDX-License-Identifier: Apache-2.0
#include "suggestion/long_int_array.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>

namespace vorpel {
namespace {

using Ints = std::vector<int>;

TEST(LongIntArrayTest, TakesWhatIsPlainAndKeepsEveryPlace) {
    const struct {
        const char* json;
        Ints values;
    } cases[] = {
        {"{\"a\":[1]}", {1}},
        {"{ \"b\" : \"a\", \"c\":{\"a\":[9]}, \"a\" :\n [ 1 , -2,\n0,2147483647 ] , \"d\":[3]}",
         {1, -2, 0, 2147483647}},
        {"{\"b\":[\"a\"],\"a\":[5,6]", {5, 6}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.json);
        const std::string before = c.json;
        std::string after = before;
        LongIntArray array("a");
        ASSERT_TRUE(array.takeFrom(&after));
        EXPECT_EQ(array.values(), c.values);
        ASSERT_EQ(after.size(), before.size());
        EXPECT_EQ(std::count(after.begin(), after.end(), '\n'),
                  std::count(before.begin(), before.end(), '\n'));
        LongIntArray again("a");
        EXPECT_FALSE(again.takeFrom(&after)) << "an empty array is left";
    }
}

TEST(LongIntArrayTest, LeavesToTheParserWhatIsNot) {
    std::istringstream cases(
        R"(;{};[1];{"a":1};{"a":[]};{"a":[1,]};{"a":[1 2]};{"a":[1.5]};{"a":[1e3]};{"a":[007]};{"a":[-]};)"
        R"({"a":[2147483648]};{"a":[1,"x"]};{"a":[[1]]};{"a":[1;{"a":[1],"a":[2]};{"\u0061":[1],"a":[2]};)"
        R"({"a";{"a":;{"a;{"c":{"a":[1]}};{/* "a":[2] */"a":[1]})");
    for (std::string json; std::getline(cases, json, ';');) {
        SCOPED_TRACE(json);
        std::string text = json;
        LongIntArray array("a");
        EXPECT_FALSE(array.takeFrom(&text));
        EXPECT_EQ(text, json);
        EXPECT_TRUE(array.values().empty());
    }
}

}  // namespace
}  // namespace vorpel
