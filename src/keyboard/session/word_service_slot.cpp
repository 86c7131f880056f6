// SPDX-License-Identifier: Apache-2.0
#include "keyboard/session/word_service_slot.h"

#include "text/diagnostics.h"

#include <exception>
#include <utility>

namespace vorpel {

WordServiceSlot::WordServiceSlot(WordServiceFactory factory) : factory_(std::move(factory)) {}

void WordServiceSlot::want() {
    wanted_ = ++lastWanted_;
}

void WordServiceSlot::wantNone() {
    wanted_ = NONE;
}

WordService* WordServiceSlot::current() {
    const unsigned wanted = wanted_;
    if (made_ == wanted) return service_.get();
    made_ = wanted;
    service_.reset();
    if (wanted == NONE) return nullptr;
    try {
        service_ = factory_();
    } catch (const std::exception& error) {
        wordengine::Diagnostics::print("no word service: %s\n", error.what());
    }
    return service_.get();
}

}  // namespace vorpel
