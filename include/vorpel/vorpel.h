// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "vorpel/export.h"

#include <stddef.h>
#include <stdint.h>

/// The word half in C99: what a typed word may have been meant to be, and what may follow it.
///
///     vorpel_options options = VORPEL_OPTIONS_INIT;
///     options.resource_folder = "/usr/share/vorpel";
///     options.language = "en";
///     vorpel_service *service;
///     vorpel_answer answer = VORPEL_ANSWER_INIT;
///     if (vorpel_open(&options, &service) != VORPEL_OK) puts(vorpel_error_text());
///     else if (vorpel_suggest(service, "hwllo", NULL, NULL, 0, &answer) == VORPEL_OK && answer.count > 0)
///         puts(answer.words[0].text);
///
/// Text is UTF-8, closed by a 0. A letter is a code point.
///
/// Threads: one thread at a time may use a service; different services may be used on different threads at
/// once. The library starts no threads, prints nothing, and lets no C++ exception out.
///
/// Versions: what a later version adds, it adds at the end of the structures that begin with `size`,
/// and the other ones never change. Set such a structure with its INIT macro, which also sets `size`.

#ifdef __cplusplus
extern "C" {
#endif

/// Of this header; `vorpel_version` tells that of the library which is linked.
#define VORPEL_VERSION "0.1.0"

typedef enum vorpel_status {
    VORPEL_OK = 0,
    /// A null pointer, text that is not UTF-8, more points than letters, a structure of an impossible size,
    /// or one that asks for what this version of the library does not know.
    VORPEL_ERROR_ARGUMENT = 1,
    VORPEL_ERROR_LANGUAGE = 2,    ///< The language is none of those that the library knows.
    VORPEL_ERROR_DICTIONARY = 3,  ///< The dictionary is missing, unreadable or damaged.
    VORPEL_ERROR_GEOMETRY = 4,    ///< The same for a file of key geometry.
    VORPEL_ERROR_MEMORY = 5,      ///< Memory ran out. The service stays usable.
    VORPEL_ERROR_INTERNAL = 6     ///< A fault of the library. The service may be closed.
} vorpel_status;

/// One language, opened.
typedef struct vorpel_service vorpel_service;

/// How to open a service. The library keeps none of the pointers.
typedef struct vorpel_options {
    size_t size;  ///< sizeof(vorpel_options)
    /// Holds the dictionary and the geometry files, as the installed `share/vorpel` does.
    const char* resource_folder;
    const char* language;  ///< "en" (English) or "ar" (Arabic)
    /// A dictionary in place of the folder's "en_US.dic" or "ar_SA.dic"; null for none.
    const char* dictionary;
} vorpel_options;

#define VORPEL_OPTIONS_INIT \
    { sizeof(vorpel_options), NULL, NULL, NULL }

/// Where a letter was touched, in points of the keyboard that the geometry files describe: from its left
/// edge to the right and from its upper edge down. That keyboard holds the keys alone, no row of words
/// above them; `vorpel_keyboard_size` tells how large it is. Touches on a keyboard of the same keys in
/// another size are to be scaled to it.
///
/// A point with a coordinate of VORPEL_NO_TOUCH, or of any other value that is not between -10,000 and
/// 10,000, is absent: the middle of the letter's key stands for it.
typedef struct vorpel_point {
    double x;
    double y;
} vorpel_point;

#define VORPEL_NO_TOUCH 10000.0

/// Where a word comes from.
typedef enum vorpel_kind {
    VORPEL_CORRECTION = 1,  ///< what was typed, corrected or completed
    VORPEL_WHITELIST = 3,   ///< what the dictionary says is always meant by what was typed
    VORPEL_SHORTCUT = 7,    ///< what the dictionary offers for what was typed
    VORPEL_PREDICTION = 8   ///< what may follow
} vorpel_kind;

typedef struct vorpel_word {
    const char* text;
    int32_t score;  ///< larger is likelier; a prediction's is 0 to 255
    int32_t kind;   ///< a vorpel_kind; later versions may know more
} vorpel_word;

/// What `vorpel_suggest` and `vorpel_predict` found. The words and their text belong to the service and stay
/// as they are until the next call with it that fills an answer, or its closing. Nothing is to be freed.
typedef struct vorpel_answer {
    size_t size;               ///< sizeof(vorpel_answer)
    const vorpel_word* words;  ///< best first, no text twice; null when there are none
    int32_t count;             ///< of the words: 0 to 18
    int32_t may_replace;       ///< 1: words[0] is sure enough to replace what was typed by itself; else 0
} vorpel_answer;

#define VORPEL_ANSWER_INIT \
    { sizeof(vorpel_answer), NULL, 0, 0 }

/// "MAJOR.MINOR.PATCH" of the library.
VORPEL_EXPORT const char* vorpel_version(void);

/// What went wrong in the last call of this thread that failed, in one line that names the file if there is
/// one; empty when none has. Never null; good until the thread's next call.
VORPEL_EXPORT const char* vorpel_error_text(void);

/// Opens the dictionary (it is mapped, not read) and the geometry of a language. Files in use must not be
/// written to; replace them by renaming others to their names. On failure `*service` is null.
VORPEL_EXPORT vorpel_status vorpel_open(const vorpel_options* options, vorpel_service** service);

/// Does nothing with null.
VORPEL_EXPORT void vorpel_close(vorpel_service* service);

/// The size in points of the keyboard that touches are given on. Either pointer may be null.
VORPEL_EXPORT vorpel_status vorpel_keyboard_size(const vorpel_service* service, double* width,
                                                 double* height);

/// The middle of the key that types a letter; an absent point when there is no such key. A program whose
/// keys lie elsewhere finds the point of a touch from it: as far from this middle, in key sizes, as the touch
/// was from the middle of the program's own key.
VORPEL_EXPORT vorpel_status vorpel_key_center(const vorpel_service* service, uint32_t letter,
                                              vorpel_point* center);

/// The words that `word`, which may be unfinished, may have been meant to be; the word itself is left out.
/// `previous` is the word before it, null or empty for none. `points` holds the touches of the first
/// `point_count` letters, none when null; letters without a point count as hit in the middle. A word that is
/// empty or has more than 48 letters has no answer, which is no error; so long a previous word counts as
/// none. Asking for a word that goes on from the one of the call before is cheap: a keyboard asks after each
/// letter. On failure the answer is empty.
VORPEL_EXPORT vorpel_status vorpel_suggest(vorpel_service* service, const char* word, const char* previous,
                                           const vorpel_point* points, size_t point_count,
                                           vorpel_answer* answer);

/// The words that may follow `previous`, most likely first; `may_replace` is 0. On failure the answer is
/// empty.
VORPEL_EXPORT vorpel_status vorpel_predict(vorpel_service* service, const char* previous,
                                           vorpel_answer* answer);

#ifdef __cplusplus
}
#endif
