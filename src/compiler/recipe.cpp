// SPDX-License-Identifier: Apache-2.0
#include "compiler/recipe.h"

#include "compiler/directive.h"
#include "compiler/list_file.h"

#include <algorithm>
#include <functional>
#include <map>
#include <set>

namespace vorpel::compiler {
namespace {

constexpr int MANY = 100000000;
/// What is multiplied and summed up stays a number.
constexpr double GREATEST_WEIGHT = 1e6;
constexpr double GREATEST_COUNT = 1e15;

void readAttribute(Directive& line, Recipe& recipe) {
    std::string key = line.argument("a key");
    std::string value = line.argument("a value");
    const bool isNew =
        std::ranges::none_of(recipe.attributes, [&key](const auto& known) { return known.first == key; });
    if (!isNew) throw line.error("the attribute \"" + key + "\" stands twice");
    recipe.attributes.emplace_back(std::move(key), std::move(value));
}

void readWords(Directive& line, Recipe& recipe) {
    WordSource source{line.source(), line.number("weight", 1.0, 0.0, GREATEST_WEIGHT),
                      WordSourceKind::COUNTS};
    const std::string kind = line.option("kind").value_or("counts");
    if (kind == "probability") {
        source.kind = WordSourceKind::PROBABILITY;
    } else if (kind == "arpa") {
        source.kind = WordSourceKind::ARPA;
    } else if (kind != "counts") {
        throw line.error("kind=" + kind + " is not counts, probability or arpa");
    }
    recipe.words.push_back(std::move(source));
}

void readArpa(Directive& line, Recipe& recipe) {
    recipe.arpas.push_back({line.source(), line.number("weight", 1.0, 0.0, GREATEST_WEIGHT),
                            line.number("tokens", 1e6, 1.0, GREATEST_COUNT)});
}

void readNgrams(Directive& line, Recipe& recipe) {
    recipe.ngrams.push_back({line.source(), line.number("weight", 1.0, 0.0, GREATEST_WEIGHT)});
}

void readSeed(Directive& line, Recipe& recipe) {
    SeedSource source{line.source(), SeedDirection::UP, true};
    const std::string direction = line.option("direction").value_or("up");
    if (direction != "up" && direction != "both") {
        throw line.error("direction=" + direction + " is not up or both");
    }
    if (direction == "both") source.direction = SeedDirection::BOTH;
    const std::string slips = line.option("slips").value_or("keep");
    if (slips != "keep" && slips != "drop") throw line.error("slips=" + slips + " is not keep or drop");
    source.keepsSlips = slips == "keep";
    recipe.seeds.push_back(std::move(source));
}

void readCaseTwins(Directive& line, Recipe& recipe) {
    CaseTwinsRule rule{line.number("share", 0.35, 0.0, 1.0), std::nullopt};
    if (std::optional<std::string> keep = line.option("keep")) {
        rule.keep = SourceFile{*std::move(keep), false, line.line()};
    }
    recipe.caseTwins = std::move(rule);
}

void readCap(Directive& line, Recipe& recipe) {
    recipe.cap = CapRule{line.number("above", 1e-4, 1e-12, 1.0), line.number("exponent", 0.3, 0.0, 1.0)};
}

void readSlips(Directive& line, Recipe& recipe) {
    SlipsRule rule;
    rule.layout = line.argument("layout");
    rule.ratio = line.number("ratio", rule.ratio, 0.0, 1000.0);
    rule.least = line.number("least", rule.least, 0.0, 1.0);
    if (rule.layout != "en" && rule.layout != "ar") {
        throw line.error("the layout \"" + rule.layout + "\" is not en or ar");
    }
    recipe.slips = std::move(rule);
}

void readScale(Directive& line, Recipe& recipe) {
    ScaleRule rule;
    rule.base = line.number("base", rule.base, 0.0, 1000.0);
    rule.factor = line.number("factor", rule.factor, 0.0, 1000.0);
    rule.knee = line.number("knee", rule.knee, 0.0, 1000.0);
    rule.reference = line.number("reference", rule.reference, 1e-12, 1.0);
    rule.minimum = line.integer("minimum", rule.minimum, 0, 255);
    rule.maximum = line.integer("maximum", rule.maximum, 0, 255);
    if (rule.minimum > rule.maximum) throw line.error("the minimum is above the maximum");
    recipe.scale = rule;
}

void readPairs(Directive& line, Recipe& recipe) {
    PairsRule rule;
    rule.minimum = line.number("minimum", rule.minimum, 0.0, GREATEST_COUNT);
    rule.perWord = line.integer("per-word", rule.perWord, 0, MANY);
    rule.discount = line.number("discount", rule.discount, 0.0, GREATEST_COUNT);
    rule.prior = line.number("prior", rule.prior, 0.0, GREATEST_COUNT);
    recipe.pairs = rule;
}

void readLimit(Directive& line, Recipe& recipe) {
    recipe.limit.words = line.optionalInteger("words", 0, MANY);
    recipe.limit.pairs = line.optionalInteger("pairs", 0, MANY);
}

void readPairsSeed(Directive& line, Recipe& recipe) {
    recipe.pairsSeeds.push_back(
        {line.source(), line.integer("top", 245, 0, 255), line.integer("step", 7, 0, 255)});
}

void readCorrections(Directive& line, Recipe& recipe) {
    CorrectionsSource source{line.source(), 1, 0.0};
    if (line.hasOption("probability", "target")) {
        source.probability.reset();
    } else {
        source.probability = line.integer("probability", 1, 0, 255);
    }
    source.share = line.number("share", 0.0, 0.0, 1.0);
    recipe.corrections.push_back(std::move(source));
}

void readShortcuts(Directive& line, Recipe& recipe) {
    recipe.shortcuts.push_back({line.source(), line.integer("probability", 14, 0, 14),
                                line.integer("entry-probability", 1, 0, 255)});
}

using DirectiveReader = std::function<void(Directive&, Recipe&)>;

DirectiveReader intoList(std::vector<SourceFile> Recipe::*list) {
    return [list](Directive& line, Recipe& recipe) { (recipe.*list).push_back(line.source()); };
}

const std::map<std::string, DirectiveReader>& directiveReaders() {
    static const std::map<std::string, DirectiveReader> readers = {
        {"attribute", readAttribute},
        {"words", readWords},
        {"arpa", readArpa},
        {"vocabulary", intoList(&Recipe::vocabularies)},
        {"floor", intoList(&Recipe::floors)},
        {"seed", readSeed},
        {"exclude", intoList(&Recipe::excludes)},
        {"case-twins", readCaseTwins},
        {"cap", readCap},
        {"offensive", intoList(&Recipe::offensives)},
        {"slips", readSlips},
        {"scale", readScale},
        {"limit", readLimit},
        {"ngrams", readNgrams},
        {"pairs", readPairs},
        {"pairs-seed", readPairsSeed},
        {"corrections", readCorrections},
        {"shortcuts", readShortcuts},
    };
    return readers;
}

Recipe parse(ListFile lines) {
    static const std::set<std::string> ONCE = {"case-twins", "cap", "slips", "scale", "limit", "pairs"};
    Recipe recipe;
    recipe.path = lines.path();
    const size_t slash = recipe.path.rfind('/');
    recipe.folder = slash == std::string::npos ? "" : recipe.path.substr(0, slash + 1);
    std::set<std::string> seen;
    for (std::string_view text; lines.next(&text);) {
        std::optional<Directive> directive = Directive::parse(text, recipe.path, lines.lineNumber());
        if (!directive) continue;
        const auto reader = directiveReaders().find(directive->name());
        if (reader == directiveReaders().end()) {
            throw directive->error("unknown directive \"" + directive->name() + "\"");
        }
        if (!seen.insert(directive->name()).second && ONCE.contains(directive->name())) {
            throw directive->error("\"" + directive->name() + "\" stands twice");
        }
        reader->second(*directive, recipe);
        directive->finish();
    }
    for (const CorrectionsSource& source : recipe.corrections) {
        if (source.share > 0.0 && !recipe.slips) {
            throw InputError(recipe.path, source.file.line, "share=... needs the directive \"slips\"");
        }
    }
    return recipe;
}

}  // namespace

Recipe Recipe::parseFile(const std::string& path) {
    return parse(ListFile::open(path));
}

Recipe Recipe::parseText(std::string_view text, const std::string& path) {
    return parse(ListFile::fromText(std::string(text), path));
}

}  // namespace vorpel::compiler
