#include <cstdio>
#include <dlfcn.h>

/// Loads, calls and unloads a plugin (the first argument) repeatedly. Neither the plugin nor its libraries
/// (the other arguments) may stay loaded.
int main(int argc, char** argv)
{
    for (int round = 0; round < 100; ++round) {
        void* const host = dlopen(argv[1], RTLD_NOW);
        void* const call = host != nullptr ? dlsym(host, "main") : nullptr;
        if (call == nullptr || reinterpret_cast<int (*)()>(call)() != 0 || dlclose(host) != 0)
            return std::puts("the call failed");
        for (int i = 1; i < argc; ++i)
            if (dlopen(argv[i], RTLD_NOW | RTLD_NOLOAD) != nullptr)
                return std::printf("still loaded: %s\n", argv[i]);
    }
}
