# Compiler switches that every target shares. Warnings are errors: a warning nobody reads is a bug nobody sees.
add_library(tidvane_options INTERFACE)
target_compile_options(tidvane_options INTERFACE -Wall -Wextra -Werror -Wshadow -Wnon-virtual-dtor -Wno-missing-field-initializers)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  # GCC 12 sees overlapping copies in optimised std::string assignments where there are none (its bug 105651).
  target_compile_options(tidvane_options INTERFACE $<$<NOT:$<CONFIG:Debug>>:-Wno-restrict>)
endif()
if(TIDVANE_SANITIZE)
  target_compile_options(tidvane_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tidvane_options INTERFACE -fsanitize=address,undefined)
endif()
if(TIDVANE_FUZZ)
  # Warnings are judged by the compiler of the product; this build is for what its inputs do.
  target_compile_options(tidvane_options INTERFACE -Wno-error -fsanitize=fuzzer-no-link,address,undefined
                         -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(tidvane_options INTERFACE -fsanitize=address,undefined)
endif()
if(NOT WIN32 AND NOT TIDVANE_SANITIZE AND NOT TIDVANE_FUZZ)
  find_program(LLD ld.lld)
  if(LLD)
    target_link_options(tidvane_options INTERFACE -fuse-ld=lld)
  endif()
endif()
