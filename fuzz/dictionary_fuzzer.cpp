// SPDX-License-Identifier: Apache-2.0
// A dictionary file of any bytes: opened, walked, searched, looked up in, verified.
#include "support/dictionary_probe.h"
#include "text/diagnostics.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    wordengine::Diagnostics::setStream(nullptr);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    vorpel::testing::DictionaryProbe({data, size}).run();
    return 0;
}
