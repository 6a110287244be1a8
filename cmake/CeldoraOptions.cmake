# Compiler warnings and sanitizers live in one INTERFACE target that every
# target of the project links, so nothing is set through global flags.
add_library(celdora_options INTERFACE)
add_library(Celdora::Options ALIAS celdora_options)

target_compile_options(celdora_options INTERFACE
  $<$<CXX_COMPILER_ID:GNU,Clang>:-Wall -Wextra -Wpedantic>
  $<$<AND:$<CXX_COMPILER_ID:GNU,Clang>,$<BOOL:${CELDORA_WERROR}>>:-Werror>)

if(CELDORA_SANITIZE)
  target_compile_options(celdora_options INTERFACE
    -fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
  target_link_options(celdora_options INTERFACE -fsanitize=address,undefined)
endif()
