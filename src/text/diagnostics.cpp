// SPDX-License-Identifier: Apache-2.0
#include "text/diagnostics.h"

#include <atomic>
#include <cstdarg>

namespace wordengine {

namespace {
std::atomic<std::FILE*> sStream = stdout;
thread_local int sSilences = 0;
}  // namespace

void Diagnostics::setStream(std::FILE* stream) {
    sStream = stream;
}

Diagnostics::Silence::Silence() {
    ++sSilences;
}

Diagnostics::Silence::~Silence() {
    --sSilences;
}

void Diagnostics::print(const char* format, ...) {
    std::FILE* const stream = sSilences == 0 ? sStream.load() : nullptr;
    if (!stream) return;
    std::va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stream, format, arguments);
    va_end(arguments);
}

}  // namespace wordengine
