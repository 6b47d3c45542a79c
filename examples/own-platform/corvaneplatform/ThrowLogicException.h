#pragma once

/// How the library reports precondition violations to this host.

#include <stdexcept>
#include <string>

class LogicException : public std::logic_error
{
public:
    LogicException(const char* file, const char* condition)
        : std::logic_error(std::string(file) + ": " + condition), m_file(file), m_condition(condition)
    {
    }

    const char* File() const { return m_file; }
    const char* Condition() const { return m_condition; }

private:
    const char* m_file;
    const char* m_condition;
};

[[noreturn]] inline void ThrowLogicException(const char* file, int /*line*/, const char* condition)
{
    throw LogicException(file, condition);
}
