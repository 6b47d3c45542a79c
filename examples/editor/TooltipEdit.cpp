#include "TooltipEdit.h"

#include "QtText.h"
#include "TooltipMarkup.h"

#include <corvanemarkup/SheetMarkupConstants.h>

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>

namespace editor {

using namespace corvanemarkup;
using namespace corvanemarkup::VizInTooltip;

namespace {

struct ElementFormats
{
    QTextCharFormat Element;
    QTextCharFormat SheetName;
    QTextCharFormat Field;
};

/// Colours that can be read on the background. Faults are underlined, too, so that no one needs to see
/// colours.
ElementFormats FormatsOf(ElementKind kind, const QColor& background)
{
    const bool isDark = background.lightness() < 128;
    const auto ink = [isDark](int hue) { return QColor::fromHsl(hue, 200, isDark ? 190 : 75); };
    const auto tint = [isDark](int hue) { return QColor::fromHsl(hue, 120, isDark ? 50 : 235); };
    constexpr int blue = 215;
    constexpr int green = 130;
    constexpr int red = 0;
    constexpr int violet = 285;
    ElementFormats formats;
    formats.Element.setUnderlineColor(ink(red));
    formats.SheetName.setForeground(ink(violet));
    formats.Field.setForeground(ink(blue));
    switch (kind) {
    case ElementKind::Plain:
        formats.Element.setForeground(ink(blue));
        break;
    case ElementKind::Unfinished:
        formats.Element.setUnderlineStyle(QTextCharFormat::DashUnderline);
        break;
    case ElementKind::Sheet:
        formats.Element.setBackground(tint(green));
        break;
    case ElementKind::InvalidSheet:
        formats.Element.setBackground(tint(red));
        formats.Element.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        break;
    }
    return formats;
}

/// With U+000A for each line end. Qt's plain text would have a space for U+00A0, and a line end for U+2028.
TString TextOf(const QTextDocument& document)
{
    return ToTString(document.toRawText().replace(QChar::ParagraphSeparator, u'\n'));
}

/// `name` as a document holds it, which has but one kind of line end.
TString AsInDocument(const QString& name)
{
    return TextOf(QTextDocument(name));
}

} // namespace

TooltipEdit::TooltipEdit(QWidget* parent) : QPlainTextEdit(parent)
{
    // The other modes take quadratic time on a long line without spaces.
    setWordWrapMode(QTextOption::WrapAnywhere);
    // For the keyboard; in a sheet element a tab wouldn't separate anyway.
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, &TooltipEdit::ReadDocument);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &TooltipEdit::ColourWhatIsVisible);
    connect(horizontalScrollBar(), &QScrollBar::valueChanged, this, &TooltipEdit::ColourWhatIsVisible);
}

const ElementRanges* TooltipEdit::ElementAtSelection() const
{
    const QTextCursor cursor = textCursor();
    const auto endsBefore = [](const ElementRanges& element, int position) {
        return element.Content.end < position;
    };
    const auto element =
        std::lower_bound(m_elements.begin(), m_elements.end(), cursor.selectionEnd(), endsBefore);
    return element != m_elements.end() && element->Element.start < cursor.selectionStart() ? &*element
                                                                                           : nullptr;
}

QString TooltipEdit::FaultsAt(int position) const
{
    QStringList sentences;
    for (const MarkupFault& fault : m_faults)
        if (fault.Range.start <= position && position <= fault.Range.end)
            sentences.append(SentenceOn(fault.Kind));
    sentences.removeDuplicates();
    return sentences.join(u' ');
}

QString TooltipEdit::InsertFilterField(const QString& field)
{
    const QTextCursor selection = textCursor();
    const TString name = AsInDocument(field);
    if (!IsFieldName(name))
        return tr("A field of this name can't stand between < and >.");
    const auto insertion = InsertFilterFieldAt(
        m_tooltip, {selection.selectionStart(), selection.selectionEnd()}, name, TString(u"All", -1));
    if (!insertion)
        return tr("The cursor isn't in a sheet element that can be read and can have a filter.");
    Apply({insertion->Edit});
    QTextCursor cursor(document());
    cursor.setPosition(insertion->NewCursorPosition);
    setTextCursor(cursor);
    return {};
}

