# What Debian hardens its packages with, its next release too (control-flow protection needs the C library of that). Sanitizers bring checks of
# their own for the same calls, and coverage is counted without optimisation, which the checked functions need.
include(CheckCXXCompilerFlag)
add_library(zqxml_hardening INTERFACE)
foreach(flag -fstack-protector-strong -fstack-clash-protection -fcf-protection -Werror=format-security)
  string(MAKE_C_IDENTIFIER "ZQXML_HAS${flag}" has_flag)
  check_cxx_compiler_flag("-Wformat ${flag}" ${has_flag})
  if(${has_flag})
    target_compile_options(zqxml_hardening INTERFACE -Wformat ${flag})
  endif()
endforeach()
if(NOT ZQXML_COVERAGE AND NOT "${CMAKE_CXX_FLAGS}" MATCHES "-fsanitize")
  target_compile_options(zqxml_hardening INTERFACE
    $<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE>
    $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=2>)
endif()
