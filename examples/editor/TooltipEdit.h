#pragma once

#include "Completion.h"

#include <QtWidgets>

namespace editor {

/// A text field for a tooltip, with line numbers, coloured elements, underlined diagnostics and completion.
/// Each of its edits is one undo step. Positions in the document are positions in the tooltip.
class TooltipEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit TooltipEdit(QWidget* parent = nullptr);

    /// Returns the current text, with U+000A as line ends.
    [[nodiscard]] const TString& Tooltip() const { return m_tooltip; }
    [[nodiscard]] const std::vector<ElementRanges>& Elements() const { return m_elements; }
    /// Returns the target sheet of the valid sheet element that contains the selection; empty if there is
    /// none.
    [[nodiscard]] QString SheetAtSelection() const;

    void UpdateDiagnostics();
    /// Returns the diagnostics as of the last update. Since then, `Range` has moved with the text, `Element`
    /// has not.
    [[nodiscard]] const std::vector<Diagnostic>& Diagnostics() const { return m_diagnostics; }
    [[nodiscard]] QStringList MessagesAt(int position) const;
    /// Moves the cursor to the next or previous diagnostic, wrapping around.
    void GoToDiagnostic(bool forwards);
    void GoTo(std::int64_t position);

    /// Inserts the field into the sheet element at the cursor or selection. Returns an error message, or an
    /// empty text on success. A trial changes nothing.
    QString InsertFilterField(const QString& field, bool isTrial = false);
    /// Returns the number of changed elements.
    int RenameTargetSheet(const QString& from, const QString& to);

    void SetHostNames(HostNames names) { m_names = std::move(names); }
    /// Opens the list of completions at the cursor, if there are any.
    void Complete();

protected:
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    /// Returns the element with both ends of the selection between its brackets, or null.
    [[nodiscard]] const ElementRanges* ElementAtSelection() const;
    void FollowChange(int position, int removed, int added);
    void ReadDocument();
    void ColourWhatIsVisible();
    void MakeRoomForLineNumbers();
    void PaintLineNumbers();
    void Apply(const std::vector<TextEdit>& edits);

    TString m_tooltip;
    std::vector<ElementRanges> m_elements;
    std::vector<Diagnostic> m_diagnostics;
    HostNames m_names;
    std::vector<Completion> m_completions;
    QStringListModel m_shownCompletions;
    QCompleter m_completer;
    QWidget* m_lineNumbers;
};

} // namespace editor
