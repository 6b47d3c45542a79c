#pragma once

/// How the library tells that a condition is broken.

#include <corvaneplatform/Export.h>

#include <stdexcept>

/// Thrown where a caller's precondition or an internal condition is broken.
///
/// `File` and `Condition` are kept by pointer: they are string literals of the library that throws, and valid
/// as long as it is loaded.
class CORVANEPLATFORM_EXPORT LogicException : public std::logic_error
{
public:
    LogicException(const char* file, int line, const char* condition);
    LogicException(const LogicException&) noexcept = default;
    LogicException& operator=(const LogicException&) noexcept = default;
    ~LogicException() override;

    /// The source that holds the condition, such as `corvanemarkup/VizInTooltip`: no path, no extension.
    [[nodiscard]] const char* File() const noexcept { return m_file; }
    [[nodiscard]] int Line() const noexcept { return m_line; }
    /// The text of the condition that doesn't hold.
    [[nodiscard]] const char* Condition() const noexcept { return m_condition; }

private:
    const char* m_file;
    int m_line;
    const char* m_condition;
};

/// Throws a `LogicException`. `file` and `condition` must be string literals, or live as long.
[[noreturn]] CORVANEPLATFORM_EXPORT void ThrowLogicException(const char* file, int line,
                                                             const char* condition);
