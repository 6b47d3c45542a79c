#pragma once

/// How the library reports precondition violations.

#include <corvaneplatform/Export.h>

#include <stdexcept>

/// Thrown on a precondition violation.
///
/// `File` and `Condition` are pointers to string literals of the library that throws, valid as long as it is
/// loaded.
class CORVANEPLATFORM_EXPORT LogicException : public std::logic_error
{
public:
    LogicException(const char* file, int line, const char* condition);
    LogicException(const LogicException&) noexcept = default;
    LogicException& operator=(const LogicException&) noexcept = default;
    ~LogicException() override;

    /// Returns the source file that checks the condition, such as `corvanemarkup/VizInTooltip`, without an
    /// extension.
    [[nodiscard]] const char* File() const noexcept { return m_file; }
    [[nodiscard]] int Line() const noexcept { return m_line; }
    /// Returns the text of the condition that doesn't hold.
    [[nodiscard]] const char* Condition() const noexcept { return m_condition; }

private:
    const char* m_file;
    int m_line;
    const char* m_condition;
};

/// Throws a `LogicException`. `file` and `condition` must be string literals, or live as long as one.
[[noreturn]] CORVANEPLATFORM_EXPORT void ThrowLogicException(const char* file, int line,
                                                             const char* condition);
