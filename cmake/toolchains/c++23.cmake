# Hosts in C++23.
set(CMAKE_CXX_STANDARD 23)
