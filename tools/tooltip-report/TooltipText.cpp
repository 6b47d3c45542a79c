#include "TooltipText.h"

#include <boost/locale/encoding_utf.hpp>
#include <boost/locale/utf.hpp>

#include <algorithm>
#include <climits>
#include <iterator>
#include <stdexcept>

namespace tooltipreport {

namespace {

namespace conv = boost::locale::conv;
namespace utf = boost::locale::utf;

bool IsMalformed(utf::code_point codePoint)
{
    return codePoint == utf::illegal || codePoint == utf::incomplete;
}

} // namespace

TString FromUtf8(const std::string& bytes, const std::string& source, std::size_t skipped)
{
    const auto start = bytes.begin() + static_cast<std::ptrdiff_t>(skipped);
    // The library's conversion doesn't report where it fails, and a text that is too long needn't be
    // converted.
    std::size_t unitCount = 0;
    for (auto position = start; position != bytes.end();) {
        const auto offset = position - bytes.begin();
        const utf::code_point codePoint = utf::utf_traits<char>::decode(position, bytes.end());
        if (IsMalformed(codePoint))
            throw std::runtime_error("bad UTF-8 in " + source + " at byte offset " + std::to_string(offset));
        unitCount += static_cast<std::size_t>(utf::utf_traits<char16_t>::width(codePoint));
    }
    if (unitCount > INT_MAX)
        throw std::runtime_error(source + " is too long: a text has at most " + std::to_string(INT_MAX) +
                                 " UTF-16 code units");
    std::u16string units;
    units.reserve(unitCount);
    for (auto position = start; position != bytes.end();) {
        const utf::code_point codePoint = utf::utf_traits<char>::decode_valid(position);
        utf::utf_traits<char16_t>::encode(codePoint, std::back_inserter(units));
    }
    return TString(units.data(), static_cast<int>(units.size()));
}

std::string ToUtf8(const TString& text)
{
    return conv::utf_to_utf<char>(text.constData(), text.constData() + text.length(), conv::stop);
}

void WriteUtf8(std::ostream& out, const TString& text)
{
    constexpr std::ptrdiff_t pieceLength = 65536;
    const char16_t* const end = text.constData() + text.length();
    for (const char16_t* piece = text.constData(); piece != end;) {
        const char16_t* pieceEnd = piece + std::min(pieceLength, end - piece);
        if (pieceEnd != end && utf::utf_traits<char16_t>::is_trail(*pieceEnd))
            --pieceEnd;
        out << conv::utf_to_utf<char>(piece, pieceEnd, conv::stop);
        piece = pieceEnd;
    }
}

char32_t Symbol(char32_t character)
{
    constexpr char32_t controlPictures = 0x2400;
    constexpr char32_t replacementCharacter = 0xFFFD;
    if (character < 0x20)
        return controlPictures + character;
    const bool isFurtherControl =
        (character >= 0x7F && character < 0xA0) || character == 0x2028 || character == 0x2029;
    return isFurtherControl || IsMalformed(character) ? replacementCharacter : character;
}

std::string OnOneLine(const std::string& utf8)
{
    std::string line;
    for (auto position = utf8.begin(); position != utf8.end();) {
        const utf::code_point codePoint = utf::utf_traits<char>::decode(position, utf8.end());
        utf::utf_traits<char>::encode(Symbol(codePoint), std::back_inserter(line));
    }
    return line;
}

std::string Quoted(const std::string& name)
{
    std::string quoted = "\"";
    for (const char character : OnOneLine(name))
        quoted.append(character == '"' ? 2 : 1, character);
    return quoted + '"';
}

std::string Quoted(const TString& name)
{
    return Quoted(ToUtf8(name));
}

std::string Counted(std::size_t count, const std::string& what)
{
    return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

} // namespace tooltipreport
