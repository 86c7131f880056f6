// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdio>

namespace wordengine {

/// The one place that the library's own plain lines go through. They go to standard output unless a
/// program says otherwise; one whose standard output is data points them elsewhere. Any thread may print.
class Diagnostics {
public:
    Diagnostics() = delete;

    /// Null silences the lines. A stream must stay open while another thread may print to it.
    static void setStream(std::FILE* stream);

    /// As long as it lives, the thread that made it prints nothing. They may be nested.
    class Silence {
    public:
        Silence();
        ~Silence();
        Silence(const Silence&) = delete;
        Silence& operator=(const Silence&) = delete;
    };

    [[gnu::format(printf, 1, 2)]] static void print(const char* format, ...);
};

}  // namespace wordengine
