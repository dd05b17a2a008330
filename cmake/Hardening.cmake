# What makes a fault harder to misuse. tests/house/hardening_test.cpp reads it back from the built
# program.

if(NOT APPLE) # where Clang knows neither, or takes them without effect
  include(CheckCXXCompilerFlag)
  check_cxx_compiler_flag(-fstack-clash-protection VOLTMERE_HAS_STACK_CLASH_PROTECTION)
  check_cxx_compiler_flag(-fcf-protection VOLTMERE_HAS_CONTROL_FLOW_PROTECTION)
endif()

function(voltmere_harden target)
  target_compile_options(${target} PRIVATE
    -fstack-protector-strong
    $<$<BOOL:${VOLTMERE_HAS_STACK_CLASH_PROTECTION}>:-fstack-clash-protection>
    $<$<BOOL:${VOLTMERE_HAS_CONTROL_FLOW_PROTECTION}>:-fcf-protection>)
  if(NOT VOLTMERE_SANITIZE)
    # The sanitizers bring their own checks; these need an optimising build.
    target_compile_options(${target} PRIVATE
      $<$<CONFIG:Release,RelWithDebInfo>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -D_GLIBCXX_ASSERTIONS>)
  endif()
  if(NOT APPLE)
    target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now,-z,noexecstack)
  endif()
endfunction()
