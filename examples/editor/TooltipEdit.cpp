#include "TooltipEdit.h"

#include "QtText.h"

#include <corvanemarkup/SheetMarkupConstants.h>

#include <algorithm>
#include <map>

namespace editor {

namespace {

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

TooltipEdit::TooltipEdit(QWidget* parent) : QPlainTextEdit(parent), m_lineNumbers(new QWidget(this))
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    MakeRoomForLineNumbers();
    // For the keyboard; in a sheet element a tab wouldn't separate anyway.
    setTabChangesFocus(true);
    connect(document(), &QTextDocument::contentsChange, this, &TooltipEdit::FollowChange);
    connect(this, &QPlainTextEdit::textChanged, this, &TooltipEdit::ReadDocument);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &TooltipEdit::ColourWhatIsVisible);

    m_lineNumbers->installEventFilter(this);
    connect(this, &QPlainTextEdit::blockCountChanged, this, &TooltipEdit::MakeRoomForLineNumbers);
    connect(this, &QPlainTextEdit::updateRequest, m_lineNumbers, qOverload<>(&QWidget::update));

    m_completer.setModel(&m_shownCompletions);
    m_completer.setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    m_completer.setWidget(this);
    connect(&m_completer, qOverload<const QModelIndex&>(&QCompleter::activated), this,
            [this](const QModelIndex& index) {
                const Completion completion = m_completions[static_cast<std::size_t>(index.row())];
                const bool isAttribute = completion.Shown.endsWith(QStringLiteral("=\"\""));
                Apply({completion.Edit});
                GoTo(completion.Edit.Replaced.start + completion.Edit.Text.length() - (isAttribute ? 1 : 0));
                if (isAttribute)                                         // the value of which comes next
                    QTimer::singleShot(0, this, &TooltipEdit::Complete); // once the popup is gone
            });
}

const ElementRanges* TooltipEdit::ElementAtSelection() const
{
    const QTextCursor cursor = textCursor();
    const auto element =
        std::partition_point(m_elements.begin(), m_elements.end(), [&](const ElementRanges& earlier) {
            return earlier.Content.end < cursor.selectionEnd();
        });
    const bool holds = element != m_elements.end() && element->Element.start < cursor.selectionStart();
    return holds ? &*element : nullptr;
}

QString TooltipEdit::SheetAtSelection() const
{
    const ElementRanges* element = ElementAtSelection();
    return element == nullptr ? QString() : SheetOf(m_tooltip, *element);
}

