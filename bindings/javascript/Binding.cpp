/// The library as a WebAssembly module: one entry point for all operations, on a buffer of 32-bit words.
///
/// `corvanemarkup.js` writes the arguments to the buffer and reads the result from it:
/// - a number or an enumerator is one word; a position in an argument is two, low half first;
/// - a text is its length, then its code units, two per word;
/// - a list, set or map is its size, then its items;
/// - an optional value is 0, or 1 and the value;
/// - a record is its members.

#include <corvanemarkup/MarkupDiagnostics.h>
#include <corvanemarkup/MarkupElementFinders.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/TextEdits.h>
#include <corvanemarkup/Version.h>
#include <corvanemarkup/VizInTooltip.h>
#include <corvanemarkup/VizInTooltipImpl.h>
#include <corvanemarkup/VizInTooltipProperties.h>
#include <corvaneplatform/ThrowLogicException.h>

#include <cstdint>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using namespace corvanemarkup;
using namespace corvanemarkup::VizInTooltip;

using Words = std::vector<std::uint32_t>;

Words buffer;

/// Its messages are written one by one: a list of them could need several times the memory of the tooltip.
struct DiagnosticsWithMessages
{
    TString Tooltip;
    std::vector<Diagnostic> Diagnostics;
};

class Reader
{
public:
    explicit Reader(const std::uint32_t* words) : m_next(words) {}

    void Read(int& value) { value = static_cast<int>(*m_next++); }
    void Read(ElementEnd& value) { value = static_cast<ElementEnd>(*m_next++); }
    void Read(std::int64_t& position)
    {
        const std::uint64_t low = *m_next++;
        const std::uint64_t high = *m_next++;
        position = static_cast<std::int64_t>(high << 32 | low);
    }
    void Read(TString& text)
    {
        const int length = static_cast<int>(*m_next++);
        text = TString(reinterpret_cast<const char16_t*>(m_next), length);
        m_next += (length + 1) / 2;
    }
    void Read(MarkupText& value) { value = MarkupText(ReadNew<TString>()); }
    void Read(CorvaneCharRange& value) { ReadAll(value.start, value.end); }
    void Read(TextEdit& value) { ReadAll(value.Range, value.NewText); }
    void Read(ElementRanges& value) { ReadAll(value.Element, value.Content, value.End); }
    template <typename First, typename Second>
    void Read(std::pair<First, Second>& value)
    {
        ReadAll(value.first, value.second);
    }
    template <typename Item>
    void Read(std::vector<Item>& items)
    {
        for (std::uint32_t count = *m_next++; count > 0; --count)
            items.push_back(ReadNew<Item>());
    }
    template <typename Item>
    void Read(std::set<Item>& items)
    {
        ReadItems<Item>(items);
    }
    template <typename Key, typename Value>
    void Read(std::map<Key, Value>& items)
    {
        ReadItems<std::pair<Key, Value>>(items);
    }
    template <typename... Values>
    void ReadAll(Values&... values)
    {
        (Read(values), ...);
    }

private:
    template <typename Value>
    Value ReadNew()
    {
        Value value{};
        Read(value);
        return value;
    }
    template <typename Item, typename Items>
    void ReadItems(Items& items)
    {
        for (std::uint32_t count = *m_next++; count > 0; --count)
            items.insert(ReadNew<Item>());
    }

    const std::uint32_t* m_next;
};

class Writer
{
public:
    explicit Writer(Words& words) : m_words(words) {}

    void Write(bool value) { m_words.push_back(value); }
    void Write(int value) { m_words.push_back(static_cast<std::uint32_t>(value)); }
    template <typename Enum, typename = std::enable_if_t<std::is_enum_v<Enum>>>
    void Write(Enum value)
    {
        Write(static_cast<int>(value));
    }
    void Write(const TString& text)
    {
        const auto length = static_cast<std::size_t>(text.length());
        const std::size_t start = m_words.size() + 1;
        m_words.resize(start + (length + 1) / 2);
        m_words[start - 1] = static_cast<std::uint32_t>(length);
        if (length > 0)
            std::memcpy(&m_words[start], text.constData(), length * sizeof(char16_t));
    }
    void Write(const CorvaneCharRange& value)
    {
        // A position in a text fits.
        WriteAll(static_cast<int>(value.start), static_cast<int>(value.end));
    }
    void Write(const TSize& value) { WriteAll(value.width, value.height); }
    void Write(const AttributeNameAndValue& value) { WriteAll(value.Name.GetName(), value.Value); }
    void Write(const NewCursorPositionAndMarkupText& value)
    {
        WriteAll(value.NewMarkupText, value.NewCursorPosition);
    }
    void Write(const ElementRanges& value) { WriteAll(value.Element, value.Content, value.End); }
    void Write(const AttributeRanges& value)
    {
        WriteAll(value.Attribute, value.Name, value.Value, value.NameAndValue, value.Fields);
    }
    void Write(const SheetOrFieldName& value)
    {
        WriteAll(value.Kind, value.Status, value.Name, value.Range, value.Element);
    }
    void Write(const DiagnosticsWithMessages& value)
    {
        Write(static_cast<int>(value.Diagnostics.size()));
        for (const Diagnostic& diagnostic : value.Diagnostics)
            WriteAll(diagnostic.Kind, diagnostic.Severity, GetDiagnosticMessage(value.Tooltip, diagnostic),
                     diagnostic.Range, diagnostic.Element);
    }
    void Write(const TextEdit& value) { WriteAll(value.Range, value.NewText); }
    void Write(const EditAtCursor& value) { WriteAll(value.Edit, value.NewCursorPosition); }
    void Write(const VizInTooltipProperties& value)
    {
        WriteAll(value.GetSheetName(), value.GetSheetSize(), value.GetFilterValue(), value.GetFilterFields(),
                 value.IsValid(), value.HasDuplicateAttributes(), value.MissingSheetName(),
                 value.HasInvalidSheetSize(), value.HasUnallowedAttributes());
    }
    template <typename First, typename Second>
    void Write(const std::pair<First, Second>& value)
    {
        WriteAll(value.first, value.second);
    }
    template <typename Value>
    void Write(const boost::optional<Value>& value)
    {
        Write(value.has_value());
        if (value)
            Write(*value);
    }
    template <typename Item>
    void Write(const std::vector<Item>& items)
    {
        WriteItems(items);
    }
    template <typename Item>
    void Write(const std::set<Item>& items)
    {
        WriteItems(items);
    }
    template <typename Key, typename Value>
    void Write(const std::map<Key, Value>& items)
    {
        WriteItems(items);
    }

private:
    template <typename... Values>
    void WriteAll(const Values&... values)
    {
        (Write(values), ...);
    }
    template <typename Items>
    void WriteItems(const Items& items)
    {
        Write(static_cast<int>(items.size()));
        for (const auto& item : items)
            Write(item);
    }

