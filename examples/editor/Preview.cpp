#include "Preview.h"

#include "QtText.h"

#include <QtWidgets>

#include <algorithm>

namespace editor {

namespace {

void DrawSheet(QTextCursor& cursor, const VizInTooltipProperties& sheet, double scale,
               const QPalette& palette)
{
    const TSize size = sheet.GetSheetSize();
    QTextFrameFormat box;
    box.setBorder(1);
    box.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    box.setBorderBrush(Ink(palette, Green));
    box.setBackground(Tint(palette, Green));
    box.setWidth(size.width * scale);
    box.setHeight(size.height * scale);
    cursor.insertFrame(box);
    QTextCharFormat format;
    format.setForeground(Ink(palette, Violet));
    cursor.insertText(ToQString(sheet.GetSheetName()), format);
    QStringList fields;
    for (const TString& field : sheet.GetFilterFields())
        fields.append(ToQString(field));
    if (fields.empty())
        fields.append(sheet.HasFilter() ? QStringLiteral("no fields") : QStringLiteral("all fields"));
    const QString percent = QString::number(scale * 100, 'f', 0);
    const auto room = QStringLiteral("\n%1 × %2 (%3 %)\n").arg(size.width).arg(size.height).arg(percent);
    cursor.insertText(room + fields.join(QStringLiteral(", ")), {});
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
            DrawSheet(cursor, *SheetIn(tooltip, element), scale, sketch.palette());
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
