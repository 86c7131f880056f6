// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "keyboard/keyboard_stage.h"
#include "language_files.h"

#include <string>
#include <vector>

namespace vorpel::cli {

// What each command is asked for, and the command itself: it prints its answer on standard output,
// returns the exit status, and throws std::exception for a failure that is told in one line.

struct SuggestArguments {
    LanguageChoice choice;
    std::string previous;
    bool json = false;
    bool trace = false;
    std::vector<std::string> words;
};
int suggest(const SuggestArguments& arguments);

struct PredictArguments {
    LanguageChoice choice;
    bool json = false;
    std::vector<std::string> words;
};
int predict(const PredictArguments& arguments);

int serve(const LanguageChoice& choice);

struct DictArguments {
    std::string file;     ///< the recipe of `build`, the dictionary of the others
    std::string sources;  ///< of `build`
    std::string out;      ///< of `build`
    std::vector<std::string> words;
};
int buildDict(const DictArguments& arguments);
int describeDict(const DictArguments& arguments);
int listDict(const DictArguments& arguments);
int lookUpInDict(const DictArguments& arguments);
int verifyDict(const DictArguments& arguments);

struct GeometryArguments {
    std::string language = "en";
    int page = 0;
    double width = 375;
    bool capitals = false;
    std::string out;
};
int writeGeometry(const GeometryArguments& arguments);

struct PageArguments {
    std::string language = "en";
    int page = 0;
    double width = 375;
    double height = 216;
    double screenWidth = 0;  ///< 0 is the page's width
    double scale = 2;
    bool pad = false;
    bool json = false;
};
int describePage(const PageArguments& arguments);

struct RenderArguments {
    StageShape stage;
    int page = -1;       ///< the one that the field asks for, when negative
    int emojiPage = -1;  ///< of the emoji keyboard, in place of the keys, when not negative
    std::string shift = "off";
    std::string press;  ///< the key that a finger rests on
    bool hold = false;  ///< until the key has opened its alternatives
    bool settings = false;
    std::string out;
};
int renderPage(const RenderArguments& arguments);

struct TypeArguments {
    StageShape stage;
    int jitter = 0;           ///< a seed; 0 touches the middle of each key
    bool takesWords = false;  ///< taps a word in the bar as soon as it is the one meant
    std::string text;
    std::string picture;
};
int typeText(const TypeArguments& arguments);

struct WordsArguments {
    std::vector<std::string> words;
};
int listWords(const WordsArguments& arguments);
int removeWords(const WordsArguments& arguments);

struct EvalArguments {
    LanguageChoice choice;
    std::string set;
    std::string missesFile;
    int every = 1;
    bool digest = false;
    bool json = false;
};
int evaluate(const EvalArguments& arguments);

}  // namespace vorpel::cli
