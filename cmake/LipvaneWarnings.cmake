# Compiler flags of our own code, kept off those who link us.
add_library(lipvane_warnings INTERFACE)
if(MSVC)
  target_compile_options(lipvane_warnings INTERFACE /W4 /utf-8 $<$<BOOL:${LIPVANE_WERROR}>:/WX>)
else()
  target_compile_options(
    lipvane_warnings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor
                               -Woverloaded-virtual -Wold-style-cast
                               $<$<BOOL:${LIPVANE_WERROR}>:-Werror>)
endif()
if(LIPVANE_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
