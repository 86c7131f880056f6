// SPDX-License-Identifier: Apache-2.0
#include "capi/service_fixture.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace vorpel::testing {
namespace {

namespace fs = std::filesystem;

class ErrorsTest : public ServiceTest {
protected:
    /// The status of opening, with no service left when it fails.
    vorpel_status open(const std::string& folder, const char* language, const char* dictionary = nullptr) {
        vorpel_options options = VORPEL_OPTIONS_INIT;
        options.resource_folder = folder.c_str();
        options.language = language;
        options.dictionary = dictionary;
        auto* service = reinterpret_cast<vorpel_service*>(this);
        const vorpel_status status = vorpel_open(&options, &service);
        if (status == VORPEL_OK) {
            vorpel_close(service);
        } else {
            EXPECT_EQ(service, nullptr);
        }
        return status;
    }

    /// The text of the last error after the path, which it must begin with.
    static std::string reasonFor(const std::string& path) {
        const std::string text = vorpel_error_text();
        EXPECT_EQ(text.find('\n'), std::string::npos) << text;
        EXPECT_EQ(text.substr(0, path.size() + 2), path + ": ");
        return text.size() > path.size() + 2 ? text.substr(path.size() + 2) : "";
    }

    std::string folder() const { return english.folder().path(); }
    std::string bytesOf(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(ErrorsTest, OpeningNamesTheDictionaryAndTheReason) {
    const std::string path = english.dictionaryPath();
    const std::string whole = bytesOf(path);
    std::string newer = whole;
    newer[5] = 9;
    for (const std::string& other : {std::string(), std::string("PK\3\4 something else"), newer}) {
        english.folder().write("en_US.dic", other);
        EXPECT_EQ(open(folder(), "en"), VORPEL_ERROR_DICTIONARY);
        EXPECT_EQ(reasonFor(path), "not a dictionary of a format that can be opened");
    }
    english.folder().write("en_US.dic", whole.substr(0, whole.size() - 1));
    EXPECT_EQ(open(folder(), "en"), VORPEL_ERROR_DICTIONARY);
    EXPECT_EQ(reasonFor(path), "the dictionary is damaged");
    fs::remove(path);
    EXPECT_EQ(open(folder(), "en"), VORPEL_ERROR_DICTIONARY);
    EXPECT_EQ(reasonFor(path), "No such file or directory");
    fs::create_directory(path);
    EXPECT_EQ(open(folder(), "en"), VORPEL_ERROR_DICTIONARY);
    EXPECT_EQ(reasonFor(path), "Is a directory");

    const std::string mine = english.folder().write("mine.dic", whole);
    EXPECT_EQ(open(folder(), "en", mine.c_str()), VORPEL_OK);
    EXPECT_EQ(open("/no/such/folder", "en"), VORPEL_ERROR_DICTIONARY);
    EXPECT_EQ(reasonFor("/no/such/folder/en_US.dic"), "No such file or directory");
}

TEST_F(ErrorsTest, OpeningNamesTheGeometryAndTheReason) {
    const std::string name = "en_US_P_113.json";
    const std::string path = english.folder().path(name);
    const std::string whole = bytesOf(path);
    const std::pair<std::string, const char*> damages[] = {
        {whole.substr(0, whole.size() / 2), "Line 1, Column"},
        {"", "Line 1, Column 1: Syntax error"},
        {"[]", "the file holds no object"},
        {"{\"keyCount\": 1}", "an array holds fewer than \"keyCount\" entries"},
        {"{}", "describes no keyboard"},
        {std::string(1 << 20, ' ') + "{}", "the file is too large"},
    };
    for (const auto& [content, reason] : damages) {
        english.folder().write(name, content);
        EXPECT_EQ(open(folder(), "en"), VORPEL_ERROR_GEOMETRY) << content.substr(0, 100);
        EXPECT_EQ(reasonFor(path).substr(0, std::string(reason).size()), reason);
    }
    english.folder().write(name, whole);
    EXPECT_EQ(open(folder(), "en"), VORPEL_OK);
    for (const char* file : {"en_US_P_113.json", "en_US_P_81.json"}) {
        const std::string kept = bytesOf(english.folder().path(file));
        fs::remove(english.folder().path(file));
        EXPECT_EQ(open(folder(), "en"), VORPEL_ERROR_GEOMETRY);
        EXPECT_EQ(reasonFor(english.folder().path(file)), "No such file or directory");
        english.folder().write(file, kept);
    }
}

TEST_F(ErrorsTest, ArgumentsAreChecked) {
    EXPECT_EQ(open(folder(), "fr"), VORPEL_ERROR_LANGUAGE);
    EXPECT_STREQ(vorpel_error_text(), "there is no language \"fr\": it may be en or ar");
    EXPECT_EQ(open(folder(), std::string(100000, 'x').c_str()), VORPEL_ERROR_LANGUAGE);
    EXPECT_LT(std::string(vorpel_error_text()).size(), 5000U) << "a long text is cut";
    vorpel_service* none = nullptr;
    vorpel_options options = VORPEL_OPTIONS_INIT;
    EXPECT_EQ(vorpel_open(nullptr, &none), VORPEL_ERROR_ARGUMENT);
    EXPECT_EQ(vorpel_open(&options, nullptr), VORPEL_ERROR_ARGUMENT);
    EXPECT_EQ(vorpel_open(&options, &none), VORPEL_ERROR_ARGUMENT) << "no folder";
    vorpel_close(nullptr);

    OpenService service(folder(), "en");
    vorpel_answer answer = VORPEL_ANSWER_INIT;
    const vorpel_point point = {1, 1};
    const struct {
        const char* word;
        const char* previous;
        std::size_t points;
    } refused[] = {{nullptr, "", 0},  {"\xC3", "", 0}, {"he\xED\xA0\x80", "", 0}, {"\xF5\x80\x80\x80", "", 0},
                   {"he", "\xFF", 0}, {"", "", 1}};
    for (const auto& request : refused) {
        EXPECT_EQ(vorpel_suggest(service.get(), "hrllo", "", nullptr, 0, &answer), VORPEL_OK);
        ASSERT_GT(answer.count, 0);
        EXPECT_EQ(
            vorpel_suggest(service.get(), request.word, request.previous, &point, request.points, &answer),
            VORPEL_ERROR_ARGUMENT);
        EXPECT_STRNE(vorpel_error_text(), "");
        EXPECT_EQ(answer.count, 0) << "the answer of the call before is not left";
        EXPECT_EQ(answer.words, nullptr);
    }
    EXPECT_EQ(vorpel_suggest(service.get(), "he", nullptr, nullptr, 7, &answer), VORPEL_OK);
    EXPECT_EQ(vorpel_suggest(service.get(), "he", "", nullptr, 0, nullptr), VORPEL_ERROR_ARGUMENT);
    EXPECT_EQ(vorpel_predict(service.get(), nullptr, &answer), VORPEL_OK);
    EXPECT_EQ(vorpel_predict(service.get(), "\xC0\x80", &answer), VORPEL_ERROR_ARGUMENT);
    EXPECT_EQ(vorpel_predict(nullptr, "", &answer), VORPEL_ERROR_ARGUMENT);
    EXPECT_EQ(vorpel_key_center(service.get(), 'h', nullptr), VORPEL_ERROR_ARGUMENT);
}

/// Programs that were compiled against other versions of the header.
TEST_F(ErrorsTest, CallersOfOtherVersions) {
    const std::string path = folder();
    vorpel_service* opened = nullptr;
    const auto status = [&](const void* given) {
        const vorpel_status result = vorpel_open(static_cast<const vorpel_options*>(given), &opened);
        vorpel_close(opened);
        return result;
    };
    // What lies behind the older one's options is not its own to give.
    vorpel_options older = VORPEL_OPTIONS_INIT;
    older.size = offsetof(vorpel_options, dictionary);
    older.resource_folder = path.c_str();
    older.language = "en";
    older.dictionary = "/no/such/dictionary";
    EXPECT_EQ(status(&older), VORPEL_OK) << vorpel_error_text();

    struct {
        vorpel_options known;
        std::uint64_t wish;  // as wide as the alignment: no padding behind it
    } newer = {older, 0};
    newer.known.size = sizeof(newer);
    newer.known.dictionary = nullptr;
    EXPECT_EQ(status(&newer), VORPEL_OK) << vorpel_error_text();
    newer.wish = 1;
    EXPECT_EQ(status(&newer), VORPEL_ERROR_ARGUMENT) << "a wish that is not known must not be passed over";

    OpenService service(folder(), "en");
    struct {
        vorpel_answer known;
        double certainty;
    } newerAnswer = {};
    newerAnswer.known.size = sizeof(newerAnswer);
    newerAnswer.certainty = 1;
    EXPECT_EQ(vorpel_suggest(service.get(), "he", "", nullptr, 0, &newerAnswer.known), VORPEL_OK);
    EXPECT_EQ(newerAnswer.known.size, sizeof(newerAnswer));
    EXPECT_EQ(newerAnswer.certainty, 0);
    vorpel_answer answer = VORPEL_ANSWER_INIT;
    for (const std::size_t size : {std::size_t{0}, sizeof(answer) - 1, std::size_t{1} << 40}) {
        answer.size = size;
        EXPECT_EQ(vorpel_suggest(service.get(), "he", "", nullptr, 0, &answer), VORPEL_ERROR_ARGUMENT);
    }
    older.size = 0;
    EXPECT_EQ(status(&older), VORPEL_ERROR_ARGUMENT);
}

}  // namespace
}  // namespace vorpel::testing
