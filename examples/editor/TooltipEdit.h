#pragma once

#include <corvanemarkup/MarkupFaults.h>
#include <corvanemarkup/MarkupRanges.h>
#include <corvanemarkup/TextEdits.h>

#include <QPlainTextEdit>

#include <vector>

namespace editor {

/// A tooltip's text with its elements in colours, and the edits of sheet elements, each of which is one step
/// to undo.
///
/// The document's text is the tooltip: a position in one is a position in the other.
class TooltipEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit TooltipEdit(QWidget* parent = nullptr);

    /// The text as it stands. Line ends are U+000A.
    [[nodiscard]] const TString& Tooltip() const { return m_tooltip; }

    /// The element that has both ends of the selection between its brackets, or null. Valid until the text
    /// changes.
    [[nodiscard]] const corvanemarkup::VizInTooltip::ElementRanges* ElementAtSelection() const;

    /// The faults at the position, a sentence each.
    [[nodiscard]] QString FaultsAt(int position) const;

    /// Inserts the field into the sheet element at the cursor or selection. The exclusive field is "All".
    /// Tells why it can't; empty if it could.
    QString InsertFilterField(const QString& field);

    /// How many elements were changed.
    int RenameTargetSheet(const QString& currentName, const QString& newName);

protected:
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    void ReadDocument();
    void ColourWhatIsVisible();
    void Apply(const std::vector<corvanemarkup::VizInTooltip::TextEdit>& edits);

    TString m_tooltip;
    std::vector<corvanemarkup::VizInTooltip::ElementRanges> m_elements;
    std::vector<corvanemarkup::VizInTooltip::MarkupFault> m_faults;
};

} // namespace editor
