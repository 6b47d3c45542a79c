# Another standard library: Clang with its own.
set(CMAKE_C_COMPILER clang-14)
set(CMAKE_CXX_COMPILER clang++-14)
set(CMAKE_CXX_FLAGS_INIT -stdlib=libc++)
