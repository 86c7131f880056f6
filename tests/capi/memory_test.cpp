// SPDX-License-Identifier: Apache-2.0
#include "capi/service_fixture.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

// Allocations that still succeed on this thread; below 0 all of them do.
thread_local long allocationsLeft = -1;
thread_local long allocationsAlive = 0;

void* allocate(std::size_t size) {
    if (allocationsLeft == 0) throw std::bad_alloc();
    if (allocationsLeft > 0) --allocationsLeft;
    if (void* const memory = std::malloc(size > 0 ? size : 1)) {
        ++allocationsAlive;
        return memory;
    }
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) {
    return allocate(size);
}
void operator delete(void* memory) noexcept {
    if (memory) --allocationsAlive;
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace vorpel::testing {
namespace {

struct Shortage {
    int failures = 0;
    long leaked = 0;  ///< allocations that outlived a failed call
};

/// Makes the call with ever more allocations until it succeeds. Every failure must be told as one of the
/// expected statuses.
template <typename Call>
Shortage failUntilItSucceeds(const std::vector<vorpel_status>& expected, Call&& call) {
    Shortage shortage;
    // Closer together where calls do different things: what comes late is the thousands of numbers of a file.
    for (long allowed = 0;; allowed += 1 + allowed / 32) {
        const long before = allocationsAlive;
        allocationsLeft = allowed;
        const vorpel_status status = call();
        allocationsLeft = -1;
        if (status == VORPEL_OK) return shortage;
        ++shortage.failures;
        shortage.leaked += allocationsAlive - before;
        EXPECT_NE(std::find(expected.begin(), expected.end(), status), expected.end())
            << status << " after " << allowed << " allocations: " << vorpel_error_text();
    }
}

TEST_F(ServiceTest, RunningOutOfMemoryIsToldAndForgotten) {
    const std::string folder = english.folder().path();
    OpenService fresh(folder, "en");
    vorpel_options options = VORPEL_OPTIONS_INIT;
    options.resource_folder = folder.c_str();
    options.language = "en";
    vorpel_service* service = nullptr;
    // A stream that runs out of memory is one that ended, which makes the file one that cannot be read.
    const Shortage opening = failUntilItSucceeds({VORPEL_ERROR_MEMORY, VORPEL_ERROR_GEOMETRY},
                                                 [&] { return vorpel_open(&options, &service); });
    EXPECT_GT(opening.failures, 100);
    EXPECT_EQ(opening.leaked, 0);

    vorpel_answer answer = VORPEL_ANSWER_INIT;
    for (const char* word : {"h", "hrl", "hrllo", "teh"}) {
        const auto suggest = [&] { return vorpel_suggest(service, word, "hello", nullptr, 0, &answer); };
        EXPECT_GT(failUntilItSucceeds({VORPEL_ERROR_MEMORY}, suggest).failures, 0);
        EXPECT_EQ(KeptAnswer::of(answer), fresh.suggest(word, "hello")) << word;
    }
    const auto predict = [&] { return vorpel_predict(service, "hello", &answer); };
    EXPECT_GT(failUntilItSucceeds({VORPEL_ERROR_MEMORY}, predict).failures, 0);
    EXPECT_EQ(KeptAnswer::of(answer), fresh.predict("hello"));
    vorpel_close(service);
}

}  // namespace
}  // namespace vorpel::testing
