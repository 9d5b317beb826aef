# The warnings that our own code is compiled with.
add_library(zqxml_warnings INTERFACE)
target_compile_options(zqxml_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion
  $<$<BOOL:${ZQXML_WERROR}>:-Werror>)
