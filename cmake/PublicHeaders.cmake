# SPDX-License-Identifier: Apache-2.0
# The headers of src/ that an embedder includes, and all that these include in turn. They are installed
# as vorpel/FOLDER/NAME.h; nothing else of src/ is.
set(VORPEL_PUBLIC_HEADERS
    platform/bundle.h
    platform/memory_user_defaults.h
    platform/posix/folder_bundle.h
    platform/user_defaults.h
    search/results/suggested_word.h
    search/search_statistics.h
    suggestion/ranked_suggestions.h
    suggestion/resource_fault.h
    suggestion/vp_word_suggestions.h
    text/engine_constants.h)