int TooltipEdit::RenameTargetSheet(const QString& currentName, const QString& newName)
{
    const auto edits =
        RenameSheetsAndFields(m_tooltip, {{ToTString(currentName), AsInDocument(newName)}}, {});
    Apply(edits);
    return static_cast<int>(edits.size());
}

void TooltipEdit::Apply(const std::vector<TextEdit>& edits)
{
    QTextCursor cursor = textCursor(); // to which undoing goes back
    cursor.beginEditBlock();
    std::for_each(edits.rbegin(), edits.rend(), [&](const TextEdit& edit) {
        if (Piece(m_tooltip, edit.Replaced) == edit.Text)
            return;
        cursor.setPosition(static_cast<int>(edit.Replaced.start));
        // The last step is a removal, of a space at least, since text that is typed after an inserted one
        // joins its step to undo.
        cursor.insertText(ToQString(edit.Text) + u' ');
        const auto length = static_cast<int>(edit.Replaced.end - edit.Replaced.start);
        cursor.setPosition(cursor.position() - 1);
        cursor.setPosition(cursor.position() + length + 1, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    });
    cursor.endEditBlock();
}

void TooltipEdit::ReadDocument()
{
    m_tooltip = TextOf(*document());
    m_elements = FindElementRanges(m_tooltip);
    m_faults = FindMarkupFaults(m_tooltip);
    ColourWhatIsVisible();
}

void TooltipEdit::ColourWhatIsVisible()
{
    if (document()->characterCount() != m_tooltip.length() + 1)
        return; // in the middle of a change
    const CorvaneCharRange visible{cursorForPosition({0, 0}).position(),
                                   cursorForPosition({viewport()->width(), viewport()->height()}).position()};
    const QColor background = palette().color(QPalette::Base);
    QList<QTextEdit::ExtraSelection> selections;
    const auto add = [&](CorvaneCharRange range, const QTextCharFormat& format) {
        if (range.end < visible.start || range.start > visible.end)
            return;
        // Where one selection begins at the end of another of its colour, Qt may draw it as if it weren't
        // there.
        const bool goesOn = !selections.empty() && selections.back().format == format &&
                            selections.back().cursor.position() == range.start;
        if (!goesOn) {
            selections.append({QTextCursor(document()), format});
            selections.back().cursor.setPosition(static_cast<int>(range.start));
        }
        selections.back().cursor.setPosition(static_cast<int>(range.end), QTextCursor::KeepAnchor);
    };

    auto element = std::lower_bound(
        m_elements.begin(), m_elements.end(), visible.start,
        [](const ElementRanges& left, std::int64_t start) { return left.Element.end < start; });
    for (; element != m_elements.end() && element->Element.start <= visible.end; ++element) {
        const ElementKind kind = KindOf(m_tooltip, *element);
        const ElementFormats formats = FormatsOf(kind, background);
        add(element->Element, formats.Element);
        if (kind != ElementKind::Sheet && kind != ElementKind::InvalidSheet)
            continue;
        for (const AttributeRanges& attribute : FindAttributeRanges(m_tooltip, element->Content)) {
            if (attribute.NameAndValue &&
                attribute.NameAndValue->Name == Impl::SheetMarkupAttributeNames::Name &&
                attribute.Value.start < attribute.Value.end)
                add(attribute.Value, formats.SheetName);
            for (const auto& [range, field] : attribute.Fields)
                add(range, formats.Field);
        }
    }
    setExtraSelections(selections);
}

void TooltipEdit::keyPressEvent(QKeyEvent* event)
{
    if (event == QKeySequence::InsertLineSeparator) { // U+2028 has no place in a text file
        textCursor().insertBlock();
        ensureCursorVisible();
    } else {
        QPlainTextEdit::keyPressEvent(event);
    }
}

QMimeData* TooltipEdit::createMimeDataFromSelection() const
{
    auto* copied = new QMimeData;
    copied->setText(textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n'));
    return copied;
}

void TooltipEdit::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ColourWhatIsVisible();
}

void TooltipEdit::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    ColourWhatIsVisible();
}

bool TooltipEdit::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QPlainTextEdit::viewportEvent(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    QToolTip::showText(help->globalPos(), FaultsAt(cursorForPosition(help->pos()).position()), viewport());
    return true;
}

} // namespace editor
