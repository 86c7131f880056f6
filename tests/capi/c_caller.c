// SPDX-License-Identifier: Apache-2.0
#include "capi/c_caller.h"

#include <stdlib.h>
#include <string.h>

struct older_options {
    size_t size;
    const char* resource_folder;
    const char* language;
    const char* something_else;
};

struct newer_options {
    vorpel_options known;
    int wish;
};

struct newer_answer {
    vorpel_answer known;
    double certainty;
    const char* origin;
};

static vorpel_status ask(const vorpel_options* options, vorpel_answer* answer) {
    vorpel_service* service = NULL;
    vorpel_status status = vorpel_open(options, &service);
    if (status == VORPEL_OK) {
        status = vorpel_suggest(service, "hrllo", NULL, NULL, 0, answer);
        if (status == VORPEL_OK && (answer->count < 1 || strcmp(answer->words[0].text, "hello") != 0))
            abort();
    }
    vorpel_close(service);
    return status;
}

vorpel_status runOlderCaller(const char* folder) {
    struct older_options options = {0};
    vorpel_answer answer = VORPEL_ANSWER_INIT;
    options.size = offsetof(struct older_options, something_else);
    options.resource_folder = folder;
    options.language = "en";
    options.something_else = "/no/such/dictionary";
    return ask((const vorpel_options*)(const void*)&options, &answer);
}

vorpel_status runNewerCaller(const char* folder, int wish, int* unknownMembersAreZero) {
    struct newer_options options;
    struct newer_answer answer;
    vorpel_status status;
    memset(&options, 0, sizeof options);
    options.known.size = sizeof options;
    options.known.resource_folder = folder;
    options.known.language = "en";
    options.wish = wish;
    memset(&answer, 0xAA, sizeof answer);
    answer.known.size = sizeof answer;
    status = ask(&options.known, &answer.known);
    *unknownMembersAreZero =
        answer.known.size == sizeof answer && answer.certainty == 0 && answer.origin == NULL;
    return status;
}
