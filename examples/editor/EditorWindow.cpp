#include "EditorWindow.h"

#include "Preview.h"
#include "QtText.h"
#include "TooltipFile.h"

#include <corvanemarkup/Version.h>
#include <corvanemarkup/VizInTooltip.h>

#include <algorithm>
#include <stdexcept>

namespace editor {

EditorWindow::EditorWindow(HostNames hostNames) : m_hostNames(std::move(hostNames))
{
    m_edit->setPlaceholderText(tr("Type or paste a tooltip, or open a file."));
    m_edit->setMinimumSize(330, 80); // a narrow window shrinks the docks instead
    m_searched->setPlaceholderText(tr("Find: Enter, F3, Shift+F3"));
    m_searched->setMaximumWidth(200); // leaves room for messages
    m_searched->hide();
    setCentralWidget(m_edit);
    m_place->setTextFormat(Qt::PlainText);
    m_place->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // for long names
    statusBar()->addWidget(m_place, 1);
    statusBar()->addPermanentWidget(m_searched);
    statusBar()->addPermanentWidget(m_position);
    resize(QSize(1100, 720).boundedTo(screen()->availableSize() - QSize(10, 40))); // the frame
    MakeMenus();
    MakeDocks();
    restoreState(QSettings().value(QStringLiteral("docks")).toByteArray());

    m_pause.setSingleShot(true);
    m_pause.setInterval(300);
    connect(&m_pause, &QTimer::timeout, this, &EditorWindow::UpdateViews);
    connect(m_edit, &TooltipEdit::textChanged, &m_pause, qOverload<>(&QTimer::start));
    connect(m_edit, &TooltipEdit::cursorPositionChanged, this, &EditorWindow::ShowPlace);
    connect(m_edit->document(), &QTextDocument::modificationChanged, this, &QWidget::setWindowModified);
    connect(m_searched, &QLineEdit::returnPressed, this, [this] { Find(true); });
    connect(m_sheets, &QTreeWidget::itemActivated, this, &EditorWindow::GoToSheet);
    connect(m_fields, &QListWidget::itemActivated, this,
            [this] { InsertField(m_fields->currentItem()->text()); });
    connect(m_fieldName, &QLineEdit::returnPressed, this, [this] { InsertField(m_fieldName->text()); });
    connect(m_problems, &QListWidget::itemActivated, this, [this] {
        m_edit->GoTo(m_edit->Diagnostics()[static_cast<std::size_t>(m_problems->currentRow())].Range.start);
    });
    SetText({}, {});
}

void EditorWindow::MakeMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&New"), QKeySequence::New, this, [this] {
        if (MayLoseChanges())
            SetText({}, {});
    });
    file->addAction(tr("&Open..."), QKeySequence::Open, this, [this] {
        const QString path = MayLoseChanges() ? QFileDialog::getOpenFileName(this, {}, m_path) : QString();
        if (!path.isEmpty())
            Open(path);
    });
    file->addAction(tr("&Save"), QKeySequence::Save, this, &EditorWindow::Save);
    file->addAction(tr("Save &As..."), QKeySequence(tr("Ctrl+Shift+S")), this,
                    [this] { Write(QFileDialog::getSaveFileName(this, {}, m_path)); });
    file->addAction(tr("&Quit"), QKeySequence(tr("Ctrl+Q")), this, &QWidget::close);

    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    edit->addAction(tr("&Undo"), QKeySequence::Undo, m_edit, &QPlainTextEdit::undo);
    edit->addAction(tr("&Redo"), m_edit, &QPlainTextEdit::redo)
        ->setShortcuts({QKeySequence(tr("Ctrl+Y")), QKeySequence(tr("Ctrl+Shift+Z"))});
    edit->addSeparator();
    edit->addAction(tr("&Complete"), QKeySequence(tr("Ctrl+Space")), m_edit, &TooltipEdit::Complete);
    edit->addAction(tr("&Insert Field"), QKeySequence(tr("Ctrl+I")), this, &EditorWindow::GoToFields);
    edit->addAction(tr("Rename &Sheet..."), QKeySequence(tr("F2")), this, &EditorWindow::RenameSheet);
    edit->addSeparator();
    edit->addAction(tr("&Find..."), QKeySequence::Find, this, [this] {
        m_searched->show();
        m_searched->setFocus();
        m_searched->selectAll();
    });
    edit->addAction(tr("Find &Next"), QKeySequence(tr("F3")), this, [this] { Find(true); });
    edit->addAction(tr("Find &Previous"), QKeySequence(tr("Shift+F3")), this, [this] { Find(false); });
    edit->addAction(tr("Next Pr&oblem"), QKeySequence(tr("F8")), this,
                    [this] { m_edit->GoToDiagnostic(true); });
    edit->addAction(tr("Previous Pro&blem"), QKeySequence(tr("Shift+F8")), this,
                    [this] { m_edit->GoToDiagnostic(false); });

    m_view = menuBar()->addMenu(tr("&View"));
    m_view->addAction(tr("&Text"), QKeySequence(tr("Esc")), this, [this] {
        m_searched->hide();
        m_edit->setFocus();
    });
    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("&Keys"), QKeySequence(tr("F1")), this, [this, edit] {
        QString keys = tr("<\tComplete\nEnter\tIn a list: go there, or insert");
        for (const QAction* action : edit->actions() + m_view->actions())
            if (!action->shortcut().isEmpty())
                keys += u'\n' + action->shortcut().toString() + u'\t' + action->text().remove(u'&');
        Say(keys);
    });
    help->addAction(tr("&About"), this, [this] {
        Say(tr("Tooltip Editor %1\nEdits the markup of tooltip templates, on corvanemarkup %2.")
                .arg(QApplication::applicationVersion(), QString::fromLatin1(GetVersion())));
    });
}

