// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace vorpel::compiler {

/// One fault of a dictionary file; the position counts from the file's first byte.
struct VerifierFinding {
    int64_t position = 0;
    std::string message;
};

/// Checks every byte of a dictionary of format version 2: the header, that the arrays of nodes follow each
/// other depth first without gap or overlap, that every list has its stated size, that every target is
/// the node of a word, that code points are valid and words unique.
///
/// The bytes may be hostile: time and memory stay in proportion to their number, and nothing outside
/// them is read. May be called from any thread.
class DictionaryVerifier {
public:
    /// More findings than this are not collected; one broken offset can make thousands.
    static constexpr size_t MAX_FINDINGS = 200;

    DictionaryVerifier() = delete;

    /// Empty for a sound dictionary.
    [[nodiscard]] static std::vector<VerifierFinding> verify(std::span<const uint8_t> file);
};

}  // namespace vorpel::compiler
