/// Replaces libFuzzer where the compiler has none: runs the target once on each of the named files.

#include <cstdint>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int, char** argv)
{
    while (*++argv != nullptr) {
        std::ifstream stream(*argv, std::ios::binary);
        const std::vector<std::uint8_t> bytes(std::istreambuf_iterator<char>(stream), {});
        LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
    }
}
