# Hosts in C++20.
set(CMAKE_CXX_STANDARD 20)
