#pragma once

#include "TooltipEdit.h"

#include <map>
#include <optional>
#include <set>

namespace editor {

/// The main window: the tooltip, with docks for a sketch, its sheets, the fields to insert, changed sheets
/// and problems. The docks are updated when typing pauses.
class EditorWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// `hostNames` come from the host's data and are offered in addition to those in the tooltip.
    explicit EditorWindow(HostNames hostNames);

    /// Returns false if the file can't be read. The window then has shown a message, and is unchanged.
    bool Open(const QString& path);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeMenus();
    void MakeDocks();
    QDockWidget* AddDock(const QString& title, QWidget* content, const QString& key);

    /// Offers to save changes. Returns false if the user cancels or saving fails.
    bool MayLoseChanges();
    bool Save();
    bool Write(const QString& path);
    void SetText(const QString& text, const QString& path);
    void TakeAsSaved(const QString& path, const QString& text);
    [[nodiscard]] std::optional<QString> TextOnDisk() const; ///< none if unreadable
    void AskAboutNewerFile();

    void UpdateViews();
    void ShowNames();
    [[nodiscard]] QString CurrentSheet() const; ///< in the list; empty if none
    void ShowPlace();
    void Find(bool forwards);
    void GoToSheet();
    void GoToFields();
    void InsertField(const QString& field);
    void RenameSheet();
    QMessageBox::StandardButton Say(const QString& text,
                                    QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                                    QMessageBox::StandardButton usual = QMessageBox::NoButton);

    HostNames m_hostNames;
    QString m_path;
    QString m_lineEnd;
    QString m_textOnDisk;  ///< as last read or written
    QString m_refusedText; ///< a newer one that the user declined to reload
    TString m_savedTooltip;
    std::map<TString, std::set<TString>> m_shownSheets;
    QStringList m_shownFields;
    QTimer m_pause;

    TooltipEdit* m_edit = new TooltipEdit;
    QLineEdit* m_searched = new QLineEdit;
    QTextEdit* m_preview = new QTextEdit;
    QTreeWidget* m_sheets = new QTreeWidget;
    QLineEdit* m_fieldName = new QLineEdit;
    QListWidget* m_fields = new QListWidget;
    QListWidget* m_changes = new QListWidget;
    QListWidget* m_problems = new QListWidget;
    QLabel* m_place = new QLabel;
    QLabel* m_position = new QLabel;
    QMenu* m_view = nullptr;
    QDockWidget* m_previewDock = nullptr;
    QDockWidget* m_fieldsDock = nullptr;
    QDockWidget* m_problemsDock = nullptr;
};

} // namespace editor
