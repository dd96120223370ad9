// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/dialog_values.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace dialogValues {

namespace {

constexpr std::array wordModes{
    QLatin1String(QT_TRANSLATE_NOOP("Setting", "Combine text blocks automatically (Good)")),
    QLatin1String(QT_TRANSLATE_NOOP("Setting", "Flow text with text boxes")),
    QLatin1String(QT_TRANSLATE_NOOP("Setting", "Flow text without text boxes")),
    QLatin1String(QT_TRANSLATE_NOOP("Setting", "Continuous text without text boxes")),
    QLatin1String(QT_TRANSLATE_NOOP("Setting", "Exact mode for reconstruction")),
};

constexpr std::array compressions{
    QLatin1String(QT_TRANSLATE_NOOP("Setting", "None compression")),
    QLatin1String(QT_TRANSLATE_NOOP("Setting", "CCITT Group 3 fax encoding 1D")),
    QLatin1String(QT_TRANSLATE_NOOP("Setting", "CCITT Group 3 fax encoding 2D")),
    QLatin1String(QT_TRANSLATE_NOOP("Setting", "CCITT Group 4 fax encoding")),
    QLatin1String(QT_TRANSLATE_NOOP("Setting", "LZW compression")),
    QLatin1String(QT_TRANSLATE_NOOP("Setting", "PackBits compression")),
    QLatin1String(QT_TRANSLATE_NOOP("Setting", "204x98 G3 Class F TIFF")),
    QLatin1String(QT_TRANSLATE_NOOP("Setting", "204x196 G3 Class F TIFF")),
};

/// The list for JPEG is this list without the first row.
constexpr std::array colorDepths{
    QLatin1String(QT_TRANSLATE_NOOP("Setting", "1 Bit")), QLatin1String(QT_TRANSLATE_NOOP("Setting", "8 Bits")),
    QLatin1String(QT_TRANSLATE_NOOP("Setting", "24 Bits"))};

constexpr std::array jpegExtensions{QLatin1String(".jpeg"), QLatin1String(".jpe"), QLatin1String(".jpg")};

constexpr int storedFullColor = 2;

bool isJpeg(const QString &extension)
{
    return std::find(jpegExtensions.begin(), jpegExtensions.end(), extension) != jpegExtensions.end();
}

} // namespace

std::span<const QLatin1String> wordModeTexts()
{
    return wordModes;
}

std::span<const QLatin1String> compressionTexts()
{
    return compressions;
}

std::span<const QLatin1String> colorDepthTexts(const QString &extension)
{
    return std::span(colorDepths).subspan(isJpeg(extension) ? 1 : 0);
}

int fullColorRow(const QString &extension)
{
    return isJpeg(extension) ? 1 : 2;
}

QString pageField(const QString &stored)
{
    const int page = stored.toInt();
    return page < 1 ? QString() : QString::number(page);
}

QString sizeField(const QString &stored)
{
    return stored.toInt() < 1 ? QString() : stored;
}

QString passwordText(const QString &text)
{
    return text.trimmed().isEmpty() ? QString() : text;
}

int wordModeRow(int stored, int count)
{
    return stored >= 0 && stored < count ? stored : 0;
}

int colorDepthRow(const QString &stored, int count)
{
    const int row = stored.toInt();
    // The fallback is not limited to the shorter JPEG list: a stored 2 leaves that list without a selection, on
    // purpose.
    return row >= 0 && row < count ? row : storedFullColor;
}

int compressionRow(const QString &stored, int count)
{
    const int row = stored.toInt();
    // In contrast to the colour depth, a row equal to the count is accepted and selects nothing, on purpose.
    return row >= 0 && row <= count ? row : 0;
}

QString storedPage(const QString &field)
{
    const int page = field.toInt();
    return page > 0 ? QString::number(page) : QString();
}

QString storedSize(const QString &field)
{
    return QString::number(std::max(field.toInt(), 0));
}

QString storedColorDepth(int row, const QString &extension)
{
    return QString::number(isJpeg(extension) ? row + 1 : row);
}

} // namespace dialogValues
