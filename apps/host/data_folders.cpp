// SPDX-License-Identifier: Apache-2.0
#include "data_folders.h"

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <system_error>

namespace vorpel::host {

namespace fs = std::filesystem;

std::vector<fs::path> dataFolders() {
    std::vector<fs::path> folders;
    if (const char* named = std::getenv("VORPEL_DATA")) folders.emplace_back(named);
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    if (!error) {
        folders.push_back(program.parent_path().parent_path() / "share" / "vorpel");
        folders.push_back(program.parent_path().parent_path().parent_path() / "data");
    }
    return folders;
}

platform::FolderBundle keyboardResources() {
    for (const fs::path& folder : dataFolders()) {
        platform::FolderBundle resources(
            {folder.string(), (folder / "images").string(), (folder / "alternatives").string()});
        // One picture stands for all: they are laid down together.
        if (resources.pathForResource("gear", "svg")) return resources;
    }
    throw std::runtime_error("gear.svg: not found in the images of the data folders; ./run puts it there");
}

}  // namespace vorpel::host
