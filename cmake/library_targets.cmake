# The shared library with its versioned SONAME and its export list, and the static library.

add_library(qvcommon940r SHARED $<TARGET_OBJECTS:qvcommon940r_objects>)
target_link_libraries(qvcommon940r PRIVATE ${CMAKE_DL_LIBS})
target_include_directories(qvcommon940r INTERFACE
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/qvcommon940r>)
target_compile_features(qvcommon940r INTERFACE cxx_std_17)
set_target_properties(qvcommon940r PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.map)
target_link_options(qvcommon940r PRIVATE
  -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map -Wl,-z,defs)
if(QVCOMMON_INSTRUMENT STREQUAL "address" OR QVCOMMON_INSTRUMENT STREQUAL "thread")
  target_link_options(qvcommon940r PRIVATE -Wl,-z,undefs)  # the sanitizer's runtime stands in the program
endif()
add_library(qvcommon940r::qvcommon940r ALIAS qvcommon940r)

# The tests of internals link this one: it hides nothing.
add_library(qvcommon940r_static STATIC $<TARGET_OBJECTS:qvcommon940r_objects>)
target_link_libraries(qvcommon940r_static PUBLIC ${CMAKE_DL_LIBS})
target_include_directories(qvcommon940r_static INTERFACE
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include>
  $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/qvcommon940r>)
target_compile_features(qvcommon940r_static INTERFACE cxx_std_17)
set_target_properties(qvcommon940r_static PROPERTIES OUTPUT_NAME qvcommon940r)
if(NOT QVCOMMON_BUILD_STATIC)
  set_target_properties(qvcommon940r_static PROPERTIES EXCLUDE_FROM_ALL ON)
endif()
add_library(qvcommon940r::qvcommon940r_static ALIAS qvcommon940r_static)
