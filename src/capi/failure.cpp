// SPDX-License-Identifier: Apache-2.0
#include "capi/failure.h"

#include "suggestion/file_utils.h"

#include <algorithm>
#include <array>
#include <new>

namespace vorpel::capi {

namespace {

// Long enough for the longest path and a reason.
constexpr std::size_t LONGEST_TEXT = 4352;

// Of fixed size, so that running out of memory can be told.
thread_local std::array<char, LONGEST_TEXT + 1> lastText{};

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

vorpel_status keep(vorpel_status status, std::string_view text) {
    std::size_t length = std::min(text.size(), LONGEST_TEXT);
    while (length > 0 && length < text.size() && continuesCharacter(text[length])) --length;
    *std::copy_n(text.begin(), length, lastText.begin()) = '\0';
    return status;
}

}  // namespace

void require(bool condition, const char* text) {
    if (!condition) throw Failure(VORPEL_ERROR_ARGUMENT, text);
}

const char* errorText() noexcept {
    return lastText.data();
}

vorpel_status keepCurrentError() noexcept {
    try {
        throw;
    } catch (const Failure& failure) {
        return keep(failure.status(), failure.what());
    } catch (const FileUtils::ReadingFailure& failure) {
        return keep(VORPEL_ERROR_GEOMETRY, failure.fault());
    } catch (const std::bad_alloc&) {
        return keep(VORPEL_ERROR_MEMORY, "out of memory");
    } catch (const std::exception& error) {
        return keep(VORPEL_ERROR_INTERNAL, error.what());
    } catch (...) {
        return keep(VORPEL_ERROR_INTERNAL, "unknown error");
    }
}

}  // namespace vorpel::capi
