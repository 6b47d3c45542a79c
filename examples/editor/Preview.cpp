#include "Preview.h"

#include "QtText.h"

#include <corvanemarkup/VizInTooltipProperties.h>

#include <QtWidgets>

#include <algorithm>

namespace editor {

namespace {

/// `element` must be a readable sheet element.
VizInTooltipProperties PropertiesOf(const TString& tooltip, const ElementRanges& element)
{
    return *VizInTooltipProperties::FromMarkupText(MarkupText(TextIn(tooltip, element.Content)));
}

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
                 const std::vector<Diagnostic>& diagnostics, const QStringList& fields)
{
    const int scrolled = sketch.verticalScrollBar()->value();
    sketch.clear();
    if (tooltip.length() > 20'000) {
        sketch.setPlainText(
            QStringLiteral("No preview: the tooltip is longer than 20,000 UTF-16 code units."));
        return;
    }
    int widest = 1;
    for (const ElementRanges& element : elements)
        if (GetElementKind(tooltip, element) == ElementKind::Sheet)
            widest = std::max(widest, PropertiesOf(tooltip, element).GetSheetSize().width);
    const double room = sketch.viewport()->width() - 2 * sketch.document()->documentMargin() - 2;
    const double scale = std::min(0.5, room / widest);

    QTextCursor cursor(sketch.document());
    std::int64_t end = 0;
    for (const ElementRanges& element : elements) {
        cursor.insertText(ToQString(TextIn(tooltip, {end, element.Element.start})), {});
        end = element.Element.end;
        if (GetElementKind(tooltip, element) == ElementKind::Sheet) {
            DrawSheet(sketch, cursor, PropertiesOf(tooltip, element), scale);
            continue;
        }
        const bool isBroken =
            std::any_of(diagnostics.begin(), diagnostics.end(), [&](const Diagnostic& diagnostic) {
                return diagnostic.Element.start == element.Element.start;
            });
        const QString content = ToQString(TextIn(tooltip, element.Content));
        const bool isField = !isBroken && fields.contains(content);
        QTextCharFormat format;
        format.setForeground(Ink(sketch.palette(), isBroken ? Red : Blue));
        if (isField || isBroken)
            format.setBackground(Tint(sketch.palette(), isBroken ? Red : Blue));
        const QChar space(QChar::Nbsp); // keeps a chip on one line
        cursor.insertText(isField ? space + QString(content).replace(u' ', space) + space
                                  : ToQString(TextIn(tooltip, element.Element)),
                          format);
    }
    cursor.insertText(ToQString(TextIn(tooltip, {end, tooltip.length()})), {});
    sketch.verticalScrollBar()->setValue(scrolled);
}

} // namespace editor
