#include "TooltipFile.h"

#include <QtCore>

#include <stdexcept>

namespace editor {

namespace {

[[noreturn]] void Fail(const char* attempt, const QString& path, const QString& reason)
{
    throw std::runtime_error(QStringLiteral("%1 %2: %3")
                                 .arg(QLatin1String(attempt), QDir::toNativeSeparators(path), reason)
                                 .toStdString());
}

/// Reading a pipe could block, and saving would replace a device by a file.
void ExpectRegularFile(const char* attempt, const QString& path)
{
    const QFileInfo info(path);
    if (info.exists() && !info.isFile())
        Fail(attempt, path, QStringLiteral("it is not a regular file"));
}

} // namespace

QString ReadTooltipFile(const QString& path)
{
    constexpr qint64 sizeLimit = qint64{64} * 1024 * 1024; // what a window can still lay out
    const char* const attempt = "Cannot open";
    ExpectRegularFile(attempt, path);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        Fail(attempt, path, file.errorString());
    const QByteArray bytes = file.read(sizeLimit + 1);
    if (file.error() != QFileDevice::NoError)
        Fail(attempt, path, file.errorString());
    if (bytes.size() > sizeLimit)
        Fail(attempt, path, QStringLiteral("it is larger than 64 MiB"));
    // Stateless: an incomplete sequence at the end is an error.
    QStringDecoder decode(QStringConverter::Utf8,
                          QStringConverter::Flag::Stateless | QStringConverter::Flag::ConvertInitialBom);
    QString text = decode(bytes);
    if (decode.hasError())
        Fail(attempt, path, QStringLiteral("it is not UTF-8 text"));
    return text;
}

void WriteTooltipFile(const QString& path, const QString& text)
{
    const char* const attempt = "Cannot save";
    QStringEncoder encode(QStringConverter::Utf8, QStringConverter::Flag::Stateless);
    const QByteArray bytes = encode(text);
    if (encode.hasError())
        Fail(attempt, path, QStringLiteral("the text contains half a surrogate pair"));
    ExpectRegularFile(attempt, path);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        Fail(attempt, path, file.errorString());
}

} // namespace editor
