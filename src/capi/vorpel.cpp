// SPDX-License-Identifier: Apache-2.0
#include "vorpel/vorpel.h"

#include "capi/failure.h"
#include "capi/service.h"
#include "capi/sized_struct.h"
#include "text/diagnostics.h"

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace {

using vorpel::capi::require;
using vorpel::capi::writeStruct;

static_assert(std::string_view(VORPEL_VERSION) == VORPEL_LIBRARY_VERSION,
              "include/vorpel/vorpel.h and CMakeLists.txt name different versions");

// The structures of the first version.
constexpr std::size_t LEAST_OPTIONS = offsetof(vorpel_options, dictionary);
constexpr std::size_t LEAST_ANSWER = sizeof(vorpel_answer);
// A member that a later version put into padding could not be told from none.
static_assert(LEAST_ANSWER == offsetof(vorpel_answer, may_replace) + sizeof(vorpel_answer::may_replace));

/// Does the work of one call: what it throws becomes a status, and the library's own lines stay inside.
template <typename Work>
vorpel_status guarded(Work&& work) noexcept {
    try {
        const wordengine::Diagnostics::Silence silence;
        work();
        return VORPEL_OK;
    } catch (...) {
        return vorpel::capi::keepCurrentError();
    }
}

/// Asks the service and hands over its answer, an empty one if it cannot answer.
template <typename Question>
vorpel_status ask(vorpel_service* service, vorpel_answer* answer, Question&& question) noexcept {
    return guarded([&] {
        require(answer, "the answer is null");
        writeStruct(answer, vorpel_answer{}, LEAST_ANSWER);
        require(service, "the service is null");
        question();
        writeStruct(answer, service->answer(), LEAST_ANSWER);
    });
}

std::string textOrEmpty(const char* text) {
    return text ? text : "";
}

}  // namespace

const char* vorpel_version(void) {
    return VORPEL_LIBRARY_VERSION;
}

const char* vorpel_error_text(void) {
    return vorpel::capi::errorText();
}

vorpel_status vorpel_open(const vorpel_options* options, vorpel_service** service) {
    if (service) *service = nullptr;
    return guarded([&] {
        require(options, "the options are null");
        require(service, "there is no place for the service");
        const vorpel_options known = vorpel::capi::readStruct(options, LEAST_OPTIONS);
        require(known.resource_folder, "there is no resource folder");
        require(known.language, "there is no language");
        *service = std::make_unique<vorpel_service>(known.resource_folder, known.language,
                                                    textOrEmpty(known.dictionary))
                       .release();
    });
}

void vorpel_close(vorpel_service* service) {
    guarded([&] { delete service; });
}

vorpel_status vorpel_keyboard_size(const vorpel_service* service, double* width, double* height) {
    return guarded([&] {
        require(service, "the service is null");
        if (width) *width = service->keyboardSize().width;
        if (height) *height = service->keyboardSize().height;
    });
}

vorpel_status vorpel_key_center(const vorpel_service* service, uint32_t letter, vorpel_point* center) {
    return guarded([&] {
        require(service, "the service is null");
        require(center, "there is no place for the point");
        *center = service->keyCenter(letter);
    });
}

vorpel_status vorpel_suggest(vorpel_service* service, const char* word, const char* previous,
                             const vorpel_point* points, size_t point_count, vorpel_answer* answer) {
    return ask(service, answer, [&] {
        require(word, "the word is null");
        const std::span touches(points, points ? point_count : 0);
        service->suggest(word, textOrEmpty(previous), touches);
    });
}

vorpel_status vorpel_predict(vorpel_service* service, const char* previous, vorpel_answer* answer) {
    return ask(service, answer, [&] { service->predict(textOrEmpty(previous)); });
}
