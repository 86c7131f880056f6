// SPDX-License-Identifier: Apache-2.0
#include "suggestion/dictionary_fault.h"

#include "dictionary/dic_node_utils.h"
#include "dictionary/dictionary_structure_with_buffer_policy.h"
#include "node/dic_node.h"
#include "node/dic_node_vector.h"
#include "text/engine_constants.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace vorpel {

namespace {

using wordengine::DicNode;

/// Why a file that the engine did not open was not opened.
std::string whyUnopened(const std::string& path) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0) return std::strerror(errno);
    if (S_ISDIR(status.st_mode)) return std::strerror(EISDIR);
    if (!S_ISREG(status.st_mode)) return "not a regular file";
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return std::strerror(errno);
    close(file);
    if (status.st_size > std::numeric_limits<int>::max()) return "too large";
    return "not a dictionary of a format that can be opened";
}

/// Follows the last child of each node. Since a dictionary lies depth first in its file, the way ends at
/// the file's end, and a file that lost its end damages it.
bool isWholeToTheEnd(const wordengine::DictionaryStructureWithBufferPolicy& dictionary) {
    DicNode node;
    wordengine::DicNodeUtils::initAsRoot(&dictionary, nullptr, &node);
    wordengine::DicNodeVector children;
    for (int letter = 0; letter <= wordengine::WORD_LENGTH_LIMIT; ++letter) {
        children.clear();
        wordengine::DicNodeUtils::getAllChildDicNodes(&node, &dictionary, &children);
        const int count = children.getSizeAndLock();
        if (count == 0 || dictionary.isCorrupted()) break;
        wordengine::DicNodeUtils::initByCopy(children[count - 1], &node);
    }
    return !dictionary.isCorrupted();
}

}  // namespace

std::optional<std::string> findDictionaryFault(
    const std::string& path, const wordengine::DictionaryStructureWithBufferPolicy* dictionary) {
    if (!dictionary) return path + ": " + whyUnopened(path);
    if (!isWholeToTheEnd(*dictionary)) return path + ": the dictionary is damaged";
    return std::nullopt;
}

}  // namespace vorpel
