// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "dictionary/v4/bigram_dict_content.h"
#include "dictionary/v4/language_model_dict_content.h"
#include "dictionary/v402/bigram_dict_content.h"
#include "dictionary/v402/probability_dict_content.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <vector>

namespace wordengine::test {

using ContentBytes = std::vector<uint8_t>;
using SparseBytes = std::array<ContentBytes, SparseTableDictContent::BUFFER_COUNT>;

/// What is written to a file; expected to be written whole.
inline ContentBytes writtenBytes(const std::function<bool(std::FILE*)>& write) {
    char* data = nullptr;
    size_t size = 0;
    std::FILE* const file = open_memstream(&data, &size);
    EXPECT_TRUE(write(file));
    std::fclose(file);
    const ContentBytes bytes(data, data + size);
    std::free(data);
    return bytes;
}

/// The buffer that follows its size at the front of `file`, which it is taken from.
inline ContentBytes takeSized(ContentBytes* file) {
    size_t size = 0;
    for (size_t i = 0; i < 4; ++i) size = size << 8 | file->at(i);
    const auto begin = file->begin() + 4;
    const auto end = begin + static_cast<std::ptrdiff_t>(size);
    ContentBytes buffer(begin, end);
    file->erase(file->begin(), end);
    return buffer;
}

inline ReadWriteByteArrayView viewOf(ContentBytes& bytes) {
    return {bytes.data(), bytes.size()};
}
inline SparseTableDictContent::BufferViews viewsOf(SparseBytes& bytes) {
    return {viewOf(bytes[0]), viewOf(bytes[1]), viewOf(bytes[2])};
}

/// The buffers of the layout that keeps them in one file, which are those of the other too.
inline SparseBytes buffersOf(const SparseTableDictContent& content) {
    ContentBytes file = writtenBytes([&](std::FILE* out) { return content.flushToFile(out); });
    SparseBytes buffers;
    for (int i = 0; i < SparseTableDictContent::BUFFER_COUNT; ++i) {
        ContentBytes& buffer = buffers[static_cast<size_t>(i)];
        buffer = takeSized(&file);
        EXPECT_EQ(buffer, writtenBytes([&](std::FILE* out) { return content.flushBufferToFile(out, i); }));
    }
    EXPECT_TRUE(file.empty());
    return buffers;
}

struct NewerLayout {
    using Bigrams = BigramDictContent;
    using Probabilities = LanguageModelDictContent;

    static ContentBytes bytesOf(const Probabilities& content) {
        ContentBytes file = writtenBytes([&](std::FILE* out) { return content.save(out); });
        return takeSized(&file);
    }
};

struct OlderLayout {
    using Bigrams = backward::v402::BigramDictContent;
    using Probabilities = backward::v402::ProbabilityDictContent;

    static ContentBytes bytesOf(const Probabilities& content) {
        return writtenBytes([&](std::FILE* out) { return content.save(out); });
    }
};

}  // namespace wordengine::test
