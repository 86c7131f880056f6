// SPDX-License-Identifier: Apache-2.0
#include "compiler/recipe.h"

#include "compiler/dictionary_builder.h"
#include "compiler/input_error.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace vorpel::compiler {
namespace {

using vorpel::testing::TemporaryFolder;

TEST(RecipeTest, ReadsNamesQuotesOptionsAndComments) {
    const Recipe recipe = Recipe::parseText(
        "\xEF\xBB\xBF# a comment\r\n"
        "attribute description \"English (US), a=b #1\"  # behind a space\r\n"
        "\twords $SOURCES/a.tsv weight=0.75 optional\n"
        "words \"my words.tsv\" kind=probability\n"
        "case-twins share=0.5 keep=\"my list.txt\"\n"
        "limit words=60000\n"
        "words optional.tsv#1",
        "folder/en.recipe");
    EXPECT_EQ("folder/", recipe.folder);
    ASSERT_EQ(1u, recipe.attributes.size());
    EXPECT_EQ("English (US), a=b #1", recipe.attributes[0].second);
    ASSERT_EQ(3u, recipe.words.size());
    EXPECT_EQ("$SOURCES/a.tsv", recipe.words[0].file.path);
    EXPECT_TRUE(recipe.words[0].file.isOptional);
    EXPECT_EQ(3, recipe.words[0].file.line);
    EXPECT_EQ(0.75, recipe.words[0].weight);
    EXPECT_EQ("my words.tsv", recipe.words[1].file.path);
    EXPECT_EQ(WordSourceKind::PROBABILITY, recipe.words[1].kind);
    EXPECT_EQ("optional.tsv#1", recipe.words[2].file.path);
    EXPECT_EQ("my list.txt", recipe.caseTwins->keep->path);
    EXPECT_EQ(60000, recipe.limit.words);
    EXPECT_FALSE(recipe.limit.pairs);
}

TEST(RecipeTest, ErrorsNameTheLineAndTheReason) {
    struct Case {
        const char* text;
        int line;
        const char* reason;
    };
    const Case cases[] = {
        {"\n\nword a.tsv", 3, "unknown directive \"word\""},
        {"words", 1, "\"words\" needs a path"},
        {"words a.tsv b.tsv", 1, "does not take \"b.tsv\""},
        {"words a.tsv wieght=1", 1, "unknown option \"wieght\" of \"words\""},
        {"words a.tsv weight=much", 1, "weight=much is not a number"},
        {"words a.tsv weight=1e999", 1, "is not a number"},
        {"words a.tsv weight=nan", 1, "is not a number"},
        {"words a.tsv weight=-1", 1, "weight=-1 is not 0 to 1e+06"},
        {"words a.tsv weight=1 weight=2", 1, "\"weight\" stands twice"},
        {"words a.tsv kind=guess", 1, "kind=guess"},
        {"words \"a.tsv", 1, "not closed"},
        {"attribute locale", 1, "needs a value"},
        {"attribute a b\nattribute a c", 2, "stands twice"},
        {"seed a direction=down", 1, "direction=down"},
        {"# x\nlimit words=1\nlimit pairs=1", 3, "\"limit\" stands twice"},
        {"limit words=many", 1, "not a whole number"},
        {"limit words=1 optional", 1, "cannot be optional"},
        {"limit words=1.5", 1, "not a whole number"},
        {"case-twins share=2", 1, "share=2 is not 0 to 1"},
        {"slips", 1, "layout"},
        {"slips fr", 1, "\"fr\" is not en or ar"},
        {"seed a slips=maybe", 1, "slips=maybe is not keep or drop"},
        {"corrections a share=0.1", 1, "needs the directive \"slips\""},
        {"scale minimum=9 maximum=8", 1, "above the maximum"},
        {"scale maximum=256", 1, "not 0 to 255"},
        {"shortcuts a probability=15", 1, "not 0 to 14"},
        {"words a\nwords \xFF", 2, "not UTF-8"},
    };
    for (const Case& c : cases) {
        try {
            Recipe::parseText(c.text, "some.recipe");
            ADD_FAILURE() << "accepted: " << c.text;
        } catch (const InputError& error) {
            EXPECT_EQ(c.line, error.line) << c.text;
            EXPECT_NE(std::string::npos, error.reason.find(c.reason)) << error.reason;
            EXPECT_EQ(std::string("some.recipe:") + std::to_string(c.line) + ": " + error.reason,
                      error.what());
        }
    }
}

TEST(RecipeTest, ErrorsInListsNameTheirFileAndLine) {
    struct Case {
        const char* directive;
        std::string content;
        int line;
        const char* reason;
    };
    const std::string tooLong(49, 'x');
    const Case cases[] = {
        {"words list", "a\t1\nb 2\n", 2, "not word<TAB>count"},
        {"words list", "a\t1\nb\t-2\n", 2, "\"-2\" is not a count"},
        {"words list", "a\tinf\n", 1, "\"inf\" is not a count"},
        {"words list", "a\t1e16\n", 1, "\"1e16\" is not a count"},
        {"words list", "# x\n\na\t1\n\xC3\x28\t1\n", 4, "not UTF-8"},
        {"words list kind=arpa", "a\t1\n", 1, "\\data\\ is missing"},
        {"arpa list", "\\data\\\nngram 1=1\n\\1-grams:\n-1 a\n", 4, "without \\end\\"},
        {"arpa list", "\\data\\\n\\1-grams:\n-1\n\\end\\", 3, "not an entry of 1-grams"},
        {"arpa list", "\\data\\\n\\1-grams:\n0.5 a\n\\end\\", 3, "not an entry of 1-grams"},
        {"arpa list", "\\data\\\n\\one-grams:\n\\end\\", 2, "not a section"},
        {"ngrams list", "a\tb\n", 1, "not first<TAB>second<TAB>count"},
        {"exclude list", "good\nnot good\n", 2, "\"not good\" holds white space"},
        {"exclude list", tooLong, 1, "more than 48 code points"},
        {"exclude list", "a\x01", 1, "control character"},
        {"offensive list", "\ta", 1, "is empty"},
        {"floor list", "a\t0\n", 1, "not a probability"},
        {"seed list", "word\n[tier 1e-3]\n", 1, "before the first [tier"},
        {"seed list", "[tier]\nword", 1, "not [tier PROBABILITY]"},
        {"seed list", "[tier 1e-3\nword", 1, "not [tier PROBABILITY]"},
        {"seed list", "[tier 7]\nword", 1, "not a probability"},
        {"pairs-seed list", "good morning\nlonely", 2, "no word that follows"},
        {"corrections list", "dont don't", 1, "not typed<TAB>intended"},
        {"corrections list", "dont\tdon't\ndont\t", 2, "is empty"},
        {"corrections list", "dont\tdont", 1, "replaced by itself"},
        {"corrections list", "alot\ta  lot", 1, "separates nothing"},
        {"shortcuts list", "a b\tab", 1, "white space"},
    };
    for (const Case& c : cases) {
        const TemporaryFolder folder;
        folder.write("list", c.content);
        try {
            static_cast<void>(buildDictionary(
                Recipe::parseFile(folder.write("a.recipe", std::string_view(c.directive))), ""));
            ADD_FAILURE() << "accepted: " << c.directive << "\n" << c.content;
        } catch (const InputError& error) {
            EXPECT_EQ(folder.path("list"), error.file);
            EXPECT_EQ(c.line, error.line) << c.directive << "\n" << c.content;
            EXPECT_NE(std::string::npos, error.reason.find(c.reason)) << error.reason;
        }
    }
}

TEST(RecipeTest, AMissingFileIsBlamedOnTheRecipeUnlessItIsOptional) {
    const TemporaryFolder folder;
    for (const char* path : {"none.tsv", "$SOURCES/none.tsv", "/none/none.tsv"}) {
        for (const char* directive : {"words", "arpa", "ngrams", "vocabulary", "floor", "seed", "exclude",
                                      "offensive", "pairs-seed", "corrections", "shortcuts"}) {
            const std::string line = "\n" + std::string(directive) + " " + path;
            try {
                static_cast<void>(buildDictionary(Recipe::parseText(line, folder.path("a.recipe")), ""));
                ADD_FAILURE() << line;
            } catch (const InputError& error) {
                EXPECT_EQ(folder.path("a.recipe"), error.file);
                EXPECT_EQ(2, error.line);
            }
            const BuildReport report =
                buildDictionary(Recipe::parseText(line + " optional", folder.path("a.recipe")), "").report;
            EXPECT_EQ(std::vector<std::string>{path}, report.missingSources);
            ASSERT_EQ(1u, report.warnings.size());
            EXPECT_NE(std::string::npos, report.warnings[0].find(std::string("built without ") + path));
        }
    }
}

}  // namespace
}  // namespace vorpel::compiler
