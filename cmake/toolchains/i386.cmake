# 32 bits, which an x86-64 machine runs by itself, with the libraries of the cross-compiler. Debian's compiler doesn't
# assume SSE2 here: texts are searched without vector instructions.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR i686)
set(CMAKE_C_COMPILER i686-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER i686-linux-gnu-g++)
set(CMAKE_CROSSCOMPILING_EMULATOR /usr/i686-linux-gnu/lib/ld-linux.so.2 --library-path /usr/i686-linux-gnu/lib)
