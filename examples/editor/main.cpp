#include "EditorWindow.h"

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    // Without a display, Qt would print several lines and abort.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext& /*context*/,
                              const QString& /*message*/) {
        if (type != QtFatalMsg)
            return;
        (void)std::fputs("tooltip-editor: cannot open a window; check that a display is available\n", stderr);
        std::_Exit(EXIT_FAILURE);
    });
    const QApplication application(argc, argv);
    qInstallMessageHandler(nullptr);
    QPalette palette; // some dark themes define no legible colour for placeholders
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
        (void)std::fputs("tooltip-editor: too many arguments; pass one file\n", stderr);
        return EXIT_FAILURE;
    }

    // A real host would take these from its data.
    const auto fields = QStringLiteral("Country,Customer Segment,Product,Quarter,Region,Sales Channel,Year");
    const auto sheets = QStringLiteral("Customer Profile,Orders,Region Comparison,Sales Map,Sales by Month");
    editor::EditorWindow window({fields.split(u','), sheets.split(u',')});
    window.show();
    if (!files.isEmpty())
        window.Open(files.constFirst());
    return QApplication::exec();
}
