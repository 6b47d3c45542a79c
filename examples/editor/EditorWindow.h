#pragma once

#include <corvaneplatform/TString.h>

#include <QMainWindow>
#include <QTimer>

#include <map>
#include <set>

class QLabel;
class QLineEdit;
class QListWidget;
class QTreeWidget;

namespace editor {

class TooltipEdit;

/// The tooltip on the left, and on the right what the library tells of it and the fields to insert.
class EditorWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// `fields` are those of the host's data. The list shows them beside those that the tooltip has in its
    /// filters.
    explicit EditorWindow(QStringList fields, QWidget* parent = nullptr);

    /// False if the file can't be read; the user has been told then, and the window is as it was. Asks
    /// nothing.
    bool Open(const QString& path);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void MakeMenus();
    QWidget* MakePanel();

    /// False if the user wants to keep the changes and they can't be saved, or wants to go on.
    bool MayLoseChanges();
    bool Save();
    bool SaveAs();
    bool Write(const QString& path);
    void SetText(const QString& text, const QString& path);
    void TakeAsSaved(const QString& path);

    void UpdatePanel();
    void ShowSheets();
    [[nodiscard]] QString CurrentSheet() const; ///< in the panel; empty if there is none
    void ShowFields();
    void ShowPlace();
    void InsertField(const QString& field);
    void RenameSheet();
    void Warn(const QString& message);

    QStringList m_fields;
    QString m_path;
    QString m_lineEnd = QStringLiteral("\n");
    TString m_savedTooltip;
    std::map<TString, std::set<TString>> m_shownSheets;
    QStringList m_shownFields;
    QTimer m_panelDelay;

    TooltipEdit* m_edit;
    QTreeWidget* m_sheets;
    QListWidget* m_changes;
    QLineEdit* m_fieldName;
    QListWidget* m_fieldList;
    QLabel* m_place;
};

} // namespace editor