void TooltipEdit::FindFaults()
{
    m_faults = FindMarkupFaults(m_tooltip);
    ColourWhatIsVisible();
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

void TooltipEdit::GoToFault(bool forwards)
{
    const int position = textCursor().position() + (forwards ? 1 : 0);
    const auto after = std::partition_point(m_faults.begin(), m_faults.end(), [&](const MarkupFault& fault) {
        return fault.Range.start < position;
    });
    const std::size_t index =
        static_cast<std::size_t>(after - m_faults.begin()) + (forwards ? 0 : m_faults.size() - 1);
    if (!m_faults.empty())
        GoTo(m_faults[index % m_faults.size()].Range.start);
}

void TooltipEdit::GoTo(std::int64_t position)
{
    QTextCursor cursor(document());
    cursor.setPosition(static_cast<int>(std::min<std::int64_t>(position, m_tooltip.length())));
    setTextCursor(cursor);
    setFocus();
}

QString TooltipEdit::InsertFilterField(const QString& field, bool isTrial)
{
    const QTextCursor cursor = textCursor();
    const TString name = AsInDocument(field);
    if (!IsFieldName(name))
        return tr("A field of this name can't stand between < and >.");
    const auto insertion = InsertFilterFieldAt(m_tooltip, {cursor.selectionStart(), cursor.selectionEnd()},
                                               name, ToTString(AllFields));
    const ElementRanges* element = ElementAtSelection();
    if (!insertion && (element == nullptr || KindOf(m_tooltip, *element) == ElementKind::Plain))
        return tr("Fields go into a sheet element: put the cursor into one first.");
    if (!insertion)
        return tr("No field can go into this element before its faults are mended. F8 goes to the next.");
    if (!isTrial) {
        Apply({insertion->Edit});
        GoTo(insertion->NewCursorPosition);
    }
    return {};
}

int TooltipEdit::RenameTargetSheet(const QString& from, const QString& to)
{
    const auto edits = RenameSheetsAndFields(m_tooltip, {{ToTString(from), AsInDocument(to)}}, {});
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

void TooltipEdit::Complete()
{
    m_completions = FindCompletions(m_tooltip, textCursor().position(), m_names);
    QStringList shown;
    for (const Completion& completion : m_completions)
        shown.append(completion.Shown);
    m_shownCompletions.setStringList(shown);
    QAbstractItemView* popup = m_completer.popup();
    popup->setVisible(popup->isVisible() && !shown.empty());
    if (shown.empty())
        return;
    QRect place = cursorRect().translated(viewport()->pos());
    const int width = popup->sizeHintForColumn(0) + 2 * popup->verticalScrollBar()->sizeHint().width();
    place.setWidth(std::min(width, this->width()));
    m_completer.complete(place);
    popup->setCurrentIndex(m_completer.completionModel()->index(0, 0));
}

void TooltipEdit::FollowChange(int position, int removed, int added)
{
    const std::int64_t last = document()->characterCount() - 1; // Qt may count the end of the text in
    const auto follow = [=](std::int64_t edge) {
        const bool isAfter = edge >= position + removed;
        return std::min(isAfter ? edge + added - removed : std::min<std::int64_t>(edge, position), last);
    };
    for (MarkupFault& fault : m_faults)
        fault.Range = {follow(fault.Range.start), follow(fault.Range.end)};

    // Wrapping between words takes quadratic time on a long one.
    static const QRegularExpression longWord(QStringLiteral("\\S{1000}"));
    if (position == 0 && added >= document()->characterCount() - 1) // a text set anew
        setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QTextBlock line = document()->findBlock(position);
    for (; line.isValid() && line.position() <= position + added; line = line.next())
        if (line.text().contains(longWord))
            setWordWrapMode(QTextOption::WrapAnywhere);
}

void TooltipEdit::ReadDocument()
{
    m_tooltip = TextOf(*document());
    m_elements = FindElementRanges(m_tooltip);
    ColourWhatIsVisible();
}

namespace {

template <typename Ink>
void ColourAttributes(const std::vector<AttributeRanges>& attributes, Ink ink)
{
    for (const AttributeRanges& attribute : attributes) {
        if (attribute.NameAndValue && attribute.NameAndValue->Name == Impl::SheetMarkupAttributeNames::Name)
            ink(attribute.Value, Violet);
        for (const auto& [range, field] : attribute.Fields)
            ink(range, Blue);
    }
}

/// One selection for all neighbours of one format.
QList<QTextEdit::ExtraSelection> SelectionsOf(QTextDocument* document,
                                              const std::map<int, QTextCharFormat>& stretches, int end)
{
    QList<QTextEdit::ExtraSelection> selections;
    for (auto next = stretches.begin(); next->first != end;) {
        const auto [first, format] = *next;
        while (next->first != end && next->second == format)
            ++next;
        if (format.isEmpty())
            continue;
        selections.append({QTextCursor(document), format});
        selections.back().cursor.setPosition(first);
        selections.back().cursor.setPosition(next->first, QTextCursor::KeepAnchor);
    }
    return selections;
}

} // namespace

void TooltipEdit::ColourWhatIsVisible()
{
    if (document()->characterCount() != m_tooltip.length() + 1)
        return;                                              // in the middle of a change
    const int corner = cursorForPosition({0, 0}).position(); // the last where one reads from the right
    const int opposite = cursorForPosition({viewport()->width(), viewport()->height()}).position();
    const int start = std::min(corner, opposite);
    const int end = std::max(corner, opposite);
    std::map<int, QTextCharFormat> stretches{{start, {}}}; // each goes from its key up to the next
    const auto splitAt = [&](std::int64_t position) {
        const auto at = static_cast<int>(std::clamp<std::int64_t>(position, start, end));
        return stretches.emplace(at, std::prev(stretches.upper_bound(at))->second).first;
    };
    const auto add = [&](CorvaneCharRange range, const QTextCharFormat& format) {
        const auto last = splitAt(range.end);
        for (auto stretch = splitAt(range.start); stretch != last; ++stretch)
            stretch->second.merge(format);
    };
    const auto colour = [&](CorvaneCharRange range, QTextFormat::Property property, const QColor& value) {
        QTextCharFormat format;
        format.setProperty(property, QBrush(value));
        add(range, format);
    };
    const auto ink = [&](CorvaneCharRange range, Hue hue) {
        colour(range, QTextFormat::ForegroundBrush, Ink(palette(), hue));
    };

    auto element =
        std::partition_point(m_elements.begin(), m_elements.end(),
                             [&](const ElementRanges& earlier) { return earlier.Element.end < start; });
    for (; element != m_elements.end() && element->Element.start < end; ++element) {
        const ElementKind kind = KindOf(m_tooltip, *element);
        if (kind == ElementKind::Unfinished)
            continue;
        const bool isPlain = kind == ElementKind::Plain;
        // Between two selections of one ink and no ground, Qt loses a third that is underlined.
        colour(element->Element, QTextFormat::BackgroundBrush,
               isPlain ? palette().base().color()
                       : Tint(palette(), kind == ElementKind::Sheet ? Green : Red));
        if (isPlain)
            ink(element->Element, Blue);
        else
            ColourAttributes(FindAttributeRanges(m_tooltip, element->Content), ink);
    }
    for (const bool isError : {false, true}) { // which shows where both are
        QTextCharFormat format;                // of different shapes, so that no one needs to see colours
        format.setUnderlineColor(QColor::fromHsv(isError ? Red : Amber, 255, 220));
        format.setUnderlineStyle(isError ? QTextCharFormat::SingleUnderline : QTextCharFormat::DashUnderline);
        for (const MarkupFault& fault : m_faults)
            if (fault.IsError == isError && fault.Range.start < end && fault.Range.end > start)
                add(fault.Range, format);
    }

    // Stretches of one format are one selection: between two of them, Qt may lose the second.
    splitAt(end);
    setExtraSelections(SelectionsOf(document(), stretches, end));
}

void TooltipEdit::MakeRoomForLineNumbers()
{
    const int width = fontMetrics().horizontalAdvance(QStringLiteral(" %1 ").arg(blockCount()));
    setViewportMargins(width, 0, 0, 0);
    m_lineNumbers->setGeometry(contentsRect().x(), contentsRect().y(), width, contentsRect().height());
}

void TooltipEdit::PaintLineNumbers()
{
    QPainter painter(m_lineNumbers);
    painter.fillRect(m_lineNumbers->rect(), palette().alternateBase());
    painter.setOpacity(0.6);
    painter.setFont(font());
    for (QTextBlock line = firstVisibleBlock(); line.isValid(); line = line.next()) {
        const QRectF place = blockBoundingGeometry(line).translated(contentOffset());
        if (place.top() > m_lineNumbers->height())
            break;
        painter.drawText(QRectF(0, place.top(), m_lineNumbers->width(), place.height()), Qt::AlignRight,
                         QStringLiteral("%1 ").arg(line.blockNumber() + 1));
    }
}

void TooltipEdit::keyPressEvent(QKeyEvent* event)
{
    QAbstractItemView* popup = m_completer.popup();
    const bool isCompleting = popup->isVisible();
    const bool isChoice = QStringLiteral("\r\n\t").contains(event->text()) && popup->currentIndex().isValid();
    if (isCompleting && (event->key() == Qt::Key_Escape || (isChoice && !event->text().isEmpty())))
        return event->ignore();                       // so that the completer takes it
    if (event == QKeySequence::InsertLineSeparator) { // U+2028 has no place in a text file
        textCursor().insertBlock();
        ensureCursorVisible();
    } else {
        QPlainTextEdit::keyPressEvent(event);
    }
    const bool isBracket = event->text() == QStringLiteral("<");
    if (isCompleting || isBracket)
        Complete();
    if (isBracket) // so that Enter begins a new line
        popup->setCurrentIndex({});
}

bool TooltipEdit::focusNextPrevChild(bool next)
{
    return !m_completer.popup()->isVisible() && QPlainTextEdit::focusNextPrevChild(next);
}

QMimeData* TooltipEdit::createMimeDataFromSelection() const
{
    auto* copied = new QMimeData;
    copied->setText(textCursor().selectedText().replace(QChar::ParagraphSeparator, u'\n'));
    return copied;
}

bool TooltipEdit::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_lineNumbers && event->type() == QEvent::Paint)
        PaintLineNumbers();
    return QPlainTextEdit::eventFilter(watched, event);
}

void TooltipEdit::resizeEvent(QResizeEvent* event)
{
    QPlainTextEdit::resizeEvent(event);
    m_lineNumbers->resize(m_lineNumbers->width(), height());
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
