// SPDX-License-Identifier: Apache-2.0
#include "command_line.h"

#include "commands.h"
#include "field_traits.h"
#include "keyboard/emoji_finger.h"
#include "platform/characters.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>

// All that is known of the options library stays in this file: it takes longer to compile than the
// rest of the tool.

namespace vorpel::cli {

namespace {

constexpr int STATUS_BAD_USAGE = 2;

// Of what is drawn: in points, and pixels a point.
constexpr double LARGEST_SIDE = 4096;
constexpr double LARGEST_SCALE = 4;

/// What the chosen command does once the whole line has been read.
using Action = std::function<int()>;

template <typename Arguments>
CLI::App* addCommand(CLI::App& app, Action& action, const char* name, const char* description,
                     const std::string& footer, const std::shared_ptr<Arguments>& arguments,
                     int (*run)(const Arguments&)) {
    CLI::App* command = app.add_subcommand(name, description);
    command->footer(footer);
    command->callback([&action, arguments, run] { action = [arguments, run] { return run(*arguments); }; });
    return command;
}

void addLanguageOption(CLI::App& command, std::string& language) {
    command.add_option("--language", language, "en or ar")
        ->check(CLI::IsMember({"en", "ar"}))
        ->capture_default_str();
}

void addLanguageOptions(CLI::App& command, LanguageChoice& choice) {
    addLanguageOption(command, choice.language);
    command.add_option("--dictionary", choice.dictionary, "a dictionary file in place of the built one");
    command.add_option("--geometry", choice.geometryFolder,
                       "a folder of key geometry files in place of the built ones");
}

void addSuggest(CLI::App& app, Action& action) {
    auto arguments = std::make_shared<SuggestArguments>();
    CLI::App* command =
        addCommand(app, action, "suggest", "The words that each typed word may become, ranked",
                   "Example: vorpel suggest --previous thank teh yuo\n"
                   "An arrow names the word that would replace the typed one.",
                   arguments, suggest);
    addLanguageOptions(*command, arguments->choice);
    command->add_option("--previous", arguments->previous, "the word before");
    command->add_flag("--json", arguments->json, "one JSON object a word");
    command->add_flag("--trace", arguments->trace, "what the search did after each letter");
    command->add_option("WORD", arguments->words, "what was typed")->required();
}

void addPredict(CLI::App& app, Action& action) {
    auto arguments = std::make_shared<PredictArguments>();
    CLI::App* command = addCommand(app, action, "predict", "The words that may follow each word",
                                   "Example: vorpel predict thank how good", arguments, predict);
    addLanguageOptions(*command, arguments->choice);
    command->add_flag("--json", arguments->json, "one JSON object a word");
    command->add_option("WORD", arguments->words, "the finished word")->required();
}

void addServe(CLI::App& app, Action& action) {
    auto choice = std::make_shared<LanguageChoice>();
    CLI::App* command =
        addCommand(app, action, "serve", "Answer requests on standard input, one JSON object a line",
                   "Example: echo '{\"op\":\"suggest\",\"word\":\"teh\",\"prev\":\"\"}' | vorpel serve\n"
                   "         echo '{\"op\":\"predict\",\"prev\":\"how\",\"lang\":\"en\"}' | vorpel serve",
                   choice, serve);
    addLanguageOptions(*command, *choice);
}

void addDict(CLI::App& app, Action& action) {
    CLI::App* dict = app.add_subcommand("dict", "Make, describe and check dictionaries");
    dict->footer("Example: vorpel dict info build/data/en_US.dic");
    dict->require_subcommand(1);
    auto arguments = std::make_shared<DictArguments>();

    CLI::App* build = addCommand(
        *dict, action, "build", "Make a dictionary of what a recipe names",
        "Example: vorpel dict build data/en/en_US.recipe --sources build/sources/en --out en_US.dic",
        arguments, buildDict);
    build->add_option("RECIPE", arguments->file, "what the dictionary is made of")->required();
    build->add_option("--sources", arguments->sources, "the folder that $SOURCES stands for in the recipe");
    build->add_option("--out", arguments->out, "the file to write")->required();

    const auto addReader = [&](const char* name, const char* description, const std::string& words,
                               int (*run)(const DictArguments&)) {
        CLI::App* reader = addCommand(
            *dict, action, name, description,
            "Example: vorpel dict " + std::string(name) + " build/data/en_US.dic" + words, arguments, run);
        reader->add_option("FILE", arguments->file, "the dictionary")->required();
        return reader;
    };
    addReader("info", "The header and the counts", "", describeDict);
    addReader("words", "Every entry, one a line", "", listDict);
    addReader("verify", "Check every byte", "", verifyDict);
    addReader("lookup", "The entries of some words", " the dont", lookUpInDict)
        ->add_option("WORD", arguments->words, "a word as it is spelled")
        ->required();
}

void addGeometry(CLI::App& app, Action& action) {
    auto arguments = std::make_shared<GeometryArguments>();
    CLI::App* command =
        addCommand(app, action, "geometry", "Write the geometry file of a page of keys",
                   "Example: vorpel geometry --language en --page 0 --width 375 --out en_US_P_113.json",
                   arguments, writeGeometry);
    addLanguageOption(*command, arguments->language);
    command->add_option("--page", arguments->page, "the page; 0 is the letters' page")->capture_default_str();
    command->add_option("--width", arguments->width, "in points, of a page held upright")
        ->check(CLI::Range(320.0, 500.0))
        ->capture_default_str();
    command->add_flag("--capitals", arguments->capitals, "the keys with shift held");
    command->add_option("--out", arguments->out, "the file to write")->required();
}

void addPage(CLI::App& app, Action& action) {
    auto arguments = std::make_shared<PageArguments>();
    CLI::App* command = addCommand(app, action, "page", "The keys of a page and where they lie",
                                   "Example: vorpel page --language ar --page 11 --width 320 --json\n"
                                   "A page twice as wide as high is laid out for landscape.",
                                   arguments, describePage);
    addLanguageOption(*command, arguments->language);
    command->add_option("--page", arguments->page, "the page's number")->capture_default_str();
    command->add_option("--width", arguments->width, "of the page, in points")
        ->check(CLI::Range(1.0, LARGEST_SIDE))
        ->capture_default_str();
    command->add_option("--height", arguments->height, "of the page, in points")
        ->check(CLI::Range(1.0, LARGEST_SIDE))
        ->capture_default_str();
    command->add_option("--screen-width", arguments->screenWidth, "of the screen, where it is another")
        ->check(CLI::Range(1.0, LARGEST_SIDE));
    command->add_option("--scale", arguments->scale, "pixels a point")
        ->check(CLI::Range(1.0, LARGEST_SCALE))
        ->capture_default_str();
    command->add_flag("--pad", arguments->pad, "on a tablet");
    command->add_flag("--json", arguments->json, "one JSON object");
}

/// What a keyboard is put up for.
void addStageOptions(CLI::App& command, StageShape& stage) {
    addLanguageOption(command, stage.language);
    command.add_option("--width", stage.width, "of the keyboard, in points")
        ->check(CLI::Range(1.0, LARGEST_SIDE))
        ->capture_default_str();
    command.add_option("--height", stage.height, "of the keys, in points, where not by the device's rule")
        ->check(CLI::Range(1.0, LARGEST_SIDE));
    command.add_option("--screen-width", stage.screenWidth, "of the screen, where it is another")
        ->check(CLI::Range(1.0, LARGEST_SIDE));
    command.add_option("--scale", stage.scale, "pixels a point")
        ->check(CLI::Range(1.0, LARGEST_SCALE))
        ->capture_default_str();
    command.add_flag("--pad", stage.isPad, "on a tablet");
    command.add_flag("--landscape", stage.isLandscape, "with the device held sideways");
    command.add_flag("--dark", stage.isDark, "in dark surroundings");
    command.add_option("--theme", stage.themeFile,
                       "a theme file; docs/formats/theme.md tells what stands in it");
    command
        .add_option_function<std::string>(
            "--field", [&stage](const std::string& field) { stage.field = host::traitsOfField(field); },
            "text, email, url, number or password")
        ->check(CLI::IsMember({"text", "email", "url", "number", "password"}))
        ->default_str("text");
    stage.field = host::traitsOfField("text");
}

int emojiPage(const std::string& name) {
    const auto& names = emojiPageNames();
    return static_cast<int>(std::ranges::find(names, name) - names.begin());
}

/// A number, or the emoji keyboard, on the page of faces where no other is named.
void readPage(RenderArguments& arguments, const std::string& page) {
    if (page == "emoji") {
        if (arguments.emojiPage < 0) arguments.emojiPage = FACES_AND_PEOPLE;
        return;
    }
    const char* const end = page.data() + page.size();
    const auto read = std::from_chars(page.data(), end, arguments.page);
    if (read.ec != std::errc() || read.ptr != end || arguments.page < 0) {
        throw CLI::ValidationError("--page", "\"" + page + "\" is no page");
    }
}

void addRender(CLI::App& app, Action& action) {
    auto arguments = std::make_shared<RenderArguments>();
    CLI::App* command =
        addCommand(app, action, "render", "A picture of a page of the keyboard",
                   "Example: vorpel render --page 1 --dark --out numbers.png", arguments, renderPage);
    addStageOptions(*command, arguments->stage);
    command->add_flag("--bar", arguments->stage.hasBar, "with the bar above the keys");
    command->add_option_function<std::string>(
        "--page", [arguments](const std::string& page) { readPage(*arguments, page); },
        "the page's number, where not the field's own, or \"emoji\"");
    command
        ->add_option_function<std::string>(
            "--category", [arguments](const std::string& name) { arguments->emojiPage = emojiPage(name); },
            "of the emoji page: recent, faces, animals, food, activity, travel, office, misc or flags")
        ->check(CLI::IsMember(emojiPageNames()));
    command->add_option_function<std::string>(
        "--recent",
        [arguments](const std::string& emoji) { arguments->stage.recentEmoji = platform::characters(emoji); },
        "emoji that were used before, the latest first");
    command->add_option("--shift", arguments->shift, "off, on or locked")
        ->check(CLI::IsMember({"off", "on", "locked"}));
    CLI::Option* press =
        command->add_option("--press", arguments->press, "a key that is held, by its cap or name");
    command->add_flag("--hold", arguments->hold, "so long that the key opens its alternatives")->needs(press);
    command->add_flag("--settings", arguments->settings, "the settings in place of the keys");
    command->add_option("--out", arguments->out, "the PNG file to write")->required();
}

void addType(CLI::App& app, Action& action) {
    auto arguments = std::make_shared<TypeArguments>();
    CLI::App* command = addCommand(
        app, action, "type", "Touch the keys of a text, and print the field and the bar after each",
        "Example: vorpel type --autocorrect on --jitter 7 'i dont knwo'\n"
        "An arrow names the word that the next blank puts in place of the typed one.",
        arguments, typeText);
    addStageOptions(*command, arguments->stage);
    arguments->stage.hasBar = true;
    command
        ->add_option_function<std::string>(
            "--autocorrect",
            [arguments](const std::string& value) { arguments->stage.autoCorrects = value == "on"; },
            "on or off")
        ->check(CLI::IsMember({"on", "off"}))
        ->default_str("off");
    command->add_flag("--take-words", arguments->takesWords,
                      "tap a word in the bar as soon as it is the one meant");
    command->add_option("--jitter", arguments->jitter,
                        "let the touches stray from the keys' middles, by a seed");
    command->add_option("--picture", arguments->picture, "write a picture of the keyboard at the end");
    command->add_option("TEXT", arguments->text, "what is typed")->required();
}

void addWords(CLI::App& app, Action& action) {
    CLI::App* words = app.add_subcommand("words", "The words that the keyboard has learnt from taps");
    words->footer("Example: vorpel words list");
    words->require_subcommand(1);
    auto arguments = std::make_shared<WordsArguments>();
    addCommand(*words, action, "list", "One a line, the oldest first", "Example: vorpel words list",
               arguments, listWords);
    CLI::App* remove = addCommand(*words, action, "remove", "Forget words, all of them or none",
                                  "Example: vorpel words remove teh", arguments, removeWords);
    remove->add_option("WORD", arguments->words, "as `list` shows it")->required();
}

void addEval(CLI::App& app, Action& action) {
    auto arguments = std::make_shared<EvalArguments>();
    CLI::App* command =
        addCommand(app, action, "eval", "Accuracy and savings on a set of typed words or sentences",
                   "Example: vorpel eval --set misspellings.tsv\n"
                   "A .tsv has a header line with the columns typed and intended, and perhaps level or "
                   "source, prev and\n"
                   "points; a .txt has a sentence a line. Shares are in percent.",
                   arguments, evaluate);
    addLanguageOptions(*command, arguments->choice);
    command->add_option("--set", arguments->set, "the set")->required();
    command->add_option("--every", arguments->every, "take every Nth row only, for a quick look")
        ->check(CLI::PositiveNumber);
    command->add_flag("--digest", arguments->digest,
                      "print one number made of every word and score of every answer, and no measures");
    command->add_option("--misses", arguments->missesFile, "write the words that stayed wrong to this file");
    command->add_flag("--json", arguments->json, "one JSON object");
}

}  // namespace

int runCommandLine(int argc, char** argv) {
    CLI::App app{
        "A touch keyboard: its words corrected, completed and predicted, its keys drawn and typed on."};
    app.footer("Example: vorpel suggest teh freind\nEach command has its own --help.");
    app.set_version_flag("--version", VORPEL_VERSION);
    app.require_subcommand(1);
    Action action;
    addSuggest(app, action);
    addPredict(app, action);
    addServe(app, action);
    addDict(app, action);
    addGeometry(app, action);
    addPage(app, action);
    addRender(app, action);
    addType(app, action);
    addWords(app, action);
    addEval(app, action);
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& success) {
        return app.exit(success);
    } catch (const CLI::ParseError& error) {
        std::fprintf(stderr, "vorpel: %s\n", error.what());
        return STATUS_BAD_USAGE;
    }
    return action();
}

}  // namespace vorpel::cli
