# Clang's own standard library with its checks of positions, iterators and ranges.
include(${CMAKE_CURRENT_LIST_DIR}/libc++.cmake)
string(APPEND CMAKE_CXX_FLAGS_INIT " -D_LIBCPP_DEBUG=1")
