// SPDX-License-Identifier: Apache-2.0
#include "suggestion/proximity_provider.h"

#include "proximity/proximity_info_utils.h"
#include "suggestion/file_utils.h"
#include "suggestion/geometry_file.h"
#include "support/temporary_folder.h"
#include "text/diagnostics.h"

#include <gtest/gtest.h>
#include <json/json.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace vorpel {
namespace {

using testing::TemporaryFolder;
using wordengine::ProximityInfo;

/// A geometry file of keys in one row, 10 x 20 pixels each; every cell lists them all.
Json::Value geometryOf(const std::string& letters) {
    Json::Value root;
    root["locale"] = "en_US";
    root["keyboardMinWidth"] = 100;
    root["keyboardHeight"] = 20;
    root["gridWidth"] = 4;
    root["gridHeight"] = 2;
    root["mostCommonKeyWidth"] = 10;
    root["mostCommonKeyHeight"] = 20;
    root["keyCount"] = static_cast<int>(letters.size());
    for (int cell = 0; cell < 8; ++cell) {
        for (size_t slot = 0; slot < 16; ++slot) {
            root["proximityCharsArray"].append(slot < letters.size() ? letters[slot] : -1);
        }
    }
    for (size_t i = 0; i < letters.size(); ++i) {
        root["keyXCoordinates"].append(static_cast<int>(i) * 10);
        root["keyYCoordinates"].append(0);
        root["keyWidths"].append(10);
        root["keyHeights"].append(20);
        root["keyCharCodes"].append(letters[i]);
        root["sweetSpotCenterXs"].append(static_cast<double>(i) * 10 + 5.5);
        root["sweetSpotCenterYs"].append(10.25);
        root["sweetSpotRadii"].append(1.5);
    }
    return root;
}

std::string write(const TemporaryFolder& folder, const std::string& name, const Json::Value& root) {
    return folder.write(name, Json::FastWriter().write(root));
}

/// The message that loading the content as a geometry file ends with, empty if it loads.
std::string failureOf(const TemporaryFolder& folder, const std::string& content) {
    const std::string path = folder.write("en_US_P_1.json", content);
    try {
        ProximityProvider(folder.path(), "en");
        return "";
    } catch (const std::runtime_error& error) {
        const std::string message = error.what();
        const std::string start = "reading file : " + path + " has failed";
        EXPECT_EQ(message.substr(0, start.size()), start);
        return message.substr(start.size());
    }
}

TEST(ProximityProvider, eachCodeFindsItsLayoutAndCentre) {
    TemporaryFolder folder;
    write(folder, "en_US_P_113.json", geometryOf("abc"));
    write(folder, "my en_US_P_81 copy", geometryOf("ABC"));
    write(folder, "ar_SA_P.json", geometryOf("xyz"));
    write(folder, "en_GB_P_113.json", geometryOf("q"));
    std::filesystem::create_directory(folder.path("en_US_P_folder"));
    ProximityProvider english(folder.path(), "en");
    ProximityInfo* const lower = english.getProximity('a');
    ProximityInfo* const upper = english.getProximity('A');
    ASSERT_NE(lower, nullptr);
    EXPECT_NE(lower, upper);
    EXPECT_EQ(english.getProximity('c'), lower);
    EXPECT_EQ(english.getProximity('C'), upper);
    EXPECT_EQ(lower->getOriginalCodePointOf(1), 'b');
    EXPECT_EQ(upper->getOriginalCodePointOf(1), 'B');
    EXPECT_EQ(lower->getCellWidth(), 25);
    EXPECT_TRUE(lower->hasTouchPositionCorrectionData());
    EXPECT_FLOAT_EQ(english.getKeyCoordinate('b')->x, 15.5f);
    EXPECT_FLOAT_EQ(english.getKeyCoordinate('b')->y, 10.25f);
    int slots[16];
    wordengine::ProximityInfoUtils::buildProximityCodePoints(*lower, 'a', 5, 5, slots);
    EXPECT_EQ(std::vector<int>(slots, slots + 3), (std::vector<int>{'a', 'b', -1})) << "c is a key too far";

    // Unknown codes share the first layout, and stand nowhere.
    const std::vector<std::string> order = FileUtils::getFiles(folder.path(), true, "en_US_P_");
    ASSERT_EQ(order.size(), 2u);
    EXPECT_EQ(english.getProximity('x'), order[0] == "en_US_P_113.json" ? lower : upper);
    EXPECT_EQ(english.getKeyCoordinate('x')->x, 0.0f);

    ProximityProvider arabic(folder.path(), "ar");
    EXPECT_EQ(arabic.getProximity('a'), arabic.getProximity('x'));
    EXPECT_FLOAT_EQ(arabic.getKeyCoordinate('z')->x, 25.5f);
}

TEST(GeometryFiles, usableAndUnusableContent) {
    TemporaryFolder folder;
    const auto changed = [](const char* member, const Json::Value& value) {
        Json::Value root = geometryOf("abc");
        root[member] = value;
        return Json::FastWriter().write(root);
    };
    const auto list = [](const std::vector<Json::Value>& values) {
        Json::Value array = Json::arrayValue;
        for (const Json::Value& value : values) array.append(value);
        return array;
    };
    const Json::Value shortArray = list({1});
    for (const std::string& usable :
         {std::string("{}"), changed("keyXCoordinates", list({1.9, -2.9, Json::nullValue})),
          changed("keyCount", 2), changed("keyCount", -5), changed("gridWidth", 0), changed("gridHeight", -7),
          changed("mostCommonKeyWidth", 0), changed("proximityCharsArray", shortArray)}) {
        EXPECT_EQ(failureOf(folder, usable), "") << usable;
    }
    for (const char* unparsable : {"", "{", "[1,", "nonsense", "{\"keyCount\": 1e}"}) {
        EXPECT_EQ(failureOf(folder, unparsable), "!") << unparsable;
    }
    std::vector<std::string> unusable = {"[]", "7", "null", "\"text\""};
    for (const char* member : {"keyXCoordinates", "keyYCoordinates", "keyWidths", "keyHeights",
                               "keyCharCodes", "sweetSpotCenterXs", "sweetSpotCenterYs", "sweetSpotRadii"}) {
        for (const Json::Value& value : {shortArray, Json::Value("text"), list({1e300, 1e300, 1e300}),
                                         list({"one", "one", "one"}), Json::Value()}) {
            unusable.push_back(changed(member, value));
        }
    }
    for (const auto& [member, value] :
         std::vector<std::pair<const char*, Json::Value>>{{"gridWidth", 1 << 30},
                                                          {"keyCount", 1 << 30},
                                                          {"keyboardHeight", 1e18},
                                                          {"keyboardMinWidth", "wide"},
                                                          {"locale", Json::arrayValue}}) {
        unusable.push_back(changed(member, value));
    }
    unusable.push_back(std::string(5000, '['));
    unusable.push_back("{\"keyXCoordinates\": [0" + std::string((1 << 20) - 22, ' ') + "]}");
    for (const std::string& content : unusable) {
        EXPECT_EQ(failureOf(folder, content).substr(0, 3), " : ") << content.substr(0, 200);
    }
}

/// Keys in a row of live frames, in two cases.
struct LiveRow {
    explicit LiveRow(int count) {
        for (int i = 0; i < count; ++i) {
            xs.push_back(i % 10 * 32);
            ys.push_back(i / 10 * 50);
            widths.push_back(32);
            heights.push_back(50);
            upper.push_back('A' + i);
            lower.push_back('a' + i);
        }
    }
    std::unique_ptr<ProximityProvider> provider(const std::string& lowerPath,
                                                const std::string& upperPath) const {
        return std::make_unique<ProximityProvider>("en_US", 320, 200, 32, 50, static_cast<int>(xs.size()),
                                                   xs.data(), ys.data(), widths.data(), heights.data(),
                                                   upper.data(), lower.data(), lowerPath, upperPath);
    }
    std::vector<int> xs, ys, widths, heights, upper, lower;
};

TEST(LiveProximityProvider, framesGiveSweetSpotsAndFilesGiveLists) {
    TemporaryFolder folder;
    Json::Value lists;
    for (int i = 0; i < 32 * 16 * 16; ++i) lists["proximityCharsArray"].append(i % 16 == 0 ? 'b' : -1);
    const std::string lowerPath = write(folder, "lower", lists);
    lists["proximityCharsArray"].resize(48);
    const std::string upperPath = write(folder, "upper", lists);
    for (const int count : {0, 3, 30, 70}) {
        const LiveRow row(count);
        const auto provider = row.provider(lowerPath, upperPath);
        ProximityInfo* const lower = provider->getProximity('a');
        EXPECT_EQ(lower->getKeyCount(), std::min(count, 64));
        EXPECT_EQ(lower->getGridWidth(), 32);
        EXPECT_EQ(lower->getProximityCharsOfCell(25, 0).size(), 16u);
        EXPECT_TRUE(lower->getProximityCharsOfCell(35, 0).empty()) << "the shorter list counts for both";
        if (count != 3 && count != 30) continue;
        EXPECT_NE(provider->getProximity('A'), lower);
        EXPECT_EQ(provider->getProximity('A')->getOriginalCodePointOf(0), 'A');
        const KeyCoordinate* const b = provider->getKeyCoordinate('b');
        EXPECT_NEAR(b->x, 0.0038756 * 32 + (32 + 32) / 2.0, 1e-4);
        EXPECT_NEAR(b->y, -0.0005677 * 50 + 50 / 2.0, 1e-4);
        EXPECT_NEAR(lower->getSweetSpotRadiiAt(1), 0.1577026 * std::hypot(32, 50), 1e-4);
        if (count < 30) continue;
        // The first and the last key of each row of the table.
        for (const auto& [key, offsetX, factor] : {std::tuple(9, 0.0038756, 0.1577026),
                                                   {10, -0.0236678, 0.1529972},
                                                   {18, -0.0236678, 0.1529972},
                                                   {19, -0.0086827, 0.1522819},
                                                   {25, -0.0086827, 0.1522819},
                                                   {26, 0.0, 0.15}}) {
            EXPECT_NEAR(lower->getSweetSpotCenterXAt(key), offsetX * 32 + (row.xs[key] + 32) / 2.0, 1e-4);
            EXPECT_NEAR(lower->getSweetSpotRadiiAt(key), factor * std::hypot(32, 50), 1e-4);
        }
    }
    EXPECT_THROW(LiveRow(3).provider(folder.path("missing"), upperPath), std::runtime_error);
    EXPECT_THROW(LiveRow(3).provider(lowerPath, folder.write("bad", "[]")), std::runtime_error);
}

TEST(LiveProximityProvider, neighboursAreTheKeysNearACellsCentre) {
    TemporaryFolder folder;
    ProximityProvider provider(folder.path(), "en");
    const LiveRow row(33);
    provider.computeNearestNeighbours(320, 200, 32, 50, 33, 33, row.xs.data(), row.ys.data(),
                                      row.widths.data(), row.heights.data(), 10, 13, row.lower.data(),
                                      row.upper.data());
    std::vector<int> upper(8192), lower(8192);
    wordengine::Diagnostics::setStream(nullptr);
    provider.getProximityCharsArrays(upper.data(), lower.data());
    wordengine::Diagnostics::setStream(stdout);
    for (int cell = 0; cell < 512; ++cell) {
        const int x = cell % 32 * 10 + 5;
        const int y = cell / 32 * 13 + 6;
        std::vector<int> expected;
        for (int k = 0; k < 29; ++k) {
            const int dx = x - std::clamp(x, row.xs[k], row.xs[k] + 32);
            const int dy = y - std::clamp(y, row.ys[k], row.ys[k] + 50);
            if (dx * dx + dy * dy < 38 * 38) expected.push_back('a' + k);
        }
        expected.resize(16, -1);
        const std::vector<int> slots(lower.begin() + cell * 16, lower.begin() + cell * 16 + 16);
        EXPECT_EQ(slots, expected) << cell;
        for (int& code : expected) code -= code > 0 ? 32 : 0;
        EXPECT_TRUE(std::equal(expected.begin(), expected.end(), upper.begin() + cell * 16));
    }
}

}  // namespace
}  // namespace vorpel
