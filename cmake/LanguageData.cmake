# SPDX-License-Identifier: Apache-2.0
# The dictionaries and the key geometry, made by the normal build. The program below remembers what it
# made them from, so that running it with every build costs nothing when nothing changed.
find_package(Python3 REQUIRED COMPONENTS Interpreter)

set(exclude)
if(EXISTS ${VORPEL_EVAL_DIR}/exclude_from_training.sha1)
  set(exclude --exclude ${VORPEL_EVAL_DIR}/exclude_from_training.sha1)
endif()

add_custom_target(vorpel_data ALL
  COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tools/build_language_data
          --tool $<TARGET_FILE:vorpel> --build ${PROJECT_SOURCE_DIR}/build --out ${VORPEL_DATA_DIR} ${exclude}
  DEPENDS vorpel
  USES_TERMINAL
  VERBATIM)