QDockWidget* EditorWindow::AddDock(const QString& title, QWidget* content, const QString& key)
{
    auto* dock = new QDockWidget(title);
    dock->setObjectName(title); // the key of `saveState`
    dock->setWidget(content);
    content->setMinimumSize(60, 40);
    addDockWidget(Qt::RightDockWidgetArea, dock);
    m_view->addAction(title, QKeySequence(key), this, [dock, content] {
        dock->show();
        dock->raise();
        content->setFocus(Qt::ShortcutFocusReason);
    });
    return dock;
}

void EditorWindow::MakeDocks()
{
    auto* fields = new QWidget;
    fields->setFocusProxy(m_fieldName);
    auto* layout = new QVBoxLayout(fields);
    layout->addWidget(m_fieldName);
    layout->addWidget(m_fields);
    m_fieldName->setPlaceholderText(tr("Another field, then Enter"));
    m_sheets->setHeaderHidden(true);
    m_sheets->setUniformRowHeights(true);
    m_sheets->setExpandsOnDoubleClick(false); // which activates the item
    m_changes->setToolTip(tr("Sheets whose filters changed since the file was opened or saved"));
    m_problems->setUniformItemSizes(true);

    m_preview->setReadOnly(true);
    // Showing a scroll bar changes the scale, which could hide it again, and so on.
    m_preview->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_preview->viewport()->installEventFilter(this);

    m_previewDock = AddDock(tr("Preview (sketch)"), m_preview, tr("Ctrl+1"));
    QDockWidget* sheetsDock = AddDock(tr("Sheets"), m_sheets, tr("Ctrl+2"));
    m_fieldsDock = AddDock(tr("Fields"), fields, tr("Ctrl+3"));
    const bool isLow = height() < 500;
    if (isLow)
        tabifyDockWidget(m_previewDock, sheetsDock);
    tabifyDockWidget(sheetsDock, m_fieldsDock);
    QDockWidget* changesDock = AddDock(tr("Changes"), m_changes, tr("Ctrl+4"));
    tabifyDockWidget(sheetsDock, changesDock);
    changesDock->setVisible(!isLow); // or the names on the tabs would be cut off
    m_problemsDock = AddDock(tr("Problems"), m_problems, tr("Ctrl+5"));
    addDockWidget(Qt::BottomDockWidgetArea, m_problemsDock);
    (isLow ? m_previewDock : sheetsDock)->raise();
    resizeDocks({m_previewDock}, {width() * 2 / 5}, Qt::Horizontal);
    resizeDocks({m_problemsDock}, {isLow ? 60 : 110}, Qt::Vertical);
}

bool EditorWindow::Open(const QString& path)
{
    try {
        SetText(ReadTooltipFile(path), path);
        return true;
    } catch (const std::runtime_error& error) {
        Say(QString::fromUtf8(error.what()));
        return false;
    }
}

void EditorWindow::SetText(const QString& text, const QString& path)
{
    m_lineEnd = text.contains(QStringLiteral("\r\n")) ? QStringLiteral("\r\n") : QStringLiteral("\n");
    m_edit->setPlainText(text);
    m_edit->setFocus();
    TakeAsSaved(path, text);
    if (ToQString(m_edit->Tooltip()).replace(u'\n', m_lineEnd) != text) {
        m_edit->document()->setModified();
        Say(tr("This file has line endings of several kinds, or other line separators. "
               "Saving makes them all the same."));
    }
}

