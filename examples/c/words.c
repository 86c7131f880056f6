// SPDX-License-Identifier: Apache-2.0
// Corrects the words of a sentence, and says how it may go on.
//
//     cc -std=c99 words.c -o words $(pkg-config --cflags --libs vorpel)
//     ./words $(pkg-config --variable=datadir vorpel) en freinds teh hwllo
#include <stdio.h>
#include <string.h>
#include <vorpel/vorpel.h>

enum { SHOWN = 3 };

static int fail(void) {
    fprintf(stderr, "words: %s\n", vorpel_error_text());
    return 1;
}

static void print_words(const vorpel_answer* answer) {
    for (int i = 0; i < answer->count && i < SHOWN; ++i) printf(" %s", answer->words[i].text);
    putchar('\n');
}

/// What the word may have been meant to be; "->" marks a word that would replace it.
static int correct(vorpel_service* service, const char* word, const char* previous) {
    vorpel_answer answer = VORPEL_ANSWER_INIT;
    if (vorpel_suggest(service, word, previous, NULL, 0, &answer) != VORPEL_OK) return fail();
    printf("%s %s", word, answer.may_replace ? "->" : "  ");
    print_words(&answer);
    return 0;
}

static int predict(vorpel_service* service, const char* previous) {
    vorpel_answer answer = VORPEL_ANSWER_INIT;
    if (vorpel_predict(service, previous, &answer) != VORPEL_OK) return fail();
    printf("%s ...", previous);
    print_words(&answer);
    return 0;
}

/// The same letters by two touches of the second one: in the middle of its key, and on the border to the
/// key on its right.
static int compare_touches(vorpel_service* service, const char* word) {
    vorpel_point points[2];
    vorpel_answer answer = VORPEL_ANSWER_INIT;
    for (int i = 0; i < 2; ++i) {
        if (vorpel_key_center(service, (unsigned char)word[i], &points[i]) != VORPEL_OK) return fail();
    }
    for (int aside = 0; aside <= 18; aside += 18) {
        if (vorpel_suggest(service, word, "", points, 2, &answer) != VORPEL_OK) return fail();
        printf("%s, %2d points aside:", word, aside);
        print_words(&answer);
        points[1].x += 18;
    }
    return 0;
}

int main(int count, char** arguments) {
    vorpel_options options = VORPEL_OPTIONS_INIT;
    vorpel_service* service;
    int failed = 0;
    if (count < 4) {
        fprintf(stderr, "usage: words RESOURCE_FOLDER en|ar WORD...\n");
        return 2;
    }
    options.resource_folder = arguments[1];
    options.language = arguments[2];
    if (vorpel_open(&options, &service) != VORPEL_OK) return fail();
    for (int i = 3; i < count && !failed; ++i) {
        failed = correct(service, arguments[i], i > 3 ? arguments[i - 1] : NULL);
    }
    if (!failed) failed = predict(service, arguments[count - 1]);
    if (!failed && strcmp(options.language, "en") == 0) failed = compare_touches(service, "hild");
    vorpel_close(service);
    return failed;
}
