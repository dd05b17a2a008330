# Gives a target of this project its include root, warnings, hardening and instrumentation.
function(voltmere_target target)
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/generated)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wpedantic -Wconversion -Wnon-virtual-dtor -Wold-style-cast -Woverloaded-virtual
    -fstack-protector-strong
    $<$<CONFIG:Release,RelWithDebInfo>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    # Clang's only form of this warning also fires for members, which constructors here mirror.
    target_compile_options(${target} PRIVATE -Wshadow=local)
  endif()
  if(VOLTMERE_SANITIZE)
    target_compile_options(${target} PRIVATE
      -fsanitize=${VOLTMERE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(${target} PUBLIC -fsanitize=${VOLTMERE_SANITIZE})
  endif()
  if(VOLTMERE_COVERAGE)
    target_compile_options(${target} PRIVATE --coverage)
    target_link_options(${target} PUBLIC --coverage)
  endif()
endfunction()
