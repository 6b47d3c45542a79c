#include <corvaneplatform/ThrowLogicException.h>

#include <string>

LogicException::LogicException(const char* file, int line, const char* condition)
    : std::logic_error(std::string(file) + ':' + std::to_string(line) + ": " + condition), m_file(file),
      m_line(line), m_condition(condition)
{
}

// The key function: emits the type information only here, for hosts to catch the exception across libraries.
LogicException::~LogicException() = default;

void ThrowLogicException(const char* file, int line, const char* condition)
{
    throw LogicException(file, line, condition);
}
