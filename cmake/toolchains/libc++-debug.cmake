# Clang's own standard library with its assertions, of positions and ranges. Its database of iterators, which -D_LIBCPP_DEBUG=1
# adds, takes what the library's binary gives, such as the strings of std::to_string, for wrong.
include(${CMAKE_CURRENT_LIST_DIR}/libc++.cmake)
string(APPEND CMAKE_CXX_FLAGS_INIT " -D_LIBCPP_DEBUG=0")
