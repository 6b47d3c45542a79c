#include "EditorWindow.h"

#include "QtText.h"
#include "TooltipEdit.h"
#include "TooltipFile.h"
#include "TooltipMarkup.h"

#include <corvanemarkup/VizInTooltip.h>

#include <QAction>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFontDatabase>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QSplitter>
#include <QStatusBar>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <stdexcept>

namespace editor {

using namespace corvanemarkup;

namespace {

/// Adds the widget below its title, whose underlined letter leads to it.
void AddTitled(QBoxLayout* layout, const QString& title, QWidget* widget, int stretch)
{
    auto* label = new QLabel(title);
    label->setBuddy(widget);
    layout->addWidget(label);
    layout->addWidget(widget, stretch);
}

} // namespace

EditorWindow::EditorWindow(QStringList fields, QWidget* parent)
    : QMainWindow(parent), m_fields(std::move(fields)), m_edit(new TooltipEdit), m_sheets(new QTreeWidget),
      m_changes(new QListWidget), m_fieldName(new QLineEdit), m_fieldList(new QListWidget),
      m_place(new QLabel)
{
    m_edit->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_edit->setPlaceholderText(tr("Type or paste a tooltip, or open a file."));
    auto* text = new QWidget;
    AddTitled(new QVBoxLayout(text), tr("&Tooltip"), m_edit, 1);
    auto* splitter = new QSplitter;
    splitter->addWidget(text);
    splitter->addWidget(MakePanel());
    splitter->setStretchFactor(0, 1);
    setCentralWidget(splitter);
    MakeMenus();
    m_place->setTextFormat(Qt::PlainText);
    m_place->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // names may be long
    statusBar()->addWidget(m_place, 1);
    resize(1000, 640);

    m_panelDelay.setSingleShot(true);
    m_panelDelay.setInterval(300);
    connect(&m_panelDelay, &QTimer::timeout, this, &EditorWindow::UpdatePanel);
    connect(m_edit, &TooltipEdit::textChanged, &m_panelDelay, qOverload<>(&QTimer::start));
    connect(m_edit, &TooltipEdit::textChanged, this, &EditorWindow::ShowPlace);
    connect(m_edit, &TooltipEdit::cursorPositionChanged, this, &EditorWindow::ShowPlace);
    connect(m_edit->document(), &QTextDocument::modificationChanged, this, &QWidget::setWindowModified);
    connect(m_sheets, &QTreeWidget::itemActivated, this, &EditorWindow::RenameSheet);
    connect(m_fieldList, &QListWidget::itemActivated, this,
            [this](const QListWidgetItem* item) { InsertField(item->text()); });
    connect(m_fieldName, &QLineEdit::returnPressed, this, [this] { InsertField(m_fieldName->text()); });
    SetText({}, {});
}

QWidget* EditorWindow::MakePanel()
{
    auto* panel = new QWidget;
    auto* layout = new QVBoxLayout(panel);
    m_sheets->setHeaderHidden(true);
    m_sheets->setUniformRowHeights(true);
    m_sheets->setExpandsOnDoubleClick(false); // it renames
    m_fieldList->setUniformItemSizes(true);
    AddTitled(layout, tr("S&heets and their filter fields (F2 renames)"), m_sheets, 3);
    AddTitled(layout, tr("Filters &changed since it was opened or saved"), m_changes, 1);
    AddTitled(layout, tr("F&ield to insert into the filter"), m_fieldName, 0);
    m_fieldName->setPlaceholderText(tr("Another field, then Enter"));
    layout->addWidget(m_fieldList, 2);
    return panel;
}

void EditorWindow::MakeMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&New"), QKeySequence::New, this, [this] {
        if (MayLoseChanges())
            SetText({}, {});
    });
    file->addAction(tr("&Open..."), QKeySequence::Open, this, [this] {
        if (!MayLoseChanges())
            return;
        const QString path = QFileDialog::getOpenFileName(this, {}, m_path);
        if (!path.isEmpty())
            Open(path);
    });
    file->addAction(tr("&Save"), QKeySequence::Save, this, &EditorWindow::Save);
    file->addAction(tr("Save &As..."), QKeySequence(tr("Ctrl+Shift+S")), this, &EditorWindow::SaveAs);
    file->addAction(tr("&Quit"), QKeySequence(tr("Ctrl+Q")), this, &QWidget::close);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    QAction* undo = edit->addAction(tr("&Undo"), QKeySequence::Undo, m_edit, &QPlainTextEdit::undo);
    QAction* redo = edit->addAction(tr("&Redo"), QKeySequence::Redo, m_edit, &QPlainTextEdit::redo);
    for (QAction* action : {undo, redo})
        action->setEnabled(false);
    connect(m_edit, &QPlainTextEdit::undoAvailable, undo, &QAction::setEnabled);
    connect(m_edit, &QPlainTextEdit::redoAvailable, redo, &QAction::setEnabled);
    edit->addSeparator();
    edit->addAction(tr("&Insert Field"), QKeySequence(tr("Ctrl+I")), this,
                    [this] { m_fieldList->setFocus(Qt::ShortcutFocusReason); });
    edit->addAction(tr("Rename &Sheet..."), QKeySequence(tr("F2")), this, &EditorWindow::RenameSheet);
}

