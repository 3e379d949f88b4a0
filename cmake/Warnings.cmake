# Every target of ours links `tavrel_warnings`; the libraries below come in as system headers.
add_library(tavrel_warnings INTERFACE)
target_compile_options(tavrel_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-missing-field-initializers)
if(DEFINED ENV{CI})
  target_compile_options(tavrel_warnings INTERFACE -Werror)
endif()
if(TAVREL_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
  # GCC 12 takes its own library's regex for uninitialised once it is instrumented.
  add_compile_options(-Wno-maybe-uninitialized)
endif()
