include(GenerateExportHeader)

# What a build that ships carries beyond its code: checks of the stack and of buffers, a table of addresses that can't be
# written, and no path of the machine that built it. A host that adds the project decides on these itself.
function(corvane_harden target)
  # The last one that fits counts, and the build folder may lie inside the source folder.
  target_compile_options(${target} PRIVATE -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=.)
  set_target_properties(${target} PROPERTIES BUILD_RPATH_USE_ORIGIN ON)
  # The sanitizers check more, and see through these checks badly.
  if(CMAKE_EXECUTABLE_FORMAT STREQUAL "ELF" AND NOT CMAKE_CXX_FLAGS MATCHES "-fsanitize")
    target_compile_options(
      ${target} PRIVATE -fstack-protector-strong
                        "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>")
    target_link_options(${target} PRIVATE -Wl,-z,relro,-z,now)
  endif()
endfunction()

# What every target of this project is compiled with.
function(corvane_compile_options target)
  target_compile_features(${target} PUBLIC cxx_std_17)
  set_target_properties(${target} PROPERTIES CXX_EXTENSIONS OFF)
  if(PROJECT_IS_TOP_LEVEL AND CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
    corvane_harden(${target})
  endif()
endfunction()

# A library with hidden visibility whose sources and headers, included as <name/Header.h>, are in the current folder.
# The export header is generated; it is a file set of its own, since the build folder may lie inside the source folder.
function(corvane_add_library name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;PUBLIC_HEADERS;GENERATED_HEADERS")
  string(TOUPPER ${name} upper)

  add_library(${name})
  add_library(${name}::${name} ALIAS ${name})
  corvane_compile_options(${name})
  set_target_properties(
    ${name}
    PROPERTIES CXX_VISIBILITY_PRESET hidden
               VISIBILITY_INLINES_HIDDEN ON
               POSITION_INDEPENDENT_CODE ON # a host's shared library may hold a static one
               VERSION ${PROJECT_VERSION}
               SOVERSION ${PROJECT_VERSION_MAJOR}
               INSTALL_RPATH "$ORIGIN"
               VERIFY_INTERFACE_HEADER_SETS ${PROJECT_IS_TOP_LEVEL})

  if(CMAKE_EXECUTABLE_FORMAT STREQUAL "ELF")
    set(exports ${CMAKE_CURRENT_SOURCE_DIR}/exports.map)
    target_link_options(${name} PRIVATE -Wl,--version-script=${exports})
    set_target_properties(${name} PROPERTIES LINK_DEPENDS ${exports})
  endif()

  if(MINGW AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # What a header defines needn't come from the library.
    target_compile_options(${name} PRIVATE -fno-keep-inline-dllexport)
  endif()

  set(generated ${PROJECT_BINARY_DIR}/generated)
  generate_export_header(${name} EXPORT_FILE_NAME ${generated}/${name}/Export.h)
  get_target_property(type ${name} TYPE)
  if(type STREQUAL STATIC_LIBRARY)
    target_compile_definitions(${name} PUBLIC ${upper}_STATIC_DEFINE)
  endif()
  list(TRANSFORM arg_GENERATED_HEADERS PREPEND ${generated}/${name}/)
  target_sources(
    ${name}
    PRIVATE ${arg_SOURCES}
    PUBLIC FILE_SET HEADERS BASE_DIRS ${PROJECT_SOURCE_DIR} FILES ${arg_PUBLIC_HEADERS}
    PUBLIC FILE_SET generated_headers TYPE HEADERS BASE_DIRS ${generated} FILES ${generated}/${name}/Export.h
           ${arg_GENERATED_HEADERS})
endfunction()