bool EditorWindow::Open(const QString& path)
{
    try {
        SetText(ReadTooltipFile(path), path);
        return true;
    } catch (const std::runtime_error& error) {
        Warn(QString::fromUtf8(error.what()));
        return false;
    }
}

void EditorWindow::SetText(const QString& text, const QString& path)
{
    const QString carriageReturnLineFeed = QStringLiteral("\r\n");
    m_lineEnd = text.contains(carriageReturnLineFeed) ? carriageReturnLineFeed : QStringLiteral("\n");
    m_edit->setPlainText(text);
    m_edit->setFocus();
    TakeAsSaved(path);
    if (ToQString(m_edit->Tooltip()).replace(u'\n', m_lineEnd) != text) {
        m_edit->document()->setModified();
        Warn(tr("This file has line ends of several kinds, or characters that count as line ends here. "
                "Saving makes them all the same."));
    }
}

bool EditorWindow::MayLoseChanges()
{
    if (!isWindowModified())
        return true;
    switch (QMessageBox::question(this, {}, tr("Save the changes to this tooltip?"),
                                  QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel)) {
    case QMessageBox::Save:
        return Save();
    case QMessageBox::Discard:
        return true;
    default:
        return false;
    }
}

bool EditorWindow::Save()
{
    return m_path.isEmpty() ? SaveAs() : Write(m_path);
}

bool EditorWindow::SaveAs()
{
    const QString path = QFileDialog::getSaveFileName(this, {}, m_path);
    return !path.isEmpty() && Write(path);
}

bool EditorWindow::Write(const QString& path)
{
    try {
        WriteTooltipFile(path, ToQString(m_edit->Tooltip()).replace(u'\n', m_lineEnd));
    } catch (const std::runtime_error& error) {
        Warn(QString::fromUtf8(error.what()));
        return false;
    }
    TakeAsSaved(path);
    return true;
}

void EditorWindow::TakeAsSaved(const QString& path)
{
    m_path = path;
    m_savedTooltip = m_edit->Tooltip();
    m_edit->document()->setModified(false);
    setWindowModified(false); // an empty text set anew tells that it was modified, and not that it isn't
    setWindowFilePath(path.isEmpty() ? tr("Untitled") : path);
    UpdatePanel();
}

void EditorWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(MayLoseChanges());
}

