// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "text/diagnostics.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace vorpel::testing {

/// Keeps the lines that the program prints while it lives. There may be one at a time.
class TraceCapture {
public:
    TraceCapture() : stream_(open_memstream(&text_, &size_)) { wordengine::Diagnostics::setStream(stream_); }
    ~TraceCapture() {
        wordengine::Diagnostics::setStream(stdout);
        std::fclose(stream_);
        std::free(text_);
    }
    TraceCapture(const TraceCapture&) = delete;
    TraceCapture& operator=(const TraceCapture&) = delete;

    [[nodiscard]] std::string text() const {
        std::fflush(stream_);
        return {text_, size_};
    }

private:
    char* text_ = nullptr;
    std::size_t size_ = 0;
    std::FILE* stream_;
};

}  // namespace vorpel::testing
