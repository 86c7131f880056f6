// SPDX-License-Identifier: Apache-2.0
#include "language_files.h"

#include "data_folders.h"
#include "dictionary/dictionary_structure_with_buffer_policy_factory.h"
#include "suggestion/dictionary_fault.h"
#include "suggestion/language_resources.h"
#include "suggestion/suggestion_provider.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace vorpel::cli {

namespace fs = std::filesystem;

namespace {

fs::path folderThatHolds(const std::string& name) {
    std::string searched;
    for (const fs::path& folder : host::dataFolders()) {
        std::error_code error;
        if (fs::exists(folder / name, error)) return folder;
        searched += (searched.empty() ? "" : ", ") + folder.string();
    }
    throw std::runtime_error(name + ": not found in " + searched + "; ./run builds it");
}

void checkReadable(const std::string& path) {
    std::error_code error;
    // Opening a pipe would wait for somebody to write into it.
    if (fs::exists(path, error) && !fs::is_regular_file(path, error)) {
        throw std::runtime_error(path + ": not a plain file");
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error(path + ": " + std::strerror(errno));
}

void checkDictionary(const std::string& path) {
    const auto size = static_cast<int>(SuggestionProvider::get_file_size(path));
    const auto dictionary =
        wordengine::DictionaryStructureWithBufferPolicyFactory::newPolicyForExistingDictFile(path.c_str(), 0,
                                                                                             size, false);
    const auto fault = findDictionaryFault(path, dictionary.get());
    if (fault) throw std::runtime_error(*fault);
}

}  // namespace

std::string LanguageFiles::geometryFile() const {
    return (fs::path(geometryFolder) / resourcesOf(language).geometryFile()).string();
}

LanguageFiles findLanguageFiles(const LanguageChoice& choice) {
    LanguageFiles files{choice.language, choice.dictionary, choice.geometryFolder};
    if (files.dictionary.empty()) {
        const std::string name = resourcesOf(choice.language).dictionaryFile();
        files.dictionary = (folderThatHolds(name) / name).string();
    }
    if (files.geometryFolder.empty()) {
        files.geometryFolder = folderThatHolds(resourcesOf(choice.language).geometryFile()).string();
    }
    checkDictionary(files.dictionary);
    checkReadable(files.geometryFile());
    return files;
}

}  // namespace vorpel::cli
