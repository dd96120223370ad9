// SPDX-License-Identifier: GPL-3.0-or-later
// Runs output naming, the command string and its splitting into arguments on random file and folder names.
#include "fuzz_support.h"

#include "app/output_extensions.h"
#include "conversion/engine_command.h"
#include "conversion/engine_options.h"
#include "settings/engine_settings.h"

#include <QProcess>
#include <QStringList>

namespace {

QString expectedBaseName(const QString &path)
{
    QString name;
    for (const QChar character : path) {
        if (character == QLatin1Char('/')) {
            name.clear();
        } else {
            name += character;
        }
    }
    return name.section(QLatin1Char('.'), 0, 0);
}

/// A token in quotes is one argument; an empty token is none.
void appendArgument(QStringList &arguments, const QString &token)
{
    if (!token.isEmpty()) {
        arguments.append(token);
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argumentCount*/, char *** /*arguments*/)
{
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArrayList texts = fuzz::fields(data, size, 5);
    const QString input = QString::fromUtf8(texts[0]);
    const QString outputFolder = QString::fromUtf8(texts[1]);
    const QString engineFolder = QString::fromUtf8(texts[2]);
    const QString extension = extensionOfIndex(texts[3].size() % 29);
    EngineSettings settings;
    settings.tempName = QString::fromUtf8(texts[4]);

    const QString baseName = baseNameOf(input);
    fuzz::require(baseName == expectedBaseName(input), "the base name ends at the first dot of the file name");
    const QString output = outputPathOf(outputFolder, input, QString(), extension);
    fuzz::require(output == outputFolder + QLatin1Char('/') + baseName + extension, "folder, base name and extension");

    const QString options = optionsForExtension(engineOptions(settings, extension), extension);
    const QString engine = enginePathIn(engineFolder);
    const QStringList arguments = QProcess::splitCommand(engineCommand(engine, options, input, output));
    if ((input + output + engine + settings.tempName).contains(QLatin1Char('"'))) {
        return 0; // nothing is escaped, so the splitting is spoilt, as it must be; it has to end, though
    }

    QStringList expected = {engine};
    expected += QProcess::splitCommand(options);
    expected += QStringLiteral("-call");
    appendArgument(expected, input);
    appendArgument(expected, output);
    fuzz::require(arguments == expected, "the engine, the options, -call, input and output are the arguments");
    const bool xml = extension == QLatin1String(".xml");
    const qsizetype last = expected.lastIndexOf(QLatin1String("-call")) - 1;
    fuzz::require(
        !xml || input == QLatin1String("-call") || output == QLatin1String("-call") ||
            arguments[last] == QLatin1String("-htmlformat"),
        "XML output ends the options with one switch more");
    return 0;
}
