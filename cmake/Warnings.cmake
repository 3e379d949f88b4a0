# Every target of ours links `tavrel_warnings`; the libraries below come in as system headers.
add_library(tavrel_warnings INTERFACE)
target_compile_options(tavrel_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-missing-field-initializers)
if(DEFINED ENV{CI})
  target_compile_options(tavrel_warnings INTERFACE -Werror)
endif()
# GCC 12 at -O3 sees overlapping copies in `"text" + string`, where there are none (its bug 105651, mended in 13).
if(CMAKE_BUILD_TYPE STREQUAL "Release" AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU"
   AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12 AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(tavrel_warnings INTERFACE -Wno-restrict)
endif()
if(TAVREL_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
  # GCC 12 takes its own library's regex for uninitialised once it is instrumented.
  add_compile_options(-Wno-maybe-uninitialized)
endif()
