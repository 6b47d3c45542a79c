#include "EditorWindow.h"

#include <QApplication>
#include <QCommandLineParser>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tooltip-editor"));
    QApplication::setApplicationDisplayName(QStringLiteral("Tooltip Editor"));
    QApplication::setApplicationVersion(QStringLiteral(TOOLTIP_EDITOR_VERSION));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Edits the markup of tooltip templates."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("The tooltip to open, UTF-8 text."),
                                 QStringLiteral("[file]"));
    parser.process(application);

    // The data that this host knows of.
    editor::EditorWindow window({QStringLiteral("Country"), QStringLiteral("Customer Segment"),
                                 QStringLiteral("Product"), QStringLiteral("Quarter"),
                                 QStringLiteral("Region"), QStringLiteral("Sales Channel"),
                                 QStringLiteral("Year")});
    window.show();
    if (!parser.positionalArguments().isEmpty())
        window.Open(parser.positionalArguments().constFirst());
    return QApplication::exec();
}
