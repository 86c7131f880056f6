// SPDX-License-Identifier: Apache-2.0
#include "options.h"

#include <filesystem>
#include <map>
#include <stdexcept>

namespace vorpel::bench {

Options Options::parse(int argc, char** argv) {
    Options options;
    std::string every;
    const std::map<std::string, std::string*> known = {{"--data", &options.data},
                                                       {"--geometry", &options.geometry},
                                                       {"--set", &options.set},
                                                       {"--dictionary", &options.dictionary},
                                                       {"--every", &every}};
    for (int i = 0; i < argc; ++i) {
        const auto option = known.find(argv[i]);
        if (option == known.end()) {
            options.others.push_back(argv[i]);
            continue;
        }
        if (++i == argc) throw std::runtime_error(option->first + ": its value is missing");
        *option->second = argv[i];
    }
    if (!every.empty()) options.every = std::stoi(every);
    if (options.every < 1) throw std::runtime_error("--every: 1 or more");
    return options;
}

std::vector<SizedDictionary> dictionariesOf(const Options& options) {
    namespace fs = std::filesystem;
    if (!options.dictionary.empty()) return {{fs::path(options.dictionary).stem(), options.dictionary}};
    std::vector<SizedDictionary> found;
    for (const char* size : {"10k", "60k", "160k", "400k"}) {
        const std::string path = options.data + "/en_" + size + ".dic";
        if (fs::exists(path)) found.push_back({size, path});
    }
    if (found.empty()) {
        throw std::runtime_error(options.data + ": no dictionaries; build the target vorpel_bench_data");
    }
    return found;
}

}  // namespace vorpel::bench