bool EditorWindow::MayLoseChanges()
{
    if (!isWindowModified())
        return true;
    const auto answer = Say(tr("Save the changes to this tooltip?"),
                            QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && Save());
}

bool EditorWindow::Save()
{
    if (m_path.isEmpty())
        return Write(QFileDialog::getSaveFileName(this));
    const auto onDisk = TextOnDisk();
    m_refusedText = onDisk.value_or(m_refusedText);
    if (QFileInfo::exists(m_path) && onDisk != m_textOnDisk &&
        Say(tr("%1 was changed on disk after it was opened. Overwrite it?").arg(m_path),
            QMessageBox::Save | QMessageBox::Cancel, QMessageBox::Cancel) != QMessageBox::Save)
        return false;
    return Write(m_path);
}

bool EditorWindow::Write(const QString& path)
{
    if (path.isEmpty())
        return false;
    const QString text = ToQString(m_edit->Tooltip()).replace(u'\n', m_lineEnd);
    try {
        WriteTooltipFile(path, text);
    } catch (const std::runtime_error& error) {
        Say(QString::fromUtf8(error.what()));
        return false;
    }
    TakeAsSaved(path, text);
    return true;
}

void EditorWindow::TakeAsSaved(const QString& path, const QString& text)
{
    m_path = path;
    m_textOnDisk = m_refusedText = text;
    m_savedTooltip = m_edit->Tooltip();
    m_edit->document()->setModified(false);
    setWindowModified(false); // setting an empty text reports a modification, but not its end
    setWindowFilePath(path.isEmpty() ? tr("Untitled") : path);
    UpdateViews();
}

std::optional<QString> EditorWindow::TextOnDisk() const
{
    try {
        return ReadTooltipFile(m_path);
    } catch (const std::runtime_error&) {
        return {};
    }
}

void EditorWindow::AskAboutNewerFile()
{
    if (m_path.isEmpty() || QApplication::activeModalWidget() != nullptr)
        return;
    const auto text = TextOnDisk();
    if (!text || text == m_textOnDisk || text == m_refusedText)
        return;
    m_refusedText = *text;
    const int position = m_edit->textCursor().position();
    if (Say(tr("%1 was changed on disk. Reload it and lose the changes made here?").arg(m_path),
            QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes &&
        Open(m_path))
        m_edit->GoTo(position);
}

void EditorWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        UpdateViews();
    else if (event->type() == QEvent::ActivationChange && isActiveWindow())
        QTimer::singleShot(0, this, &EditorWindow::AskAboutNewerFile); // after this event
}

void EditorWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(MayLoseChanges());
    QSettings().setValue(QStringLiteral("docks"), saveState());
}

bool EditorWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize) // of the preview
        m_pause.start();
    return QMainWindow::eventFilter(watched, event);
}

void EditorWindow::UpdateViews()
{
    m_pause.stop();
    ShowNames();
    const TString& tooltip = m_edit->Tooltip();
    m_changes->clear();
    for (const TString& sheet : CollectSheetsWithDeletedOrModifiedSheetMarkupFilters(m_savedTooltip, tooltip))
        m_changes->addItem(ToQString(sheet));

    m_edit->UpdateDiagnostics();
    QStringList lines;
    for (const Diagnostic& diagnostic : m_edit->Diagnostics()) {
        const auto start = static_cast<int>(diagnostic.Range.start);
        const QTextBlock line = m_edit->document()->findBlock(start);
        const QString place = tr("%1:%2 ").arg(line.blockNumber() + 1).arg(start - line.position() + 1);
        const bool isError = diagnostic.Severity == DiagnosticSeverity::Error;
        lines.append(place + (isError ? tr("Error: ") : tr("Warning: ")) +
                     ToQString(GetDiagnosticMessage(tooltip, diagnostic)));
    }
    m_problems->clear();
    m_problems->addItems(lines);
    m_problemsDock->setWindowTitle(tr("Problems: %L1").arg(lines.size()));
    DrawPreview(*m_preview, tooltip, m_edit->Elements(), m_edit->Diagnostics(), m_shownFields);
    ShowPlace();
}

