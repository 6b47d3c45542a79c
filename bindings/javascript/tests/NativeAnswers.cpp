/// The binding as a native program. A line of input is the index of an operation, the number of words of its
/// arguments, and the words. A line of output is the words of the result, or `!` and the condition that a
/// precondition violation reports.

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
