#include "EditorWindow.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    // Until there is a window, what Qt has to say comes to one line.
    qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*message*/) {
            if (type != QtFatalMsg)
                return;
            (void)std::fputs("tooltip-editor: no window can be shown. Is there a display?\n", stderr);
            std::_Exit(EXIT_FAILURE);
        });
    const QApplication application(argc, argv);
    qInstallMessageHandler(nullptr);
    QPalette palette; // the themes of some desktops have no colour for placeholders on a dark ground
    palette.setColor(QPalette::PlaceholderText, Qt::darkGray);
    QApplication::setPalette(palette);
    QApplication::setOrganizationName(QStringLiteral("corvanemarkup"));
    QApplication::setApplicationName(QStringLiteral("tooltip-editor"));
    QApplication::setApplicationDisplayName(QStringLiteral("Tooltip Editor"));
    QApplication::setApplicationVersion(QStringLiteral(TOOLTIP_EDITOR_VERSION));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Edits the markup of tooltip templates."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("[file]"), QStringLiteral("The tooltip to open, as UTF-8."));
    parser.process(application);
    const QStringList files = parser.positionalArguments();
    if (files.size() > 1) {
        (void)std::fputs("tooltip-editor: only one file can be opened at a time.\n", stderr);
        return EXIT_FAILURE;
    }

    // The data that this host knows of.
    const auto fields = QStringLiteral("Country,Customer Segment,Product,Quarter,Region,Sales Channel,Year");
    const auto sheets = QStringLiteral("Customer Profile,Orders,Region Comparison,Sales Map,Sales by Month");
    editor::EditorWindow window({fields.split(u','), sheets.split(u',')});
    window.show();
    if (!files.isEmpty())
        window.Open(files.constFirst());
    return QApplication::exec();
}
