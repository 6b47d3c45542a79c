#include "TooltipEdit.h"

#include "QtText.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>
#include <stdexcept>

namespace editor {

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

const Element* TooltipEdit::ElementAtSelection() const
{
    const QTextCursor cursor = textCursor();
    return ElementAt({cursor.selectionStart(), cursor.selectionEnd()});
}

void TooltipEdit::InsertFilterField(const QString& field)
{
    const Element* element = ElementAtSelection();
    if (element == nullptr)
        throw std::runtime_error("Put the cursor into a sheet element first.");
    const QTextCursor selection = textCursor();
    const Insertion insertion = InsertField(
        m_tooltip, *element, {selection.selectionStart(), selection.selectionEnd()}, AsInDocument(field));
    Apply({insertion.Change});
    QTextCursor cursor(document());
    cursor.setPosition(insertion.Cursor);
    setTextCursor(cursor);
}

int TooltipEdit::RenameTargetSheet(const QString& currentName, const QString& newName)
{
    const auto edits = RenameSheet(m_tooltip, m_elements, ToTString(currentName), AsInDocument(newName));
    Apply(edits);
    return static_cast<int>(edits.size());
}

void TooltipEdit::Apply(const std::vector<Edit>& edits)
{
    QTextCursor cursor = textCursor(); // to which undoing goes back
    cursor.beginEditBlock();
    std::for_each(edits.rbegin(), edits.rend(), [&](const Edit& edit) {
        const int length = edit.Replaced.End - edit.Replaced.Start;
        if (m_tooltip.mid(edit.Replaced.Start, length) == edit.Text)
            return;
        cursor.setPosition(edit.Replaced.Start);
        cursor.insertText(ToQString(edit.Text));
        // The last step is a removal, since text that is typed after an inserted one joins its step to undo.
        cursor.setPosition(cursor.position() + length, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    });
    cursor.endEditBlock();
}

void TooltipEdit::ReadDocument()
{
    m_tooltip = TextOf(*document());
    m_elements = FindElements(m_tooltip);
    ColourWhatIsVisible();
}

void TooltipEdit::ColourWhatIsVisible()
{
    if (document()->characterCount() != m_tooltip.length() + 1)
        return; // in the middle of a change
    const Range visible{cursorForPosition({0, 0}).position(),
                        cursorForPosition({viewport()->width(), viewport()->height()}).position()};
    const QColor background = palette().color(QPalette::Base);
    QList<QTextEdit::ExtraSelection> selections;
    const auto add = [&](Range range, const QTextCharFormat& format) {
        if (range.End < visible.Start || range.Start > visible.End)
            return;
        // Where one selection begins at the end of another of its colour, Qt may draw it as if it weren't
        // there.
        const bool goesOn = !selections.empty() && selections.back().format == format &&
                            selections.back().cursor.position() == range.Start;
        if (!goesOn) {
            selections.append({QTextCursor(document()), format});
            selections.back().cursor.setPosition(range.Start);
        }
        selections.back().cursor.setPosition(range.End, QTextCursor::KeepAnchor);
    };

    auto element = std::lower_bound(m_elements.begin(), m_elements.end(), visible.Start,
                                    [](const Element& left, int start) { return left.Where.End < start; });
    for (; element != m_elements.end() && element->Where.Start <= visible.End; ++element) {
        const ElementDetails details = ReadElement(m_tooltip, *element);
        const ElementFormats formats = FormatsOf(details.Kind, background);
        add(element->Where, formats.Element);
        if (details.SheetNameRange)
            add(*details.SheetNameRange, formats.SheetName);
        for (const Range& field : details.FieldRanges)
            add(field, formats.Field);
    }
    setExtraSelections(selections);
}

const Element* TooltipEdit::ElementAt(Range range) const
{
    const auto endsBefore = [](const Element& element, int position) {
        return element.Where.End < position + (element.HasEnd ? 1 : 0);
    };
    const auto element = std::lower_bound(m_elements.begin(), m_elements.end(), range.End, endsBefore);
    return element != m_elements.end() && element->Where.Start < range.Start ? &*element : nullptr;
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
    const int position = cursorForPosition(help->pos()).position();
    const Element* element = ElementAt({position, position});
    const std::string fault = element == nullptr ? "" : ReadElement(m_tooltip, *element).Fault;
    QToolTip::showText(help->globalPos(), QString::fromStdString(fault), viewport());
    return true;
}

} // namespace editor
