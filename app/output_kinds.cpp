// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/output_kinds.h"

#include <QCoreApplication>

#include <array>

namespace {

using Extension = QLatin1String;

constexpr std::array wordExtensions{Extension(".doc"), Extension(".rtf")};
constexpr std::array excelExtensions{Extension(".xls")};
constexpr std::array powerPointExtensions{Extension(".pptx")};
constexpr std::array htmlExtensions{Extension(".html"), Extension(".htm")};
constexpr std::array xmlExtensions{Extension(".xml")};
constexpr std::array postScriptExtensions{Extension(".ps")};
constexpr std::array epsExtensions{Extension(".eps")};
constexpr std::array textExtensions{Extension(".txt")};
constexpr std::array imageExtensions{
    Extension(".tiff"), Extension(".tif"), Extension(".jpeg"), Extension(".jpe"), Extension(".jpg"),
    Extension(".tga"),  Extension(".png"), Extension(".gif"),  Extension(".bmp"), Extension(".ppm"),
    Extension(".pbm"),  Extension(".pgm"), Extension(".pnm"),
};

/// Word and Excel default to the old formats, PowerPoint to the new one, on purpose.
constexpr std::array kinds{
    OutputKind{
        .text = QLatin1String(QT_TRANSLATE_NOOP("tovrane", "PDF to Word")),
        .defaultExtension = Extension(".doc"),
        .offeredExtensions = wordExtensions,
        .hasWordMode = true,
    },
    OutputKind{
        .text = QLatin1String(QT_TRANSLATE_NOOP("tovrane", "PDF to Excel")),
        .defaultExtension = Extension(".xls"),
        .offeredExtensions = excelExtensions,
    },
    OutputKind{
        .text = QLatin1String(QT_TRANSLATE_NOOP("tovrane", "PDF to PPT")),
        .defaultExtension = Extension(".pptx"),
        .offeredExtensions = powerPointExtensions,
    },
    OutputKind{
        .text = QLatin1String(QT_TRANSLATE_NOOP("tovrane", "PDF to HTML")),
        .defaultExtension = Extension(".html"),
        .offeredExtensions = htmlExtensions,
        .disabled = DisabledControls::PageSize,
    },
    OutputKind{
        .text = QLatin1String(QT_TRANSLATE_NOOP("tovrane", "PDF to XML")),
        .defaultExtension = Extension(".xml"),
        .offeredExtensions = xmlExtensions,
        .disabled = DisabledControls::PageSize,
    },
    OutputKind{
        .text = QLatin1String(QT_TRANSLATE_NOOP("tovrane", "PDF to PostScript")),
        .defaultExtension = Extension(".ps"),
        .offeredExtensions = postScriptExtensions,
    },
    OutputKind{
        .text = QLatin1String(QT_TRANSLATE_NOOP("tovrane", "PDF to EPS")),
        .defaultExtension = Extension(".eps"),
        .offeredExtensions = epsExtensions,
    },
    OutputKind{
        .text = QLatin1String(QT_TRANSLATE_NOOP("tovrane", "PDF to Text")),
        .defaultExtension = Extension(".txt"),
        .offeredExtensions = textExtensions,
        .disabled = DisabledControls::PageSizeResolutionAndColor,
    },
    OutputKind{
        .text = QLatin1String(QT_TRANSLATE_NOOP("tovrane", "PDF to Image")),
        .defaultExtension = Extension(".tiff"),
        .offeredExtensions = imageExtensions,
        .hasImageTab = true,
    },
};

bool hasRow(int row)
{
    return row >= 0 && row < static_cast<int>(kinds.size());
}

} // namespace

std::span<const OutputKind> outputKinds()
{
    return kinds;
}

const OutputKind *outputKindOfStoredRow(const QString &row)
{
    const int number = row.toInt();
    // Only the canonical text of the number is valid, so that "abc" is not row 0.
    const bool known = hasRow(number) && row == QString::number(number);
    return known ? &kinds.at(static_cast<std::size_t>(number)) : nullptr;
}

QString defaultExtensionOfRow(int row)
{
    return kinds.at(hasRow(row) ? static_cast<std::size_t>(row) : 0).defaultExtension;
}

int selectableRow(int saved)
{
    return hasRow(saved) ? saved : 0;
}
