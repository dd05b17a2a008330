# Qt for compiling only: the headers of this machine's Qt and no libraries. What is linked against it
# leaves Qt's symbols open.

set(headers /usr/include/${CMAKE_HOST_SYSTEM_PROCESSOR}-linux-gnu/qt6)
foreach(module IN ITEMS Core Gui Widgets Svg Test)
  if(NOT TARGET Qt6::${module})
    add_library(Qt6::${module} INTERFACE IMPORTED)
    set_target_properties(Qt6::${module} PROPERTIES
      INTERFACE_INCLUDE_DIRECTORIES "${headers};${headers}/Qt${module}"
      INTERFACE_LINK_OPTIONS "LINKER:-undefined,dynamic_lookup")
  endif()
endforeach()
set_property(TARGET Qt6::Gui APPEND PROPERTY INTERFACE_LINK_LIBRARIES Qt6::Core)
set_property(TARGET Qt6::Widgets APPEND PROPERTY INTERFACE_LINK_LIBRARIES Qt6::Gui)
set_property(TARGET Qt6::Svg APPEND PROPERTY INTERFACE_LINK_LIBRARIES Qt6::Gui)
set_property(TARGET Qt6::Test APPEND PROPERTY INTERFACE_LINK_LIBRARIES Qt6::Core)

function(qt_add_resources)
endfunction()
