// SPDX-License-Identifier: Apache-2.0
#include "commands.h"
#include "compiler/geometry_file_writer.h"
#include "compiler/key_page_layout.h"

#include <memory>
#include <string>

namespace vorpel::cli {

namespace {

// The height of the reference page in points; the word half's picture of the keyboard is this page.
constexpr double REFERENCE_HEIGHT = 216;

}  // namespace

int writeGeometry(const GeometryArguments& arguments) {
    compiler::KeyPage page =
        compiler::layOutKeyPage(arguments.language, 0, arguments.width, REFERENCE_HEIGHT);
    compiler::addHeldLetters(arguments.language, &page);
    const std::string locale = arguments.language == "en" ? "en_US" : "ar_SA";
    const auto letterCase = arguments.capitals ? compiler::LetterCase::Upper : compiler::LetterCase::Lower;
    compiler::writeGeometryFile(arguments.out, page, locale, letterCase);
    return 0;
}

}  // namespace vorpel::cli