    Words& m_words;
};

template <typename Result, typename... Arguments>
void Run(Result (&function)(Arguments...))
{
    std::tuple<std::decay_t<Arguments>...> arguments{};
    std::apply([](auto&... values) { Reader(buffer.data()).ReadAll(values...); }, arguments);
    buffer = Words(); // no second copy of a long text during the call; {} would keep the memory
    const auto result = std::apply(function, arguments);
    Words words;
    Writer(words).Write(result);
    buffer = std::move(words);
}

// Operations whose signature differs from that of the library's function.

TString FromAscii(const char* ascii)
{
    const std::u16string text(ascii, ascii + std::strlen(ascii));
    return TString(text.data(), static_cast<int>(text.size()));
}

TString GetVersionText()
{
    return FromAscii(GetVersion());
}

std::vector<std::pair<TString, TString>> GetDiagnosticKinds()
{
    std::vector<std::pair<TString, TString>> kinds;
    for (int value = 0; value < GetDiagnosticKindCount(); ++value) {
        const auto kind = static_cast<DiagnosticKind>(value);
        kinds.emplace_back(FromAscii(GetDiagnosticIdentifier(kind)),
                           FromAscii(GetDiagnosticDescription(kind)));
    }
    return kinds;
}

DiagnosticsWithMessages FindDiagnosticsWithMessages(const TString& tooltipText)
{
    return {tooltipText, FindDiagnostics(tooltipText)};
}

boost::optional<MarkupText> ReplaceSheetName(const MarkupText& sheetMarkupText,
                                             const TString& currentSheetName, const TString& newSheetName)
{
    MarkupText replaced;
    if (!ReplaceSheetNameInSheetMarkupText(sheetMarkupText, currentSheetName, newSheetName, replaced))
        return boost::none;
    return replaced;
}

MarkupText MakeSheetElement(const TString& sheetName, const TString& filterValue)
{
    return VizInTooltipProperties::GetDefault(sheetName, filterValue).ToSheetMarkupText();
}

template <auto Function>
void Run()
{
    Run(*Function);
}

/// In the same order as in `corvanemarkup.js`.
constexpr void (*Operations[])() = {
    Run<GetVersionText>,
    Run<GetDiagnosticKinds>,
    Run<GetTargetSheetNamesFromTooltipText>,
    Run<GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText>,
    Run<GetFilterFieldsFromSheetMarkupInTooltipText>,
    Run<CollectSheetsWithDeletedOrModifiedSheetMarkupFilters>,
    Run<CollectMarkupElements>,
    Run<Impl::IsSheetMarkupText>,
    Run<VizInTooltipProperties::FromMarkupText>,
    Run<MakeSheetElement>,
    Run<GetTargetSheetNameFromMarkupText>,
    Run<GetTargetSheetNamesFromMarkupElementSet>,
    Run<ReplaceSheetName>,
    Run<ReplaceSheetNameInFirstMarkupTextWithSheetNameFromSecond>,
    Run<GetCharRangeOfSheetNameAttributeValue>,
    Run<FindFilterAttributeToken>,
    Run<GetIndexOfFiltersAtCharRange>,
    Run<InsertFilterFieldIntoMarkupText>,
    Run<InsertFilterFieldIntoMarkupTextAndGetNewCursorPosition>,
    Run<FindElementRanges>,
    Run<GetElementKind>,
    Run<FindAttributeRanges>,
    Run<FindSheetAndFieldNames>,
    Run<FindDiagnosticsWithMessages>,
    Run<ApplyTextEdits>,
    Run<IsFieldName>,
    Run<RenameSheetsAndFields>,
    Run<InsertFilterFieldAt>,
};

} // namespace

/// Throws a JavaScript error that contains the condition. No destructors run, so the memory of the call
/// leaks; `corvanemarkup.js` resets the module's memory to its initial state.
extern "C" [[noreturn]] void ThrowError(const char* condition);

/// Replaces the platform's function, which comes later in the link. Without exceptions the module is smaller
/// by a seventh. Any other exception would be for lack of memory, and traps instead.
void ThrowLogicException(const char* /*file*/, int /*line*/, const char* condition)
{
    ThrowError(condition);
}

/// Allocates that many words for the arguments and returns their address; 0 releases the memory.
extern "C" std::uint32_t* Reserve(std::uint32_t count)
{
    buffer = Words(count);
    return buffer.data();
}

/// Performs the operation with that index and returns the address of its result.
extern "C" const std::uint32_t* Call(std::uint32_t operation)
{
    Operations[operation]();
    return buffer.data();
}
