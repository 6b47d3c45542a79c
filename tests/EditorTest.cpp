/// Drives the editor with keys, and checks its text, its docks and its files. In a text, `^` marks the
/// cursor, or each end of the selection.

#include "EditorWindow.h"
#include "QtText.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace editor;

class EditorTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(QStringLiteral("a.tooltip"));
    std::unique_ptr<EditorWindow> m_window;
    TooltipEdit* m_edit = nullptr;
    QString m_asked;

    void Show()
    {
        m_window->show();
        m_window->activateWindow(); // no window manager does so after a dialog
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        m_edit->setFocus();
    }

    void Write(const QByteArray& bytes) const
    {
        QFile file(m_path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    [[nodiscard]] QByteArray Written() const
    {
        QFile file(m_path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "(no file)";
    }

    void Open(QString marked)
    {
        const auto start = std::max(static_cast<int>(marked.indexOf(u'^')), 0);
        const auto end = std::max(static_cast<int>(marked.lastIndexOf(u'^')) - 1, start);
        Write(marked.remove(u'^').toUtf8());
        QVERIFY(m_window->Open(m_path));
        QTextCursor cursor = m_edit->textCursor();
        cursor.setPosition(start);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        m_edit->setTextCursor(cursor);
    }

    [[nodiscard]] QString Text() const { return ToQString(m_edit->Tooltip()); }
    [[nodiscard]] QString Marked() const { return Text().insert(m_edit->textCursor().position(), u'^'); }

    /// Waits for the docks to be updated, and returns their contents: sheets with fields, changed sheets and
    /// problems.
    [[nodiscard]] QString Lists() const
    {
        QTest::qWait(400);
        QString shown;
        const auto* sheets = m_window->findChild<QTreeWidget*>();
        for (QTreeWidgetItemIterator item(const_cast<QTreeWidget*>(sheets)); *item != nullptr; ++item)
            shown += ((*item)->parent() == nullptr ? u'/' : u' ') + (*item)->text(0);
        for (const char* name : {"Changes", "Problems"}) {
            const auto* list =
                m_window->findChild<QDockWidget*>(QLatin1String(name))->findChild<QListWidget*>();
            for (int row = 0; row < list->count(); ++row)
                shown += u'|' + list->item(row)->text();
        }
        return shown;
    }

    /// Sends the key to the popup if there is one, otherwise to the focus.
    template <typename Key>
    static void Press(Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget* popup = QApplication::activePopupWidget();
        QTest::keyClick(popup != nullptr ? popup : QApplication::focusWidget(), key, modifiers);
    }
    static void Type(const char* text)
    {
        for (; *text != '\0'; ++text)
            Press(*text);
    }
    static void Insert(const char* field)
    {
        Press(Qt::Key_3, Qt::ControlModifier);
        Type(field);
        Press(Qt::Key_Return);
    }

    /// Runs `act` on the next dialog.
    template <typename Dialog, typename Act>
    void InNext(Act act)
    {
        QTimer::singleShot(0, this, [act] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog != nullptr);
            act(*dialog);
        });
    }
    void Answer(QMessageBox::StandardButton button)
    {
        m_asked.clear();
        InNext<QMessageBox>([this, button](QMessageBox& box) {
            m_asked = box.text();
            box.button(button)->click();
        });
    }

private slots:
    void init()
    {
        qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8()); // where the window saves its layout
        m_window = std::make_unique<EditorWindow>(
            HostNames{{QStringLiteral("Region"), QStringLiteral("Year")}, {QStringLiteral("Sales")}});
        m_edit = m_window->findChild<TooltipEdit*>();
        Show();
    }

    void DocksFollowTheText()
    {
        QVERIFY(!m_window->isWindowModified());
        Type("a <b> <Sheet name=\"S\" filter=\"<x>,<y>\"> <Sheet name=\"T\" filter=\"\"");
        QVERIFY(Lists().startsWith(QStringLiteral("/S x y|1:41 Error: '<Sheet name=")));
        Type("> <Sheet name=\"U\">");
        QCOMPARE(Lists(), QStringLiteral("/S x y/T (no fields)/U All Fields"));
    }

    void ElementsHaveTheirColours()
    {
        m_edit->setPlainText(
            QStringLiteral("<b> <Sheet name=\"\"\"N\" filter=\"<\"\"x>,<y>\"><Sheet name=\"\"> <c <d> <"));
        m_edit->UpdateDiagnostics();
        QString shown; // each text, the hue of its background or else of its letters, and its underline
        for (const auto& [cursor, format] : m_edit->extraSelections()) {
            const int ground = format.background().color().hslHue();
            const int hue = ground < 0 ? format.foreground().color().hslHue() : ground;
            shown += cursor.selectedText() + QStringLiteral(" %1 %2|").arg(hue).arg(format.underlineStyle());
        }
        QCOMPARE(
            shown,
            QStringLiteral(
                R"(<b> 215 0|<Sheet name=" 130 0|""N 130 0|" filter=" 130 0|<""x> 130 0|, 130 0|<y> 130 0|)"
                R"("> 130 0|<Sheet  0 0|name="" 0 1|> 0 0|<c  -1 2|<d> 215 0|< -1 2|)"));
        const auto hover = [this](int position) {
            QTextCursor cursor(m_edit->document());
            cursor.setPosition(position);
            const QPoint point = m_edit->cursorRect(cursor).center();
            QHelpEvent event(QEvent::ToolTip, point, m_edit->viewport()->mapToGlobal(point));
            QApplication::sendEvent(m_edit->viewport(), &event);
            return QToolTip::text();
        };
        QCOMPARE(hover(10), QString());
        QVERIFY(hover(58).startsWith(QStringLiteral("<p>'&lt;' is not closed before the next ")));

        Open(QStringLiteral("<s^heet name=\"S\">"));
        Type("x"); // plain now, but still underlined
        const QImage image = m_edit->grab().toImage().convertToFormat(QImage::Format_RGB32);
        const auto* pixels = reinterpret_cast<const QRgb*>(image.constBits());
        QVERIFY(std::count(pixels, pixels + image.width() * image.height(),
                           QColor::fromHsv(Red, 255, 220).rgb()) > 10);
    }

    void DiagnosticsAreListedAndVisited()
    {
        Open(QStringLiteral("a\n<Sheet name = \"S\"> x < 5 <b>\n<sheet name=\"T\">^"));
        const QStringList problems = Lists().split(u'|');
        QCOMPARE(problems.size(), 4);
        QVERIFY(problems[1].startsWith(QStringLiteral("2:8 Error: 'name = \"S\"' ")));
        QVERIFY(problems[2].startsWith(QStringLiteral("2:22 Warning: ")));
        const auto next = [this](Qt::KeyboardModifiers modifiers) {
            Press(Qt::Key_F8, modifiers);
            return m_edit->textCursor().position();
        };
        QCOMPARE(next(Qt::NoModifier), 9);
        QCOMPARE(next(Qt::NoModifier), 23);
        QCOMPARE(next(Qt::ShiftModifier), 9);
        QCOMPARE(next(Qt::ShiftModifier), 32);
        m_edit->GoTo(0);
        Type("zz"); // the problems move along
        QCOMPARE(next(Qt::NoModifier), 11);
        Press(Qt::Key_5, Qt::ControlModifier);
        Press(Qt::Key_End);
        Press(Qt::Key_Return);
        QCOMPARE(m_edit->textCursor().position(), 34);
        QVERIFY(m_edit->hasFocus());
    }

    void CompletionsAreInserted()
    {
        const auto row = [this](const char* before, const char* typed, const char* after,
                                const std::vector<Qt::Key>& keys = {Qt::Key_Return}) {
            Open(QString::fromLatin1(before));
            if (*typed != '<')
                Press(Qt::Key_Space, Qt::ControlModifier);
            Type(typed);
            for (const Qt::Key key : keys)
                Press(key);
            QCOMPARE(Marked(), QString::fromLatin1(after));
            QVERIFY(QApplication::activePopupWidget() == nullptr);
        };
        row("a^b", "<re", "a<Region>^b");
        row("a^", "<", "a<Sheet name=\"Sales\">^", {Qt::Key_Up, Qt::Key_Down, Qt::Key_Shift, Qt::Key_Return});
        row("a^", "<", "a<^", {Qt::Key_Escape});
        row("a^", "<", "a<^", {Qt::Key_Tab});
        row("^Region>", "<", "<Region>^");
        row("^", "<Year>", "<Year>\n^");
        row("<Re^gion>", "", "<Region>^");
        row("", "<sh", "<Sheet name=\"Sales\">^");
        row("^", "<", "<\n^");
        row(R"(<Sheet filter="<x>^,<y>">)", "", R"(<Sheet filter="<x>,<Region>^,<y>">)");
        row("<Sheet filter=\"<Region>,<^", "y", "<Sheet filter=\"<Region>,<Year>^");
        row(R"(<Sheet filter="<All>^">)", "", "<Sheet filter=\"<All>\n^\">");
        row(R"(<Sheet name="S"^>)", "", R"(<Sheet name="S" maxwidth="^">)");
        row(R"(<Sheet ^>)", "", R"(<Sheet name="^">)");
        row(R"(<Sheet name="S^x">)", "", R"(<Sheet name="Sales^">)");
        row("<Sheet name=\"^", "s", "<Sheet name=\"Sales\"^");
    }

    void TextIsFound()
    {
        Open(QStringLiteral("one two ONE^"));
        Press(Qt::Key_F, Qt::ControlModifier);
        Type("one");
        Press(Qt::Key_Return);
        QCOMPARE(m_edit->textCursor().selectionEnd(), 3);
        Press(Qt::Key_F3, Qt::ShiftModifier);
        QCOMPARE(m_edit->textCursor().selectionEnd(), 11);
        Type("x");
        Press(Qt::Key_Return);
        QVERIFY(!m_window->statusBar()->currentMessage().isEmpty());
        Press(Qt::Key_Escape);
        QVERIFY(m_edit->hasFocus());
        Press(Qt::Key_F, Qt::ControlModifier);
        m_edit->setFocus();
        Press(Qt::Key_Escape);
        QVERIFY(m_window->statusBar()->findChild<QLineEdit*>()->isHidden());
    }

    void ExternalChangesAreDetected()
    {
        Open(QStringLiteral("old"));
        const auto activate = [this](QMessageBox::StandardButton answer) {
            QEvent event(QEvent::ActivationChange);
            QApplication::sendEvent(m_window.get(), &event);
            Answer(answer);
            QTest::qWait(50);
            QVERIFY2(m_asked.contains(QStringLiteral("changed on disk")), qPrintable(m_asked));
            Show();
        };
        Write("newer");
        activate(QMessageBox::No);
        QCOMPARE(Text(), QStringLiteral("old"));
        Answer(QMessageBox::Cancel);
        Press(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(Written(), "newer");
        Show();
        Write("newest");
        activate(QMessageBox::Yes);
        QCOMPARE(Text(), QStringLiteral("newest"));
    }

    void FieldsAreInsertedAtTheCursor()
    {
        const auto row = [this](const char* before, const char* field, const char* after) {
            Open(QString::fromLatin1(before));
            Insert(field);
            QCOMPARE(Marked(), QString::fromLatin1(after));
            const bool isRefused = !QString::fromLatin1(before).contains(u'"') || *field == 'a';
            QCOMPARE(m_window->statusBar()->currentMessage().isEmpty(), !isRefused);
            QCOMPARE(m_edit->hasFocus(), !isRefused);
        };
        row(R"(a <Sheet name="S" filter="<""x"">,<^y>"> b)", "Year",
            R"(a <Sheet name="S" filter="<""x"">,<Year>"^> b)");
        row(R"(<Sheet filter="<^x>,<y^>,<z>" name="S">)", "Region",
            R"(<Sheet filter="<Region>,<z>"^ name="S">)");
        row(R"(<Sheet name="S" filter="^<x>,<y>^">)", "Year", R"(<Sheet name="S" filter="<Year>"^>)");
        row(R"(<Sheet name="S" filter="<x>,<y>^">)", "All", R"(<Sheet name="S" filter="<All>"^>)");
        row(R"(<She^et name="S">)", "Year", R"(<Sheet name="S" filter="<Year>"^>)");
        row("<b>\n<Sheet name=\"a\nb\" filter=\"<^x>\">", "Year",
            "<b>\n<Sheet name=\"a\nb\" filter=\"<Year>\"^>");
        row("<Re^gion>", "Year", "<Re^gion>");
        row("<Sheet name=^>", "Year", "<Sheet name=^>");
        row(R"(<Sheet name="^S">)", "a>b", R"(<Sheet name="^S">)");
        Press(Qt::Key_Escape);
        Open(QStringLiteral("a^")); // Ctrl+I reports it at once
        Press(Qt::Key_I, Qt::ControlModifier);
        QVERIFY(m_edit->hasFocus() && !m_window->statusBar()->currentMessage().isEmpty());
    }

    void EachEditIsOneUndoStep()
    {
        const auto original =
            QStringLiteral(R"(<Sheet name="S" filter="<x>"> <Sheet  name="T"> <Sheet filter="" name="S">)");
        Open(QString(original).insert(26, u'^'));
        Press(Qt::Key_I, Qt::ControlModifier);
        Type("Year");
        Press(Qt::Key_Return);
        Insert("Year"); // unchanged, hence no step
        Type(" ");
        InNext<QInputDialog>([](QInputDialog& dialog) {
            QCOMPARE(dialog.textValue(), QStringLiteral("S"));
            dialog.setTextValue(QStringLiteral("New \"name\""));
            dialog.accept();
        });
        Press(Qt::Key_F2);
        QCOMPARE(Text(), QStringLiteral(R"(<Sheet name="New ""name""" filter="<Year>" > <Sheet  name="T"> )"
                                        R"(<Sheet filter="" name="New ""name""">)"));
        QCOMPARE(Lists(), QStringLiteral("/New \"name\" Year/T All Fields|S"));
        Show();
        for (const char* step : {R"(<Sheet name="S" filter="<Year>" ^> <Sheet  name="T">)",
                                 R"(<Sheet name="S" filter="<Year>"^> <Sheet  name="T">)",
                                 R"(<Sheet name="S" filter="<x^>"> <Sheet  name="T">)"}) {
            Press(Qt::Key_Z, Qt::ControlModifier);
            QCOMPARE(Marked().section(u' ', 0, -4), QString::fromLatin1(step));
        }
        QVERIFY(!m_window->isWindowModified());
        Press(Qt::Key_Y, Qt::ControlModifier);
        QVERIFY(Text().startsWith(QStringLiteral(R"(<Sheet name="S" filter="<Year>">)")));
    }

    void FilesArePreservedExactly()
    {
        for (const QByteArray& bytes :
             {QByteArrayLiteral(
                  "\xEF\xBB\xBF<b>\r\n\0\t\xC2\xA0\xE2\x80\xA8\xEF\xBF\xBC\xEF\xBF\xBE\xF0\x9F\x98\x80\r\n"),
              QByteArray("a\nb"), QByteArray()}) {
            Write(bytes);
            QVERIFY(m_window->Open(m_path));
            Press(Qt::Key_End, Qt::ControlModifier);
            Type("!");
            Press(Qt::Key_S, Qt::ControlModifier);
            QCOMPARE(Written(), bytes + '!');
        }
        m_edit->setPlainText(QStringLiteral("<a\u00A0b>\n\u2028"));
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_X, Qt::Key_V, Qt::Key_S})
            Press(key, Qt::ControlModifier);
        QCOMPARE(Written(), "<a\xC2\xA0"
                            "b>\n\xE2\x80\xA8");
        const QByteArray saved = Written();
        m_edit->insertPlainText(QString(QChar(0xD800)));
        Answer(QMessageBox::Ok);
        Press(Qt::Key_S, Qt::ControlModifier);
        QVERIFY2(m_asked.contains(QStringLiteral("surrogate")), qPrintable(m_asked));
        QCOMPARE(Written(), saved);
    }

    void UnreadableFilesAreReported()
    {
        Open(QStringLiteral("kept"));
        Write("\xC3");
        for (const QString& path : {m_path, m_folder.path(), m_folder.filePath(QStringLiteral("none"))}) {
            Answer(QMessageBox::Ok);
            QVERIFY(!m_window->Open(path));
            QVERIFY2(m_asked.contains(path + QStringLiteral(": ")), qPrintable(m_asked));
        }
        QCOMPARE(Text(), QStringLiteral("kept"));
        Write("a\rb\nc");
        Answer(QMessageBox::Ok);
        QVERIFY(m_window->Open(m_path));
        QVERIFY2(m_asked.contains(QStringLiteral("line endings")), qPrintable(m_asked));
        QVERIFY(m_window->isWindowModified());
    }

    void UnsavedChangesAreConfirmed()
    {
        Open(QStringLiteral("<Sheet name=\"^S\">"));
        Type("x");
        for (const Qt::Key key : {Qt::Key_N, Qt::Key_O, Qt::Key_Q}) {
            Answer(QMessageBox::Cancel);
            Press(key, Qt::ControlModifier);
            QVERIFY(!m_asked.isEmpty());
            Show();
        }
        QVERIFY(m_window->isVisible());
        QCOMPARE(Written(), "<Sheet name=\"S\">");
        Answer(QMessageBox::Save);
        QVERIFY(m_window->close());
        Show();
        Type("x");
        Answer(QMessageBox::Discard);
        QVERIFY(m_window->close());
        QVERIFY(!m_asked.isEmpty());
        QCOMPARE(Written(), "<Sheet name=\"xS\">");
    }
};

QTEST_MAIN(EditorTest)
#include "EditorTest.moc"
