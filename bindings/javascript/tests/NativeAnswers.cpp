/// The binding, native. A line of the input is the index of an operation, the number of words of its
/// arguments, and these; a line of the output is the words of the result, or a `!` and the condition that is
/// broken.

#include "../Binding.cpp"

#include <iostream>

void ThrowError(const char* condition)
{
    throw condition;
}

int main()
{
    std::uint32_t operation = 0;
    for (std::uint32_t count = 0; std::cin >> operation >> count;) {
        Reserve(count);
        for (std::uint32_t& word : buffer)
            std::cin >> word;
        try {
            Call(operation);
            for (const std::uint32_t word : buffer)
                std::cout << word << ' ';
        } catch (const char* condition) {
            std::cout << '!' << condition;
        }
        std::cout << '\n';
    }
}
