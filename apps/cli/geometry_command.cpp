// SPDX-License-Identifier: Apache-2.0
#include <memory>
#include <string>

#include "commands.h"
#include "compiler/geometry_file_writer.h"
#include "compiler/portrait_page.h"

namespace vorpel::cli {

namespace {

// The height of the reference page in points; the word half's picture of the keyboard is this page.
constexpr double REFERENCE_HEIGHT = 216;

struct GeometryArguments {
    std::string language = "en";
    int page = 0;
    double width = 375;
    bool capitals = false;
    std::string out;
};

int writeGeometry(const GeometryArguments& arguments) {
    const compiler::KeyPage page = compiler::layOutPortraitPage(compiler::letterRows(arguments.language),
                                                                arguments.width, REFERENCE_HEIGHT);
    const std::string locale = arguments.language == "en" ? "en_US" : "ar_SA";
    const auto letterCase = arguments.capitals ? compiler::LetterCase::Upper : compiler::LetterCase::Lower;
    compiler::writeGeometryFile(arguments.out, page, locale, letterCase);
    return 0;
}

}  // namespace

void addGeometryCommand(CLI::App& app, Action& action) {
    auto arguments = std::make_shared<GeometryArguments>();
    CLI::App* command = app.add_subcommand("geometry", "Write the geometry file of a page of keys");
    command->footer("Example: vorpel geometry --language en --page 0 --width 375 --out en_US_P_113.json");
    command->add_option("--language", arguments->language, "en or ar")
        ->check(CLI::IsMember({"en", "ar"}))
        ->capture_default_str();
    command->add_option("--page", arguments->page, "the page; 0 is the letters' page, the only one so far")
        ->check(CLI::Range(0, 0))
        ->capture_default_str();
    command->add_option("--width", arguments->width, "in points, of a page held upright")
        ->check(CLI::Range(320.0, 500.0))
        ->capture_default_str();
    command->add_flag("--capitals", arguments->capitals, "the keys with shift held");
    command->add_option("--out", arguments->out, "the file to write")->required();
    command->callback([arguments, &action] { action = [arguments] { return writeGeometry(*arguments); }; });
}

}  // namespace vorpel::cli
