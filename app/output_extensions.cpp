// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/output_extensions.h"

#include <QLatin1String>

#include <array>

namespace {

/// The indices are stored in users' settings files. 19 is unused and ".pnm" occurs twice, both on purpose.
constexpr std::array extensions{
    QLatin1String(".doc"),  QLatin1String(".docx"), QLatin1String(".rtf"),  QLatin1String(".ppt"),  // 0
    QLatin1String(".pptx"), QLatin1String(".xls"),  QLatin1String(".xlsx"), QLatin1String(".txt"),  // 4
    QLatin1String(".html"), QLatin1String(".htm"),  QLatin1String(".xml"),  QLatin1String(".ps"),   // 8
    QLatin1String(".eps"),  QLatin1String(".tiff"), QLatin1String(".tif"),  QLatin1String(".jpeg"), // 12
    QLatin1String(".jpe"),  QLatin1String(".jpg"),  QLatin1String(".tga"),  QLatin1String(""),      // 16
    QLatin1String(".png"),  QLatin1String(".pnm"),  QLatin1String(".gif"),  QLatin1String(".bmp"),  // 20
    QLatin1String(".ppm"),  QLatin1String(".pbm"),  QLatin1String(".pgm"),  QLatin1String(".pnm"),  // 24
};

} // namespace

QString extensionOfIndex(int index)
{
    const bool known = index >= 0 && index < static_cast<int>(extensions.size());
    return known ? QString(extensions.at(static_cast<std::size_t>(index))) : QString();
}

int indexOfExtension(const QString &extension)
{
    if (extension.isEmpty()) { // not the unused index
        return -1;
    }
    for (std::size_t index = 0; index < extensions.size(); ++index) {
        if (extension == extensions[index]) {
            return static_cast<int>(index);
        }
    }
    return -1;
}
