// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialog_model.h"

namespace {

const char *const extensionNames[] = {
    ".doc", ".docx", ".rtf", ".ppt", ".pptx", ".xls", ".xlsx", ".txt", ".html", ".htm", ".xml", ".ps",  ".eps", ".tiff",
    ".tif", ".jpeg", ".jpe", ".jpg", ".tga",  "",     ".png",  ".pnm", ".gif",  ".bmp", ".ppm", ".pbm", ".pgm", ".pnm"};

const char *const offered[] = {
    ".doc .rtf",  ".xls", ".pptx",
    ".html .htm", ".xml", ".ps",
    ".eps",       ".txt", ".tiff .tif .jpeg .jpe .jpg .tga .png .gif .bmp .ppm .pbm .pgm .pnm"};

bool isJpeg(const QString &extension)
{
    return extension == QLatin1String(".jpeg") || extension == QLatin1String(".jpe") ||
           extension == QLatin1String(".jpg");
}

QStringList depthsFor(const QString &extension)
{
    QStringList depths{QStringLiteral("1 Bit"), QStringLiteral("8 Bits"), QStringLiteral("24 Bits")};
    if (isJpeg(extension)) {
        depths.removeFirst();
    }
    return depths;
}

QString spacesAsEmpty(const QString &text)
{
    return text.trimmed().isEmpty() ? QString() : text;
}

} // namespace

int DialogModel::number(const QString &text)
{
    const QString digits = text.trimmed();
    qint64 result = 0;
    const bool negative = digits.startsWith(QLatin1Char('-'));
    const int start = negative || digits.startsWith(QLatin1Char('+')) ? 1 : 0;
    if (digits.size() == start) {
        return 0;
    }
    for (int i = start; i < digits.size(); ++i) {
        const int digit = digits.at(i).unicode() - '0';
        if (digit < 0 || digit > 9) {
            return 0;
        }
        result = result * 10 + (negative ? -digit : digit);
        if (result > 2147483647LL || result < -2147483648LL) {
            return 0;
        }
    }
    return int(result);
}

QString DialogModel::value(const char *key, const char *fallback) const
{
    return m_stored.value(QLatin1String(key), QLatin1String(fallback));
}

DialogModel::DialogModel(const Values &stored) : m_stored(stored)
{
    m_kind = value("ListWidgetCurrtentItemRow", "0");
    m_savedKind = number(m_kind);
    if (m_savedKind < 0 || m_savedKind > 8) {
        m_savedKind = 0;
    }
    init();
    load();
    if (m_savedKind == 7) {
        resolutionBoxEnabled = resolutionEnabled = depthEnabled = false;
    }
    if (m_savedKind == 7 || m_savedKind == 4 || m_savedKind == 3) {
        resizeBoxEnabled = sizeEnabled = false;
    }
}

void DialogModel::init()
{
    resize = resolution = multiPage = singleName = sizeEnabled = resolutionEnabled = false;
    firstPage.clear();
    lastPage.clear();
    width.clear();
    height.clear();
    xRes.clear();
    yRes.clear();
    tempName.clear();
    depths = depthsFor(QString());
    depth = 2;
    compression = 0;
    wordMode = 0;
    formats.clear();
    for (int row = 0; row < 9; ++row) {
        if (m_kind == QString::number(row)) {
            formats = QString::fromLatin1(offered[row]).split(QLatin1Char(' '));
        }
    }
    format = formats.isEmpty() ? -1 : 0;
}

void DialogModel::load()
{
    const int index = number(value("ConverterFormat", ""));
    const QString extension = index >= 0 && index < 28 ? QString::fromLatin1(extensionNames[index]) : QString();
    if (extension.isEmpty()) {
        return;
    }
    loaded = true;
    if (!formats.isEmpty()) {
        format = qMax(0, int(formats.indexOf(extension)));
    }
    depths = depthsFor(formatText());
    wordMode = number(value("WordMode", "0"));
    if (wordMode < 0 || wordMode >= 5) {
        wordMode = 0;
    }
    tempName = value("TempName", "");
    singleName = value("AppSignalTempName", "0") == QLatin1String("1");
    const auto page = [this](const char *key) {
        const int stored = number(value(key, "0"));
        return stored < 1 ? QString() : QString::number(stored).left(4);
    };
    firstPage = page("FirstPage");
    lastPage = page("LastPage");
    const auto size = [this](const char *key) {
        const QString stored = value(key, "0");
        return number(stored) < 1 ? QString() : stored.left(4);
    };
    resize = sizeEnabled = value("ResizePage", "0") == QLatin1String("1");
    width = size("Width");
    height = size("Height");
    resolution = resolutionEnabled = value("ResetResolution", "0") == QLatin1String("1");
    xRes = size("XRes");
    yRes = size("YRes");
    depth = number(value("ColorDepth", "2"));
    if (depth < 0 || depth >= depths.size()) {
        depth = depths.size() > 2 ? 2 : -1; // row 2 of a two-row list is no row
    }
    compression = number(value("Compression", "0"));
    if (compression < 0 || compression > 8) {
        compression = 0;
    }
    if (compression == 8) {
        compression = -1;
    }
    multiPage = value("MultiPageTIFF", "0") == QLatin1String("1");
    tiffEnabled = m_kind == QLatin1String("8");
    userPassword = spacesAsEmpty(value("UserPassword", ""));
    masterPassword = spacesAsEmpty(value("MasterPassword", ""));
}

void DialogModel::reset()
{
    m_kind = QString::number(m_savedKind);
    init();
    tiffEnabled = false;
}

void DialogModel::chooseFormat(int index)
{
    if (index == format) {
        return;
    }
    format = index;
    depths = depthsFor(formatText());
    depth = int(depths.size()) - 1;
}

DialogModel::Values DialogModel::stored() const
{
    const auto flag = [](bool on) { return on ? QStringLiteral("1") : QStringLiteral("0"); };
    const auto size = [](const QString &field) { return QString::number(qMax(0, number(field))); };
    const auto page = [](const QString &field) {
        return number(field) > 0 ? QString::number(number(field)) : QStringLiteral("");
    };
    int index = -1;
    for (int i = 27; i >= 0; --i) {
        if (!formatText().isEmpty() && formatText() == QLatin1String(extensionNames[i])) {
            index = i;
        }
    }
    Values values = m_stored;
    const auto put = [&values](const char *key, const QString &text) { values.insert(QLatin1String(key), text); };
    put("ListWidgetCurrtentItemRow", QString::number(m_savedKind));
    put("ConverterFormat", QString::number(index));
    put("WordMode", QString::number(wordMode));
    put("TempName", tempName);
    put("AppSignalTempName", flag(singleName));
    put("FirstPage", page(firstPage));
    put("LastPage", page(lastPage));
    put("ResizePage", flag(resize));
    put("Width", size(width));
    put("Height", size(height));
    put("ResetResolution", flag(resolution));
    put("XRes", size(xRes));
    put("YRes", size(yRes));
    put("ColorDepth", QString::number(depth + (isJpeg(formatText()) ? 1 : 0)));
    put("Compression", QString::number(compression));
    put("MultiPageTIFF", flag(multiPage));
    put("UserPassword", spacesAsEmpty(userPassword));
    put("MasterPassword", spacesAsEmpty(masterPassword));
    return values;
}
