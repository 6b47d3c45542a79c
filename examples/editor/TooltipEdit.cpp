#include "TooltipEdit.h"

#include "QtText.h"

#include <corvanemarkup/SheetMarkupConstants.h>
#include <corvanemarkup/VizInTooltip.h>

#include <algorithm>
#include <map>

namespace editor {

namespace {

/// Returns the text with U+000A as line ends. `toPlainText` would replace U+00A0 and U+2028 as well.
TString TextOf(const QTextDocument& document)
{
    return ToTString(document.toRawText().replace(QChar::ParagraphSeparator, u'\n'));
}

/// Returns `name` with the line ends that it would have in a document.
TString AsInDocument(const QString& name)
{
    return TextOf(QTextDocument(name));
}

} // namespace

TooltipEdit::TooltipEdit(QWidget* parent) : QPlainTextEdit(parent), m_lineNumbers(new QWidget(this))
{
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    MakeRoomForLineNumbers();
    // For keyboard navigation. A tab does not separate attributes anyway.
    setTabChangesFocus(true);
    connect(document(), &QTextDocument::contentsChange, this, &TooltipEdit::FollowChange);
    connect(this, &QPlainTextEdit::textChanged, this, &TooltipEdit::ReadDocument);
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, &TooltipEdit::ColourWhatIsVisible);

    m_lineNumbers->installEventFilter(this);
    connect(this, &QPlainTextEdit::blockCountChanged, this, &TooltipEdit::MakeRoomForLineNumbers);
    connect(this, &QPlainTextEdit::updateRequest, m_lineNumbers, qOverload<>(&QWidget::update));

