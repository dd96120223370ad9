// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/engine_options.h"

#include "settings/engine_settings.h"
#include "settings/store.h"

#include <QLatin1String>
#include <QStringList>

#include <array>

namespace {

/// The engine's numbers of the stored word modes; the last three are swapped on purpose.
constexpr std::array engineWordModes{0, 1, 3, 4, 2};

/// The engine's codes of the stored compressions. The two Class F rows send no option, although the engine has codes
/// for them (88882 and 88883), on purpose.
constexpr std::array engineCompressions{
    QLatin1String("1"), QLatin1String("3"),     QLatin1String("88884"), QLatin1String("4"),
    QLatin1String("5"), QLatin1String("32773"), QLatin1String(),        QLatin1String(),
};

constexpr QLatin1String monochrome("-mono");
constexpr QLatin1String grayscale("-gray");

/// Encloses a token in quotes. A quote in the text is not escaped.
QString quoted(const QString &token)
{
    return QLatin1Char('"') + token + QLatin1Char('"');
}

QString option(QLatin1String name, const QString &value)
{
    return quoted(name) + QLatin1Char(' ') + quoted(value);
}

QString optionIf(bool wanted, QLatin1String name)
{
    return wanted ? quoted(name) : QString();
}

QString optionIf(bool wanted, QLatin1String name, const QString &value)
{
    return wanted ? option(name, value) : QString();
}

QString numberOption(bool wanted, QLatin1String name, const QString &stored)
{
    const int number = stored.toInt();
    return optionIf(wanted && number > 0, name, QString::number(number));
}

/// A password that consists of white space is ignored; otherwise surrounding white space is passed on.
QString passwordOption(QLatin1String name, const QString &password)
{
    return optionIf(!password.trimmed().isEmpty(), name, password);
}

/// The three portable bitmap formats have a fixed depth, which overrides the stored one.
QString colorOption(const QString &stored, const QString &extension)
{
    if (extension == QLatin1String(".pbm")) {
        return quoted(monochrome);
    }
    if (extension == QLatin1String(".pgm")) {
        return quoted(grayscale);
    }
    const int depth = stored.toInt();
    if (extension == QLatin1String(".ppm") || depth < 0 || depth > 1) {
        return {};
    }
    return quoted(depth == 0 ? monochrome : grayscale);
}

QString compressionOption(const QString &stored)
{
    const QString code = engineCompression(stored.toInt());
    return optionIf(!code.isEmpty(), QLatin1String("-compress"), code);
}

bool isTiff(const QString &extension)
{
    return extension == QLatin1String(".tif") || extension == QLatin1String(".tiff");
}

bool isWordProcessor(const QString &extension)
{
    return extension == QLatin1String(".doc") || extension == QLatin1String(".docx") ||
           extension == QLatin1String(".rtf");
}

} // namespace

int engineWordMode(int stored)
{
    const bool known = stored >= 0 && stored < static_cast<int>(engineWordModes.size());
    return known ? engineWordModes.at(static_cast<std::size_t>(stored)) : 0;
}

QString engineCompression(int stored)
{
    const bool known = stored >= 0 && stored < static_cast<int>(engineCompressions.size());
    return known ? QString(engineCompressions.at(static_cast<std::size_t>(stored))) : QString();
}

QString engineOptions(const EngineSettings &settings, const QString &extension)
{
    const bool resized = store::isOn(settings.resizePage);
    const bool resampled = store::isOn(settings.resetResolution);
    const bool multiPage = isTiff(extension) && store::isOn(settings.multiPageTiff);
    const QStringList fragments{
        optionIf(!settings.tempName.isEmpty(), QLatin1String("-tempname"), settings.tempName),
        optionIf(store::isOn(settings.singleTempName), QLatin1String("-tempname1")),
        numberOption(true, QLatin1String("-f"), settings.firstPage),
        numberOption(true, QLatin1String("-l"), settings.lastPage),
        numberOption(resized, QLatin1String("-width"), settings.width),
        numberOption(resized, QLatin1String("-height"), settings.height),
        numberOption(resampled, QLatin1String("-xres"), settings.xRes),
        numberOption(resampled, QLatin1String("-yres"), settings.yRes),
        colorOption(settings.colorDepth, extension),
        isTiff(extension) ? compressionOption(settings.compression) : QString(),
        optionIf(multiPage, QLatin1String("-multipage")),
        optionIf(
            isWordProcessor(extension), QLatin1String("-wordmode"), QString::number(engineWordMode(settings.wordMode))),
        passwordOption(QLatin1String("-upw"), settings.userPassword),
        passwordOption(QLatin1String("-opw"), settings.masterPassword),
    };
    return fragments.join(QLatin1Char(' '));
}
