#pragma once

#include "Completion.h"

#include <QtWidgets>

namespace editor {

/// A tooltip's text with line numbers, its elements in colours and its faults underlined; what can stand at
/// the cursor; and edits, each of which is one step to undo.
///
/// The document's text is the tooltip: a position in one is a position in the other.
class TooltipEdit : public QPlainTextEdit
{
    Q_OBJECT

public:
    explicit TooltipEdit(QWidget* parent = nullptr);

    /// The text as it stands. Line ends are U+000A.
    [[nodiscard]] const TString& Tooltip() const { return m_tooltip; }
    [[nodiscard]] const std::vector<ElementRanges>& Elements() const { return m_elements; }
    /// The target sheet of the valid sheet element that holds the selection; empty if there is none.
    [[nodiscard]] QString SheetAtSelection() const;

    /// Finds the faults of the text as it stands.
    void FindFaults();
    /// Those found last. Since then, their ranges have moved with the text.
    [[nodiscard]] const std::vector<MarkupFault>& Faults() const { return m_faults; }
    /// The faults at the position, a sentence each.
    [[nodiscard]] QString FaultsAt(int position) const;
    /// Goes to the next fault or the one before, round the ends of the text.
    void GoToFault(bool forwards);
    void GoTo(std::int64_t position);

    /// Inserts the field into the sheet element at the cursor or selection. Tells why it can't; empty if it
    /// can. A trial inserts nothing.
    QString InsertFilterField(const QString& field, bool isTrial = false);
    /// Tells how many elements were changed.
    int RenameTargetSheet(const QString& from, const QString& to);

    void SetKnownNames(KnownNames names) { m_names = std::move(names); }
    /// Shows what can stand at the cursor.
    void Complete();

protected:
    [[nodiscard]] QMimeData* createMimeDataFromSelection() const override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    /// The element that has both ends of the selection between its brackets, or null.
    [[nodiscard]] const ElementRanges* ElementAtSelection() const;
    void FollowChange(int position, int removed, int added);
    void ReadDocument();
    void ColourWhatIsVisible();
    void MakeRoomForLineNumbers();
    void PaintLineNumbers();
    void Apply(const std::vector<TextEdit>& edits);

    TString m_tooltip;
    std::vector<ElementRanges> m_elements;
    std::vector<MarkupFault> m_faults;
    KnownNames m_names;
    std::vector<Completion> m_completions;
    QStringListModel m_shownCompletions;
    QCompleter m_completer;
    QWidget* m_lineNumbers;
};

} // namespace editor
