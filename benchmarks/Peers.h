#pragma once

/// What a host might write instead of calling the library, as competent users of each tool would.

#include <map>
#include <set>
#include <string>
#include <string_view>

namespace benchmarks {

using Names = std::set<std::u16string>;
using FieldsBySheet = std::map<std::u16string, std::set<std::u16string>>;

/// PCRE2, 16-bit, JIT-compiled: one expression for a whole sheet element with its attributes in any order.
class Pcre
{
public:
    Pcre();
    ~Pcre();
    Pcre(const Pcre&) = delete;
    Pcre& operator=(const Pcre&) = delete;

    Names FindNames(std::u16string_view text) const;
    FieldsBySheet FindFields(std::u16string_view text) const;

private:
    template <typename Visit>
    void ForEachSheetElement(std::u16string_view text, Visit visit) const;

    struct Compiled;
    Compiled* m_compiled;
};

/// `std::u16string_view::find` and a loop over the attributes, without validation.
class HandWritten
{
public:
    Names FindNames(std::u16string_view text) const;
    FieldsBySheet FindFields(std::u16string_view text) const;
};

} // namespace benchmarks