void EditorWindow::ShowNames()
{
    const TString& tooltip = m_edit->Tooltip();
    auto sheets = GetFilterFieldsByTargetSheetNameFromSheetMarkupInTooltipText(tooltip);
    for (const TString& sheet : GetTargetSheetNamesFromTooltipText(tooltip))
        sheets.try_emplace(sheet); // those without any fields
    if (sheets != m_shownSheets) {
        m_shownSheets = std::move(sheets);
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
    HostNames names = m_hostNames;
    for (const TString& field : GetFilterFieldsFromSheetMarkupInTooltipText(tooltip))
        names.Fields.append(ToQString(field));
    for (const auto& [sheet, fields] : m_shownSheets)
        names.Sheets.append(ToQString(sheet));
    names.Fields.removeAll(AllFields);
    names.Fields.removeDuplicates();
    names.Sheets.removeDuplicates();
    m_edit->SetHostNames(names);
    names.Fields.prepend(AllFields);
    if (names.Fields != m_shownFields) {
        m_shownFields = names.Fields;
        m_fields->clear();
        m_fields->addItems(m_shownFields);
        m_fields->setCurrentRow(0);
    }
}

QString EditorWindow::CurrentSheet() const
{
    const QTreeWidgetItem* item = m_sheets->currentItem();
    return item == nullptr ? QString() : (item->parent() == nullptr ? item : item->parent())->text(0);
}

void EditorWindow::ShowPlace()
{
    const QTextCursor cursor = m_edit->textCursor();
    m_position->setText(tr("Line %1, column %2 | UTF-16 offset %3")
                            .arg(cursor.blockNumber() + 1)
                            .arg(cursor.positionInBlock() + 1)
                            .arg(cursor.position()));
    const QStringList messages = m_edit->MessagesAt(cursor.position());
    const QString sheet = m_edit->SheetAtSelection().simplified();
    m_place->setText(messages.isEmpty() && !sheet.isEmpty() ? tr("Sheet \"%1\"").arg(sheet)
                                                            : messages.join(QStringLiteral(" | ")));
}

void EditorWindow::Find(bool forwards)
{
    const auto direction = forwards ? QTextDocument::FindFlags() : QTextDocument::FindBackward;
    QTextDocument* document = m_edit->document();
    QTextCursor found = document->find(m_searched->text(), m_edit->textCursor(), direction);
    if (found.isNull()) // wrap around
        found = document->find(m_searched->text(), forwards ? 0 : document->characterCount() - 1, direction);
    if (found.isNull())
        statusBar()->showMessage(tr("\"%1\" was not found.").arg(m_searched->text()), 5000);
    else
        m_edit->setTextCursor(found);
}

void EditorWindow::GoToSheet()
{
    const int position = m_edit->textCursor().position();
    std::vector<std::int64_t> starts;
    for (const SheetOrFieldName& name : FindSheetAndFieldNames(m_edit->Tooltip()))
        if (name.Kind == NameKind::Sheet && name.Status == NameStatus::Reachable &&
            ToQString(name.Name) == CurrentSheet())
            starts.push_back(name.Range.start);
    const auto next = std::upper_bound(starts.begin(), starts.end(), position);
    if (!starts.empty())
        m_edit->GoTo(next != starts.end() ? *next : starts.front());
}

void EditorWindow::GoToFields()
{
    const QString reason = m_edit->InsertFilterField(AllFields, true);
    statusBar()->showMessage(reason, 5000);
    if (!reason.isEmpty())
        return;
    m_fieldsDock->show();
    m_fieldsDock->raise();
    m_fields->setFocus(Qt::ShortcutFocusReason);
}

void EditorWindow::InsertField(const QString& field)
{
    const QString reason = m_edit->InsertFilterField(field);
    statusBar()->showMessage(reason, 5000);
    if (reason.isEmpty())
        m_edit->setFocus();
}

void EditorWindow::RenameSheet()
{
    const QString sheet = m_sheets->hasFocus() ? CurrentSheet() : m_edit->SheetAtSelection();
    if (sheet.isEmpty()) {
        statusBar()->showMessage(tr("No sheet to rename. Move the cursor into a valid sheet element."), 5000);
        return;
    }
    const QString newName = QInputDialog::getText(this, {}, tr("New name"), QLineEdit::Normal, sheet);
    if (newName.isEmpty() || newName == sheet)
        return;
    const int count = m_edit->RenameTargetSheet(sheet, newName);
    statusBar()->showMessage(tr("Elements changed: %1").arg(count), 5000);
    UpdateViews();
}

QMessageBox::StandardButton EditorWindow::Say(const QString& text, QMessageBox::StandardButtons buttons,
                                              QMessageBox::StandardButton usual)
{
    QMessageBox box(QMessageBox::NoIcon, {}, text, buttons, this);
    box.setDefaultButton(usual);
    box.setTextFormat(Qt::PlainText); // file names may look like markup
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

} // namespace editor
