// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/engine_command.h"

#include <QFileInfo>
#include <QLatin1String>

QString enginePathIn(const QString &folder)
{
    return folder + QLatin1String("/Qtminw");
}

QString baseNameOf(const QString &inputPath)
{
    return QFileInfo(inputPath).baseName();
}

QString
outputPathOf(const QString &outputFolder, const QString &inputPath, const QString &suffix, const QString &extension)
{
    return outputFolder + QLatin1Char('/') + baseNameOf(inputPath) + suffix + extension;
}

QString optionsForExtension(const QString &options, const QString &extension)
{
    // The only token without quotes, on purpose.
    return extension == QLatin1String(".xml") ? options + QLatin1String(" -htmlformat") : options;
}

QString
engineCommand(const QString &enginePath, const QString &options, const QString &inputPath, const QString &outputPath)
{
    const QLatin1Char quote('"');
    const QLatin1String between("\" \"");
    return quote + enginePath + QLatin1String("\" ") + options + QLatin1String(" \"-call") + between + inputPath +
           between + outputPath + quote;
}
