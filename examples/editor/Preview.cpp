#include "Preview.h"

#include "QtText.h"

#include <QtWidgets>

#include <algorithm>

namespace editor {

namespace {

void DrawSheet(QTextEdit& sketch, QTextCursor& cursor, const VizInTooltipProperties& sheet, double scale)
{
    const TSize size = sheet.GetSheetSize();
    QTextFrameFormat box;
    box.setBorder(1);
    box.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    box.setBorderBrush(Ink(sketch.palette(), Green));
    box.setBackground(Tint(sketch.palette(), Green));
    box.setWidth(size.width * scale);
    box.setHeight(size.height * scale);
    QStringList fields;
    for (const TString& field : sheet.GetFilterFields())
        fields.append(ToQString(field));
    if (fields.empty())
        fields.append(sheet.HasFilter() ? QStringLiteral("no fields") : QStringLiteral("all fields"));
    const QString percent = QString::number(scale * 100, 'f', 0);
    const QString name = ToQString(sheet.GetSheetName());
    const QString rest = QStringLiteral("\n%1 × %2 (%3 %)\n").arg(size.width).arg(size.height).arg(percent) +
                         fields.join(QStringLiteral(", "));
    const QRect room(0, 0, static_cast<int>(size.width * scale), static_cast<int>(size.height * scale));
    const QRect needed = sketch.fontMetrics().boundingRect(room, Qt::TextWordWrap, name + rest);
    QTextCharFormat format;
    format.setForeground(Ink(sketch.palette(), Violet));
    cursor.insertFrame(room.contains(needed) ? box : QTextFrameFormat());
    cursor.insertText(name, format);
    cursor.insertText(rest, {});
    if (!room.contains(needed)) // above a small box
        cursor.insertFrame(box);
    cursor.movePosition(QTextCursor::End);
}

} // namespace

void DrawPreview(QTextEdit& sketch, const TString& tooltip, const std::vector<ElementRanges>& elements,
                 const std::vector<MarkupFault>& faults, const QStringList& fields)
{
    const int scrolled = sketch.verticalScrollBar()->value();
    sketch.clear();
    if (tooltip.length() > 20'000) {
        sketch.setPlainText(QStringLiteral("A text of more than 20,000 units isn't sketched."));
        return;
    }
    int widest = 1;
    for (const ElementRanges& element : elements)
        if (KindOf(tooltip, element) == ElementKind::Sheet)
            widest = std::max(widest, SheetIn(tooltip, element)->GetSheetSize().width);
    const double room = sketch.viewport()->width() - 2 * sketch.document()->documentMargin() - 2;
    const double scale = std::min(0.5, room / widest);

    QTextCursor cursor(sketch.document());
    std::int64_t end = 0;
    for (const ElementRanges& element : elements) {
        cursor.insertText(ToQString(Piece(tooltip, {end, element.Element.start})), {});
        end = element.Element.end;
        if (KindOf(tooltip, element) == ElementKind::Sheet) {
            DrawSheet(sketch, cursor, *SheetIn(tooltip, element), scale);
            continue;
        }
        const bool isFaulty = std::any_of(faults.begin(), faults.end(), [&](const MarkupFault& fault) {
            return element.Element.start <= fault.Range.start && fault.Range.start < element.Element.end;
        });
        const QString content = ToQString(Piece(tooltip, element.Content));
        const bool isField = !isFaulty && fields.contains(content);
        QTextCharFormat format;
        format.setForeground(Ink(sketch.palette(), isFaulty ? Red : Blue));
        if (isField || isFaulty)
            format.setBackground(Tint(sketch.palette(), isFaulty ? Red : Blue));
        const QChar space(QChar::Nbsp); // so that a chip is one piece
        cursor.insertText(isField ? space + QString(content).replace(u' ', space) + space
                                  : ToQString(Piece(tooltip, element.Element)),
                          format);
    }
    cursor.insertText(ToQString(Piece(tooltip, {end, tooltip.length()})), {});
    sketch.verticalScrollBar()->setValue(scrolled);
}

} // namespace editor
