// SPDX-License-Identifier: Apache-2.0
#include "text/diagnostics.h"

#include <cstdarg>

namespace wordengine {

namespace {
std::FILE* sStream = stdout;
}

void Diagnostics::setStream(std::FILE* stream) {
    sStream = stream;
}

void Diagnostics::print(const char* format, ...) {
    if (!sStream) return;
    std::va_list arguments;
    va_start(arguments, format);
    std::vfprintf(sStream, format, arguments);
    va_end(arguments);
}

}  // namespace wordengine
