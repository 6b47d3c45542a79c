/// The library as a module of WebAssembly: one call for all operations, on a buffer of 32-bit words.
///
/// `corvanemarkup.js` writes the arguments into the buffer, and reads the result from there:
/// - a number is a word; a position that is passed has two, the lower half first;
/// - a text is its length, then its code units, two to a word;
/// - a list, a set or a map is its length, then its items;
/// - what may be missing is 0, or 1 and the value;
/// - a record is its parts.

#include <corvanemarkup/MarkupElementFinders.h>
#include <corvanemarkup/MarkupFaults.h>
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

class Reader
{
public:
    explicit Reader(const std::uint32_t* words) : m_next(words) {}

    void Read(int& value) { value = static_cast<int>(*m_next++); }
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
    void Read(TextEdit& value) { ReadAll(value.Replaced, value.Text); }
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
    void Write(const ElementRanges& value)
    {
        WriteAll(value.Element, value.Content, static_cast<int>(value.End));
    }
    void Write(const AttributeRanges& value)
    {
        WriteAll(value.Attribute, value.Name, value.Value, value.NameAndValue, value.Fields);
    }
    void Write(const MarkupFault& value)
    {
        WriteAll(static_cast<int>(value.Kind), value.Range, value.IsError);
    }
    void Write(const TextEdit& value) { WriteAll(value.Replaced, value.Text); }
    void Write(const FieldInsertion& value) { WriteAll(value.Edit, value.NewCursorPosition); }
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
    buffer = {}; // a long text needn't be there twice
    const auto result = std::apply(function, arguments);
    Words words;
    Writer(words).Write(result);
    buffer = std::move(words);
}

// Where the library's function has another shape than one in JavaScript.

TString GetVersionText()
{
    std::u16string text;
    for (const char* letter = GetVersion(); *letter != '\0'; ++letter)
        text += static_cast<char16_t>(*letter);
    return TString(text.data(), static_cast<int>(text.size()));
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

/// In the order of `corvanemarkup.js`.
constexpr void (*Operations[])() = {
    Run<GetVersionText>,
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
    Run<FindAttributeRanges>,
    Run<FindMarkupFaults>,
    Run<ApplyTextEdits>,
    Run<IsFieldName>,
    Run<RenameSheetsAndFields>,
    Run<InsertFilterFieldAt>,
};

} // namespace

/// Throws an `Error` with the condition in JavaScript. No destructor runs on the way, so that the memory of
/// the call is lost; `corvanemarkup.js` puts all memory back to what it was at the start.
extern "C" [[noreturn]] void ThrowError(const char* condition);

/// The linker takes this one, since it comes before that of the platform. So the module needs no exceptions,
/// which would make it larger by a seventh. What else would throw, for want of memory, ends in a trap.
void ThrowLogicException(const char* /*file*/, int /*line*/, const char* condition)
{
    ThrowError(condition);
}

/// Makes room for the arguments, that many words, and tells where it is. With 0, gives the memory back.
extern "C" std::uint32_t* Reserve(std::uint32_t count)
{
    buffer = Words(count);
    return buffer.data();
}

/// Calls the operation with that index and tells where its result is.
extern "C" const std::uint32_t* Call(std::uint32_t operation)
{
    Operations[operation]();
    return buffer.data();
}
