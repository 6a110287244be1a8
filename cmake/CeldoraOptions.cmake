# Compiler warnings and sanitizers live in one INTERFACE target that every
# target of the project links, so nothing is set through global flags. They
# hold inside this build only: the installed Celdora::Options is empty, so a
# host's own code never inherits the project's warnings.
add_library(celdora_options INTERFACE)
celdora_install_library(celdora_options Options)

target_compile_options(celdora_options INTERFACE
  $<BUILD_INTERFACE:$<$<CXX_COMPILER_ID:GNU,Clang>:-Wall -Wextra -Wpedantic>>
  $<BUILD_INTERFACE:$<$<AND:$<CXX_COMPILER_ID:GNU,Clang>,$<BOOL:${CELDORA_WERROR}>>:-Werror>>)

if(CELDORA_SANITIZE)
  target_compile_options(celdora_options INTERFACE
    $<BUILD_INTERFACE:-fsanitize=address,undefined -fno-omit-frame-pointer -fno-sanitize-recover=undefined>)
  target_link_options(celdora_options INTERFACE $<BUILD_INTERFACE:-fsanitize=address,undefined>)
endif()
