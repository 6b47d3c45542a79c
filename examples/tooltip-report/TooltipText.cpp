#include "TooltipText.h"

#include <boost/locale/encoding_utf.hpp>
#include <boost/locale/utf.hpp>

#include <array>
#include <cerrno>
#include <climits>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace tooltipreport {

namespace {

namespace conv = boost::locale::conv;
namespace utf = boost::locale::utf;

std::string ReadBytes(std::istream& stream, const std::string& source)
{
    std::string bytes;
    std::array<char, 65536> block;
    do {
        stream.read(block.data(), block.size());
        bytes.append(block.data(), static_cast<std::size_t>(stream.gcount()));
    } while (stream.good());
    // A folder opens like a file, and fails here.
    if (stream.bad())
        throw std::system_error(errno, std::generic_category(), "cannot read " + source);
    return bytes;
}

bool IsFault(utf::code_point codePoint)
{
    return codePoint == utf::illegal || codePoint == utf::incomplete;
}

/// The code point itself, unless it would move a terminal's cursor elsewhere.
utf::code_point Symbol(utf::code_point codePoint)
{
    constexpr utf::code_point controlPictures = 0x2400;
    constexpr utf::code_point replacementCharacter = 0xFFFD;
    if (codePoint < 0x20)
        return controlPictures + codePoint;
    const bool isFurtherControl =
        (codePoint >= 0x7F && codePoint < 0xA0) || codePoint == 0x2028 || codePoint == 0x2029;
    return isFurtherControl || IsFault(codePoint) ? replacementCharacter : codePoint;
}

} // namespace

TString ReadTooltip(const std::string& path)
{
    if (path == "-")
        return FromUtf8(ReadBytes(std::cin, "standard input"), "standard input");
    const std::string source = "'" + path + "'";
    std::ifstream file(path, std::ios::binary);
    if (!file.is_open())
        throw std::system_error(errno, std::generic_category(), "cannot open " + source);
    return FromUtf8(ReadBytes(file, source), source);
}

TString FromUtf8(const std::string& bytes, const std::string& source)
{
    // The conversion doesn't tell where it fails, and a text that is too long needn't be converted.
    std::size_t unitCount = 0;
    for (auto position = bytes.begin(); position != bytes.end();) {
        const auto offset = position - bytes.begin();
        const utf::code_point codePoint = utf::utf_traits<char>::decode(position, bytes.end());
        if (IsFault(codePoint))
            throw std::runtime_error("bad UTF-8 in " + source + " at byte offset " + std::to_string(offset));
        unitCount += static_cast<std::size_t>(utf::utf_traits<char16_t>::width(codePoint));
    }
    if (unitCount > INT_MAX)
        throw std::runtime_error(source + " is too long: a text has at most " + std::to_string(INT_MAX) +
                                 " UTF-16 code units");
    const auto units = conv::utf_to_utf<char16_t>(bytes, conv::stop);
    return TString(units.data(), static_cast<int>(units.size()));
}

std::string ToUtf8(const TString& text)
{
    return conv::utf_to_utf<char>(text.constData(), text.constData() + text.length(), conv::stop);
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

} // namespace tooltipreport