void EditorWindow::UpdatePanel()
{
    m_panelDelay.stop();
    const TString& tooltip = m_edit->Tooltip();
    auto sheets = VizInTooltip::GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(tooltip);
    for (const TString& sheet : VizInTooltip::GetTargetSheetNamesFromTooltipText(tooltip))
        sheets.try_emplace(sheet); // those whose filters hold no fields
    if (sheets != m_shownSheets) {
        m_shownSheets = std::move(sheets);
        ShowSheets();
    }
    ShowFields();
    m_changes->clear();
    for (const TString& sheet :
         VizInTooltip::CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(m_savedTooltip, tooltip))
        m_changes->addItem(ToQString(sheet));
}

void EditorWindow::ShowSheets()
{
    const QString current = CurrentSheet();
    m_sheets->clear();
    for (const auto& [sheet, fields] : m_shownSheets) {
        auto* item = new QTreeWidgetItem(m_sheets, {ToQString(sheet)});
        for (const TString& field : fields)
            new QTreeWidgetItem(item, {ToQString(field)});
        if (fields.empty())
            new QTreeWidgetItem(item, {tr("(no fields)")});
        if (item->text(0) == current)
            m_sheets->setCurrentItem(item);
    }
    m_sheets->expandAll();
}

QString EditorWindow::CurrentSheet() const
{
    const QTreeWidgetItem* item = m_sheets->currentItem();
    if (item == nullptr)
        return {};
    return (item->parent() == nullptr ? item : item->parent())->text(0);
}

void EditorWindow::ShowFields()
{
    QStringList names = QStringList(QStringLiteral("All")) + m_fields;
    for (const TString& field : VizInTooltip::GetFilterFieldsFromSheetMarkupInTooltipText(m_edit->Tooltip()))
        names.append(ToQString(field));
    names.removeDuplicates();
    if (names == m_shownFields)
        return;
    const QString current = m_shownFields.value(m_fieldList->currentRow());
    m_shownFields = names;
    m_fieldList->clear();
    m_fieldList->addItems(names);
    m_fieldList->setCurrentRow(std::max(static_cast<int>(names.indexOf(current)), 0));
}

void EditorWindow::ShowPlace()
{
    const auto* element = m_edit->ElementAtSelection();
    if (element == nullptr) {
        m_place->setText(tr("Between elements"));
        return;
    }
    const TString sheet = SheetOf(m_edit->Tooltip(), *element);
    const QString faults = m_edit->FaultsAt(m_edit->textCursor().position());
    if (!faults.isEmpty())
        m_place->setText(faults);
    else if (!sheet.empty())
        m_place->setText(tr("Sheet \"%1\"").arg(ToQString(sheet).simplified()));
    else
        m_place->setText(tr("Element"));
}

void EditorWindow::InsertField(const QString& field)
{
    const QString reason = m_edit->InsertFilterField(field);
    if (reason.isEmpty())
        m_edit->setFocus();
    else
        statusBar()->showMessage(reason, 5000);
}

void EditorWindow::RenameSheet()
{
    QString sheet;
    if (m_sheets->hasFocus())
        sheet = CurrentSheet();
    else if (const auto* element = m_edit->ElementAtSelection())
        sheet = ToQString(SheetOf(m_edit->Tooltip(), *element));
    if (sheet.isEmpty()) {
        statusBar()->showMessage(tr("Put the cursor into a valid sheet element first, or pick a sheet."),
                                 5000);
        return;
    }
    const QString newName =
        QInputDialog::getText(this, {}, tr("New name of the sheet"), QLineEdit::Normal, sheet);
    if (newName.isEmpty() || newName == sheet)
        return;
    const int count = m_edit->RenameTargetSheet(sheet, newName);
    statusBar()->showMessage(tr("Elements changed: %1").arg(count), 5000);
    UpdatePanel();
    const auto items = m_sheets->findItems(newName, Qt::MatchFixedString | Qt::MatchCaseSensitive);
    m_sheets->setCurrentItem(items.value(0));
}

void EditorWindow::Warn(const QString& message)
{
    QMessageBox box(QMessageBox::Warning, {}, message, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText); // a file's name may look like markup
    box.exec();
}

} // namespace editor
