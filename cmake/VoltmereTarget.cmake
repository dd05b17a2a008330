# Gives a target of this project its include root, warnings, hardening and instrumentation.
function(voltmere_target target)
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/generated)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # Parameters of constructors have the names of members here; only GCC can warn about locals alone.
    target_compile_options(${target} PRIVATE
      $<$<COMPILE_LANGUAGE:CXX>:-Wshadow=local>)
  endif()
  voltmere_harden(${target})
  if(VOLTMERE_SANITIZE)
    target_compile_options(${target} PRIVATE
      -fsanitize=${VOLTMERE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer
      # Instrumented, std::regex causes a false one with GCC.
      $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(${target} PUBLIC -fsanitize=${VOLTMERE_SANITIZE})
  endif()
  if(VOLTMERE_FUZZ)
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
  if(VOLTMERE_COVERAGE)
    target_compile_options(${target} PRIVATE --coverage)
    target_link_options(${target} PUBLIC --coverage)
  endif()
endfunction()
