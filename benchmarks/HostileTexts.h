#pragma once

/// Texts that are made to take long.

#include <string>
#include <string_view>
#include <vector>

namespace benchmarks {

/// Texts of one kind, in every length.
class HostileFamily
{
public:
    /// A stretch of the text: `Text` once, or over and over, `#` in it counting up.
    struct Part
    {
        std::u16string Text;
        bool IsRepeated = false;
    };

    HostileFamily(std::string name, std::vector<Part> parts)
        : m_name(std::move(name)), m_parts(std::move(parts))
    {
    }

    [[nodiscard]] const std::string& Name() const { return m_name; }

    /// A text of about `length` code units, of which the repeated parts have equal shares.
    [[nodiscard]] std::u16string Make(std::size_t length) const;

    /// The family of tooltips with one sheet element that has these texts for its filter value.
    [[nodiscard]] HostileFamily AsFilterValue() const;

private:
    std::string m_name;
    std::vector<Part> m_parts;
};

/// All families, each as it is and as a filter value.
const std::vector<HostileFamily>& HostileFamilies();

} // namespace benchmarks
