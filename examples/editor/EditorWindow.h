#pragma once

#include "TooltipEdit.h"

#include <map>
#include <optional>
#include <set>

namespace editor {

/// The tooltip, and around it what the library tells of it: a sketch, the sheets, the fields to insert, what
/// changed, and the faults. All of these follow the text after a pause.
class EditorWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// `hostNames` are those of the host's data. They are offered beside those that the tooltip has.
    explicit EditorWindow(KnownNames hostNames);

    /// False if the file can't be read; the user has been told then, and the window is as it was.
    bool Open(const QString& path);

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeMenus();
    void MakeDocks();
    QDockWidget* AddDock(const QString& title, QWidget* content, const QString& key);

    /// False if the user wants to keep the changes and they can't be saved, or wants to go on.
    bool MayLoseChanges();
    bool Save();
    bool Write(const QString& path);
    void SetText(const QString& text, const QString& path);
    void TakeAsSaved(const QString& path, const QString& text);
    [[nodiscard]] std::optional<QString> TextOnDisk() const; ///< none if it can't be read
    void AskAboutNewerFile();

    void UpdateViews();
    void ShowNames();
    [[nodiscard]] QString CurrentSheet() const; ///< in the list; empty if there is none
    void ShowPlace();
    void Find(bool forwards);
    void GoToSheet();
    void GoToFields();
    void InsertField(const QString& field);
    void RenameSheet();
    QMessageBox::StandardButton Say(const QString& text,
                                    QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                                    QMessageBox::StandardButton usual = QMessageBox::NoButton);

    KnownNames m_hostNames;
    QString m_path;
    QString m_lineEnd;
    QString m_textOnDisk;  ///< as it was read or written last
    QString m_refusedText; ///< a newer one, which the user didn't want to open
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
    QListWidget* m_faults = new QListWidget;
    QLabel* m_place = new QLabel;
    QLabel* m_position = new QLabel;
    QMenu* m_view = nullptr;
    QDockWidget* m_previewDock = nullptr;
    QDockWidget* m_fieldsDock = nullptr;
    QDockWidget* m_faultsDock = nullptr;
};

} // namespace editor
