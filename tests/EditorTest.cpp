/// The editor as its user meets it: keys go in, and the text, the panel and the file are looked at. In a
/// text, `^` stands for the cursor, or for each end of the selection.

#include "EditorWindow.h"
#include "QtText.h"
#include "TooltipEdit.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDockWidget>
#include <QHelpEvent>
#include <QInputDialog>
#include <QListWidget>
#include <QMessageBox>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>
#include <QTreeWidget>

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
        m_window->activateWindow(); // which no window manager does here once a question is answered
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

    /// What the lists show once they are up to date: sheets and fields, sheets whose filters changed, and
    /// faults.
    [[nodiscard]] QString Lists() const
    {
        QTest::qWait(400);
        QString shown;
        const auto* sheets = m_window->findChild<QTreeWidget*>();
        for (QTreeWidgetItemIterator item(const_cast<QTreeWidget*>(sheets)); *item != nullptr; ++item)
            shown += ((*item)->parent() == nullptr ? u'/' : u' ') + (*item)->text(0);
        for (const QString& list : {QStringLiteral("Changes"), QStringLiteral("Faults")})
            for (const QListWidgetItem* item :
                 m_window->findChild<QDockWidget*>(list)->findChild<QListWidget*>()->findItems(
                     QString(), Qt::MatchContains))
                shown += u'|' + item->text();
        return shown;
    }

    /// Keys go wherever the focus is.
    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    static void Type(const char* text) { QTest::keyClicks(QApplication::focusWidget(), QLatin1String(text)); }
    static void Insert(const char* field)
    {
        Press(Qt::Key_3, Qt::ControlModifier);
        Type(field);
        Press(Qt::Key_Return);
    }

    /// Does something to the dialog that comes next.
    template <typename Dialog, typename Act>
    void InNext(Act act)
    {
        QTimer::singleShot(0, this, [act] {
            QWidget* const modal = QApplication::activeModalWidget();
            auto* dialog = qobject_cast<Dialog*>(modal);
            if (dialog == nullptr && modal != nullptr)
                modal->close();
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
        qputenv("XDG_CONFIG_HOME", m_folder.path().toUtf8()); // where the window's docks are remembered
        m_window = std::make_unique<EditorWindow>(
            KnownNames{{QStringLiteral("Region"), QStringLiteral("Year")}, {QStringLiteral("Sales")}});
        m_edit = m_window->findChild<TooltipEdit*>();
        Show();
    }

    void WhatIsTypedIsToldInTheLists()
    {
        QVERIFY(!m_window->isWindowModified());
        Type("a <b> <Sheet name=\"S\" filter=\"<x>,<y>\"> <Sheet name=\"T\" filter=\"\"");
        QCOMPARE(
            Lists(),
            QStringLiteral("/S x y|1:41  Error: No > ends this element, which hides all that follows it."));
        Type("> <Sheet name=\"U\">");
        QCOMPARE(Lists(), QStringLiteral("/S x y/T (no fields)/U All Fields"));
    }

    void ElementsHaveTheirColours()
    {
        m_edit->setPlainText(
            QStringLiteral("<b> <Sheet name=\"\"\"N\" filter=\"<\"\"x>,<y>\"><Sheet name=\"\"> <c <d> <"));
        m_edit->FindFaults();
        QString shown;
        for (const auto& selection : m_edit->extraSelections()) {
            const QTextCharFormat& format = selection.format;
            const int hue =
                (format.hasProperty(QTextFormat::BackgroundBrush) ? format.background() : format.foreground())
                    .color()
                    .hslHue();
            // the text, the hue of its ground or else of its ink, and the underline
            shown += QStringLiteral("%1 %2 %3|")
                         .arg(selection.cursor.selectedText())
                         .arg(hue)
                         .arg(format.underlineStyle());
        }
        QCOMPARE(
            shown,
            QStringLiteral(R"(<b> 215 0|<Sheet name=" 130 0|""N 130 0|" filter=" 130 0|<""x> 130 0|, 130 0|)"
                           R"(<y> 130 0|"> 130 0|<Sheet  0 0|name="" 0 6|> 0 0|<c  -1 2|<d> 215 0|< -1 2|)"));
        const auto hover = [this](int position) {
            QTextCursor cursor(m_edit->document());
            cursor.setPosition(position);
            const QPoint point = m_edit->cursorRect(cursor).center();
            QHelpEvent event(QEvent::ToolTip, point, m_edit->viewport()->mapToGlobal(point));
            QApplication::sendEvent(m_edit->viewport(), &event);
            return QToolTip::text();
        };
        QCOMPARE(hover(10), QString());
        QCOMPARE(hover(50), QStringLiteral("The name of the sheet is missing."));
    }

    void FieldsGoWhereTheLibrarySays_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("after");
        const auto row = [](const char* name, const char* before, const char* field, const char* after) {
            QTest::newRow(name) << before << field << after;
        };
        row("cursor", R"(a <Sheet name="S" filter="<x>,<^y>"> b)", "Year",
            R"(a <Sheet name="S" filter="<x>,<Year>"^> b)");
        row("selection", R"(<Sheet filter="<^x>,<y^>,<z>" name="S">)", "Region",
            R"(<Sheet filter="<Region>,<z>"^ name="S">)");
        row("exclusive field", R"(<Sheet name="S" filter="<x>,<y>^">)", "All",
            R"(<Sheet name="S" filter="<All>"^>)");
        row("no filter yet", R"(<She^et name="S">)", "Year", R"(<Sheet name="S" filter="<Year>"^>)");
        row("doubled quotes in front", R"(<Sheet name="S" filter="<""x"">,<^y>,<z>">)", "Year",
            R"(<Sheet name="S" filter="<""x"">,<Year>,<z>"^>)");
        row("lines", "<b>\n<Sheet name=\"a\nb\" filter=\"<^x>\">", "Year",
            "<b>\n<Sheet name=\"a\nb\" filter=\"<Year>\"^>");
        for (const char* text :
             {"<Sheet name=\"S\">^", "<Re^gion>", "<Sheet name=^>", "<Sheet name=\"a\n^", "<Sheet tip=\"^\">",
              "<Sheet \"a=\"^\" name=\"b\">", "<^b> <Sheet name=\"^S\">"})
            row(text, text, "Year", nullptr);
        row("brackets", R"(<Sheet name="^S">)", "a>b", nullptr);
    }
    void FieldsGoWhereTheLibrarySays()
    {
        QFETCH(const QString, before);
        QFETCH(const QString, field);
        QFETCH(const QString, after);
        Open(before);
        const QString unchanged = Marked();
        Insert(qPrintable(field));
        QCOMPARE(Marked(), after.isNull() ? unchanged : after);
        QCOMPARE(m_window->statusBar()->currentMessage().isEmpty(), !after.isNull());
        QCOMPARE(m_edit->hasFocus(), !after.isNull());
    }

    void EachEditIsOneStepToUndo()
    {
        const auto original =
            QStringLiteral(R"(<Sheet name="S" filter="<x>"> <Sheet  name="T"> <Sheet filter="" name="S">)");
        Open(QString(original).insert(26, u'^'));
        Press(Qt::Key_I, Qt::ControlModifier);
        Type("Year");
        Press(Qt::Key_Return);
        Insert("Year"); // in its own place, which is no step
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
        QStringList steps;
        for (int i = 0; i < 3; ++i) {
            Press(Qt::Key_Z, Qt::ControlModifier);
            steps.append(Text());
        }
        QCOMPARE(steps[0],
                 QStringLiteral(
                     R"(<Sheet name="S" filter="<Year>" > <Sheet  name="T"> <Sheet filter="" name="S">)"));
        QCOMPARE(steps[1],
                 QString(steps[0]).remove(QStringLiteral("\" >")).insert(30, QStringLiteral("\">")));
        QCOMPARE(Marked(), QString(original).insert(26, u'^'));
        QVERIFY(!m_window->isWindowModified());
        for (int i = 0; i < 2; ++i)
            Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(Text(), steps[0]);
    }

    void FilesKeepTheirTextUnitForUnit()
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
        const QString lone(QChar(0xD800));
        QCOMPARE(ToQString(ToTString(lone)), lone);
        m_edit->insertPlainText(lone);
        Answer(QMessageBox::Ok);
        Press(Qt::Key_S, Qt::ControlModifier);
        QVERIFY2(m_asked.contains(QStringLiteral("surrogate")), qPrintable(m_asked));
        QCOMPARE(Written(), saved);
    }

    void WhatCannotBeReadIsTold()
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
        QVERIFY2(m_asked.contains(QStringLiteral("line ends")), qPrintable(m_asked));
        QVERIFY(m_window->isWindowModified());
    }

    void ClosingAsksBeforeChangesAreLost()
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
        QCOMPARE(Text(), QStringLiteral("<Sheet name=\"xS\">"));
        QCOMPARE(Written(), "<Sheet name=\"S\">");
        Answer(QMessageBox::Save);
        QVERIFY(m_window->close());
        QCOMPARE(Written(), "<Sheet name=\"xS\">");
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
