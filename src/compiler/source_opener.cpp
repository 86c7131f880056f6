// SPDX-License-Identifier: Apache-2.0
#include "compiler/source_opener.h"

#include "compiler/input_error.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace vorpel::compiler {
namespace {

constexpr std::string_view SOURCES_PREFIX = "$SOURCES/";

}  // namespace

SourceOpener::SourceOpener(const Recipe& recipe, std::string sourcesFolder, BuildReport* report)
    : recipe_(recipe), sourcesFolder_(std::move(sourcesFolder)), report_(report) {}

std::optional<std::string> SourceOpener::resolve(const SourceFile& source) const {
    if (source.path.starts_with(SOURCES_PREFIX)) {
        if (sourcesFolder_.empty()) return std::nullopt;
        return sourcesFolder_ + "/" + source.path.substr(SOURCES_PREFIX.size());
    }
    return source.path.starts_with('/') ? source.path : recipe_.folder + source.path;
}

std::optional<ListFile> SourceOpener::open(const SourceFile& source) {
    const std::optional<std::string> path = resolve(source);
    std::string reason = "no folder is given for $SOURCES";
    if (path) {
        try {
            return ListFile::open(*path);
        } catch (const InputError& error) {
            reason = error.what();
        }
    }
    if (!source.isOptional) throw InputError(recipe_.path, source.line, source.path + ": " + reason);
    // Some files are read in more than one step.
    if (std::ranges::find(report_->missingSources, source.path) == report_->missingSources.end()) {
        report_->missingSources.push_back(source.path);
        report_->warnings.push_back(recipe_.path + ":" + std::to_string(source.line) + ": built without " +
                                    source.path + " (" + reason + ")");
    }
    return std::nullopt;
}

}  // namespace vorpel::compiler
