// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

namespace wordengine {

/// The one place that the library's own plain lines go through. They go to standard output unless a
/// program says otherwise; one whose standard output is data points them elsewhere. Set the stream
/// before the first request: it is read without a lock.
class Diagnostics {
public:
    Diagnostics() = delete;

    /// Null silences the lines.
    static void setStream(std::FILE* stream);

    [[gnu::format(printf, 1, 2)]] static void print(const char* format, ...);
};

}  // namespace wordengine
