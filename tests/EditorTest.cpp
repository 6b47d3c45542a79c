/// The editor as its user meets it: keys go in, and the text, the panel and the file are looked at. In a
/// text, `^` stands for the cursor, or for each end of the selection.

#include "EditorWindow.h"
#include "QtText.h"
#include "TooltipEdit.h"

#include <QAbstractButton>
#include <QApplication>
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

using namespace Qt::StringLiterals;
using namespace editor;

class EditorTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"a.tooltip"_s);
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

    /// Sheets and fields as the panel shows them once it is up to date, then the sheets whose filters
    /// changed.
    [[nodiscard]] QString Panel() const
    {
        QTest::qWait(400);
        QString shown;
        const auto* sheets = m_window->findChild<QTreeWidget*>();
        for (QTreeWidgetItemIterator item(const_cast<QTreeWidget*>(sheets)); *item != nullptr; ++item)
            shown += ((*item)->parent() == nullptr ? u'/' : u' ') + (*item)->text(0);
        for (const QListWidgetItem* changed :
             m_window->findChild<QListWidget*>()->findItems(QString(), Qt::MatchContains))
            shown += u" changed:"_s + changed->text();
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
        Press(Qt::Key_I, Qt::ControlModifier);
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
        m_window = std::make_unique<EditorWindow>(QStringList{u"Region"_s, u"Year"_s});
        m_edit = m_window->findChild<TooltipEdit*>();
        Show();
    }

    void WhatIsTypedIsToldInThePanel()
    {
        QVERIFY(!m_window->isWindowModified());
        Type("a <b> <Sheet name=\"S\" filter=\"<x>,<y>\"> <Sheet name=\"T\" filter=\"\"");
        QCOMPARE(Panel(), u"/S x y"_s);
        Type("> <Sheet name=\"U\">");
        QCOMPARE(Panel(), u"/S x y/T (no fields)/U All Fields"_s);
    }

    void ElementsHaveTheirColours()
    {
        m_edit->setPlainText(
            u"<b> <Sheet name=\"\"\"N\" filter=\"<\"\"x>,<y>\"><Sheet name=\"\"> <c <d> <"_s);
        QString shown;
        for (const auto& selection : m_edit->extraSelections()) {
            const QTextCharFormat& format = selection.format;
            const int hue =
                (format.hasProperty(QTextFormat::BackgroundBrush) ? format.background() : format.foreground())
                    .color()
                    .hslHue();
            // the text, the hue of its ground or else of its ink, and the underline
            shown +=
                u"%1 %2 %3|"_s.arg(selection.cursor.selectedText()).arg(hue).arg(format.underlineStyle());
        }
        QCOMPARE(shown,
                 uR"(<b> 215 0|<Sheet name="""N" filter="<""x>,<y>"> 130 0|""N 285 0|<""x> 215 0|<y> 215 0|)"
                 R"(<Sheet name=""> 0 6|<c  -1 2|<d> 215 0|< -1 2|)"_s);
        const auto hover = [this](int position) {
            QTextCursor cursor(m_edit->document());
            cursor.setPosition(position);
            const QPoint point = m_edit->cursorRect(cursor).center();
            QHelpEvent event(QEvent::ToolTip, point, m_edit->viewport()->mapToGlobal(point));
            QApplication::sendEvent(m_edit->viewport(), &event);
            return QToolTip::text();
        };
        QCOMPARE(hover(10), QString());
        QCOMPARE(hover(50), u"The name of the sheet is missing."_s);
    }

    void FieldsGoWhereTheLibrarySays()
    {
        const auto insert = [this](const char* before, const char* field, const char* after) {
            const bool isTaken = after != nullptr;
            Open(QString::fromLatin1(before));
            const QString expected = isTaken ? QString::fromLatin1(after) : Marked();
            Insert(field);
            QVERIFY2(Marked() == expected, before);
            QVERIFY2(m_window->statusBar()->currentMessage().isEmpty() == isTaken, before);
            QVERIFY2(m_edit->hasFocus() == isTaken, before);
            m_edit->setFocus();
        };
        insert(R"(a <Sheet name="S" filter="<x>,<^y>"> b)", "Year",
               R"(a <Sheet name="S" filter="<x>,<Year>"^> b)");
        insert(R"(<Sheet filter="<^x>,<y^>,<z>" name="S">)", "Region",
               R"(<Sheet filter="<Region>,<z>"^ name="S">)");
        insert(R"(<Sheet name="S" filter="<x>,<y>^">)", "All", R"(<Sheet name="S" filter="<All>"^>)");
        insert(R"(<She^et name="S">)", "Year", R"(<Sheet name="S" filter="<Year>"^>)");
        insert("<b>\n<Sheet name=\"a\nb\" filter=\"<\"\"x\"\">,<^y>,<z>\">", "Year",
               "<b>\n<Sheet name=\"a\nb\" filter=\"<\"\"x\"\">,<Year>,<z>\"^>");
        for (const char* text :
             {"<Sheet name=\"S\">^", "<Re^gion>", "<Sheet name=^>", "<Sheet name=\"a\n^", "<Sheet tip=\"^\">",
              "<Sheet \"a=\"^\" name=\"b\">", "<^b> <Sheet name=\"^S\">"})
            insert(text, "Year", nullptr);
        insert(R"(<Sheet name="^S">)", "a>b", nullptr);
    }

    void EachEditIsOneStepToUndo()
    {
        const auto original =
            uR"(<Sheet name="S" filter="<x>"> <Sheet  name="T"> <Sheet filter="" name="S">)"_s;
        Open(QString(original).insert(26, u'^'));
        Insert("Year");
        Insert("Year"); // in its own place, which is no step
        Type(" ");
        InNext<QInputDialog>([](QInputDialog& dialog) {
            QCOMPARE(dialog.textValue(), u"S"_s);
            dialog.setTextValue(u"New \"name\""_s);
            dialog.accept();
        });
        Press(Qt::Key_F2);
        QCOMPARE(Text(), uR"(<Sheet name="New ""name""" filter="<Year>" > <Sheet  name="T"> )"
                         R"(<Sheet filter="" name="New ""name""">)"_s);
        QCOMPARE(Panel(), u"/New \"name\" Year/T All Fields changed:S"_s);
        Show();
        QStringList steps;
        for (int i = 0; i < 3; ++i) {
            Press(Qt::Key_Z, Qt::ControlModifier);
            steps.append(Text());
        }
        QCOMPARE(steps[0],
                 uR"(<Sheet name="S" filter="<Year>" > <Sheet  name="T"> <Sheet filter="" name="S">)"_s);
        QCOMPARE(steps[1], QString(steps[0]).remove(u"\" >"_s).insert(30, u"\">"_s));
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
        m_edit->setPlainText(u"<a\u00A0b>\n\u2028"_s);
        for (const Qt::Key key : {Qt::Key_A, Qt::Key_X, Qt::Key_V, Qt::Key_S})
            Press(key, Qt::ControlModifier);
        QCOMPARE(Written(), QByteArray("<a\xC2\xA0") + "b>\n\xE2\x80\xA8");
        const QByteArray saved = Written();
        const QString lone(QChar(0xD800));
        QCOMPARE(ToQString(ToTString(lone)), lone);
        m_edit->insertPlainText(lone);
        Answer(QMessageBox::Ok);
        Press(Qt::Key_S, Qt::ControlModifier);
        QVERIFY2(m_asked.contains(u"surrogate"_s), qPrintable(m_asked));
        QCOMPARE(Written(), saved);
    }

    void WhatCannotBeReadIsTold()
    {
        Open(u"kept"_s);
        Write("\xC3");
        for (const QString& path : {m_path, m_folder.path(), m_folder.filePath(u"none"_s)}) {
            Answer(QMessageBox::Ok);
            QVERIFY(!m_window->Open(path));
            QVERIFY2(m_asked.contains(path + u": "_s), qPrintable(m_asked));
        }
        QCOMPARE(Text(), u"kept"_s);
        Write("a\rb\nc");
        Answer(QMessageBox::Ok);
        QVERIFY(m_window->Open(m_path));
        QVERIFY2(m_asked.contains(u"line ends"_s), qPrintable(m_asked));
        QVERIFY(m_window->isWindowModified());
    }

    void ClosingAsksBeforeChangesAreLost()
    {
        Open(u"<Sheet name=\"^S\">"_s);
        Type("x");
        for (const Qt::Key key : {Qt::Key_N, Qt::Key_O, Qt::Key_Q}) {
            Answer(QMessageBox::Cancel);
            Press(key, Qt::ControlModifier);
            QVERIFY(!m_asked.isEmpty());
            Show();
        }
        QVERIFY(m_window->isVisible());
        QCOMPARE(Text(), u"<Sheet name=\"xS\">"_s);
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