    m_completer.setModel(&m_shownCompletions);
    m_completer.setCompletionMode(QCompleter::UnfilteredPopupCompletion);
    m_completer.setWrapAround(false); // wrapping would pass through a state without a selection
    m_completer.setWidget(this);
    connect(&m_completer, qOverload<const QModelIndex&>(&QCompleter::activated), this,
            [this](const QModelIndex& index) {
                const Completion completion = m_completions[static_cast<std::size_t>(index.row())];
                const bool isAttribute = completion.Shown.endsWith(QStringLiteral("=\"\""));
                Apply({completion.Edit});
                GoTo(completion.Edit.Range.start + completion.Edit.NewText.length() - (isAttribute ? 1 : 0));
                if (isAttribute)                                         // whose value comes next
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
    if (element == nullptr || GetElementKind(m_tooltip, *element) != ElementKind::Sheet)
        return {};
    return ToQString(GetTargetSheetNameFromMarkupText(TextIn(m_tooltip, element->Content)));
}

void TooltipEdit::UpdateDiagnostics()
{
    m_diagnostics = FindDiagnostics(m_tooltip);
    ColourWhatIsVisible();
}

QStringList TooltipEdit::MessagesAt(int position) const
{
    QStringList messages;
    for (const Diagnostic& diagnostic : m_diagnostics)
        if (diagnostic.Range.start <= position && position <= diagnostic.Range.end)
            messages.append(ToQString(GetDiagnosticMessage(m_tooltip, diagnostic)));
    messages.removeDuplicates();
    return messages;
}

void TooltipEdit::GoToDiagnostic(bool forwards)
{
    const int position = textCursor().position() + (forwards ? 1 : 0);
    const auto after =
        std::partition_point(m_diagnostics.begin(), m_diagnostics.end(),
                             [&](const Diagnostic& diagnostic) { return diagnostic.Range.start < position; });
    const std::size_t index =
        static_cast<std::size_t>(after - m_diagnostics.begin()) + (forwards ? 0 : m_diagnostics.size() - 1);
    if (!m_diagnostics.empty())
        GoTo(m_diagnostics[index % m_diagnostics.size()].Range.start);
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
        return tr("\"%1\" is not a valid field name. Enter another one.").arg(field);
    const auto insertion = InsertFilterFieldAt(m_tooltip, {cursor.selectionStart(), cursor.selectionEnd()},
                                               name, ToTString(AllFields));
    const ElementRanges* element = ElementAtSelection();
    if (!insertion && (element == nullptr || GetElementKind(m_tooltip, *element) == ElementKind::Plain))
        return tr("The cursor is not in a sheet element. Move it into one to insert a field.");
    if (!insertion)
        return tr("This element has problems. Fix them before you insert a field; F8 goes to the next one.");
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
    QTextCursor cursor = textCursor(); // undo returns to it
    cursor.beginEditBlock();
    std::for_each(edits.rbegin(), edits.rend(), [&](const TextEdit& edit) {
        if (TextIn(m_tooltip, edit.Range) == edit.NewText)
            return;
        cursor.setPosition(static_cast<int>(edit.Range.start));
        // Qt merges an insertion with text that is typed after it into one undo step. The removal of a space
        // prevents that.
        cursor.insertText(ToQString(edit.NewText) + u' ');
        const auto length = static_cast<int>(edit.Range.end - edit.Range.start);
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
    const std::int64_t last = document()->characterCount() - 1; // `added` may include the end of the text
    const auto follow = [=](std::int64_t edge) {
        const bool isAfter = edge >= position + removed;
        return std::min(isAfter ? edge + added - removed : std::min<std::int64_t>(edge, position), last);
    };
    for (Diagnostic& diagnostic : m_diagnostics)
        diagnostic.Range = {follow(diagnostic.Range.start), follow(diagnostic.Range.end)};

    // Wrapping between words takes quadratic time on a long one.
    static const QRegularExpression longWord(QStringLiteral("\\S{1000}"));
    if (position == 0 && added >= document()->characterCount() - 1) // the whole text was replaced
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

/// Merges adjacent stretches of the same format into one selection. Of two, Qt may lose the second.
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
        return;                                              // a change is in progress
    const int corner = cursorForPosition({0, 0}).position(); // the last position in right-to-left text
    const int opposite = cursorForPosition({viewport()->width(), viewport()->height()}).position();
    const int start = std::min(corner, opposite);
    const int end = std::max(corner, opposite);
    std::map<int, QTextCharFormat> stretches{{start, {}}}; // each extends from its key to the next
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
        if (element->End != ElementEnd::Bracket)
            continue;
        const ElementKind kind = GetElementKind(m_tooltip, *element);
        const bool isPlain = kind == ElementKind::Plain;
        // Qt loses the underline of a selection between two others of its colour without a background.
        colour(element->Element, QTextFormat::BackgroundBrush,
               isPlain ? palette().base().color()
                       : Tint(palette(), kind == ElementKind::Sheet ? Green : Red));
        if (isPlain)
            ink(element->Element, Blue);
        else
            ColourAttributes(FindAttributeRanges(m_tooltip, element->Content), ink);
    }
    for (const auto severity : {DiagnosticSeverity::Warning, DiagnosticSeverity::Error}) {
        const bool isError = severity == DiagnosticSeverity::Error; // drawn last, over warnings
        QTextCharFormat format; // with different shapes, for users who can't distinguish the colours
        format.setUnderlineColor(QColor::fromHsv(isError ? Red : Amber, 255, 220));
        format.setUnderlineStyle(isError ? QTextCharFormat::SingleUnderline : QTextCharFormat::DashUnderline);
        for (const Diagnostic& diagnostic : m_diagnostics)
            if (diagnostic.Severity == severity && diagnostic.Range.start < end &&
                diagnostic.Range.end > start)
                add(diagnostic.Range, format);
    }

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
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isCompleting && (event->key() == Qt::Key_Tab || (isEnter && popup->currentIndex().isValid())))
        return event->ignore();                       // leaves the key to the completer
    if (event == QKeySequence::InsertLineSeparator) { // Qt would insert U+2028
        textCursor().insertBlock();
        ensureCursorVisible();
    } else {
        QPlainTextEdit::keyPressEvent(event);
    }
    if (!event->isAccepted()) // such as Shift, which keeps the list open
        return;
    const ElementRanges* element = ElementAtSelection();
    if (element == nullptr) // nothing to complete
        popup->hide();
    else if (isCompleting || event->text() == QStringLiteral("<"))
        Complete();
    // After a `<` that may be literal, Enter breaks the line.
    if (element != nullptr && element->End != ElementEnd::Bracket &&
        element->Element.start + 1 == textCursor().position())
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

bool TooltipEdit::event(QEvent* event)
{
    const bool isHandled = QPlainTextEdit::event(event);
    // Escape closes the list. If not accepted here, it would trigger a shortcut of the window.
    if (event->type() == QEvent::ShortcutOverride && m_completer.popup()->isVisible() &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape)
        event->accept();
    return isHandled;
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
    const QStringList messages = MessagesAt(cursorForPosition(help->pos()).position());
    // Messages quote markup, which a tooltip would render.
    const auto text = Qt::convertFromPlainText(messages.join(u'\n'), Qt::WhiteSpaceNormal);
    QToolTip::showText(help->globalPos(), messages.empty() ? QString() : text, viewport());
    return true;
}

} // namespace editor
