# Compiler flags of our own code, kept off those who link us.
add_library(lipvane_warnings INTERFACE)
if(MSVC)
  target_compile_options(lipvane_warnings INTERFACE /W4 /utf-8 $<$<BOOL:${LIPVANE_WERROR}>:/WX>)
  target_compile_definitions(lipvane_warnings INTERFACE _CRT_SECURE_NO_WARNINGS)  # std::fopen
else()
  target_compile_options(
    lipvane_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor
                               -Woverloaded-virtual -Wold-style-cast
                               $<$<BOOL:${LIPVANE_WERROR}>:-Werror>)
endif()

if(LIPVANE_SANITIZE)
  # float-cast-overflow is in no group: a count or a key time that does not fit must not pass.
  set(sanitizers address,undefined,float-cast-overflow)
  if(LIPVANE_BUILD_FUZZERS)
    add_compile_options(-fsanitize=fuzzer-no-link)
  endif()
  add_compile_options(-fsanitize=${sanitizers} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_compile_definitions(_GLIBCXX_ASSERTIONS)
  add_link_options(-fsanitize=${sanitizers})
endif()
