// SPDX-License-Identifier: GPL-3.0-or-later
#include "option_model.h"

#include "random_source.h"

#include <QRegularExpression>
#include <QStringList>

namespace {

/// A decimal integer within range; 0 for everything else. Surrounding white space is ignored.
int whole(const QString &text)
{
    static const QRegularExpression number(QStringLiteral("\\A\\s*([+-]?)0*([0-9]{1,10})\\s*\\z"));
    const QRegularExpressionMatch match = number.match(text);
    if (!match.hasMatch()) {
        return 0;
    }
    qint64 value = 0;
    const QString digits = match.captured(2);
    for (const QChar digit : digits) {
        value = value * 10 + (digit.unicode() - '0');
    }
    if (match.captured(1) == QStringLiteral("-")) {
        value = -value;
    }
    return value > 2147483647 || value < -2147483648LL ? 0 : static_cast<int>(value);
}

QString one(const char *name)
{
    return QStringLiteral("\"%1\"").arg(QString::fromLatin1(name));
}

QString two(const char *name, const QString &value)
{
    return one(name) + QStringLiteral(" \"") + value + QStringLiteral("\"");
}

QString positive(const char *name, int value)
{
    return value >= 1 ? two(name, QString::number(value)) : QString();
}

bool onlySpaces(const QString &text)
{
    for (const QChar c : text) {
        if (!c.isSpace()) {
            return false;
        }
    }
    return true;
}

QString compression(int row)
{
    switch (row) {
    case 0:
        return two("-compress", QStringLiteral("1"));
    case 1:
        return two("-compress", QStringLiteral("3"));
    case 2:
        return two("-compress", QStringLiteral("88884"));
    case 3:
        return two("-compress", QStringLiteral("4"));
    case 4:
        return two("-compress", QStringLiteral("5"));
    case 5:
        return two("-compress", QStringLiteral("32773"));
    default:
        return {};
    }
}

QString wordMode(int row)
{
    switch (row) {
    case 1:
        return QStringLiteral("1");
    case 2:
        return QStringLiteral("3");
    case 3:
        return QStringLiteral("4");
    case 4:
        return QStringLiteral("2");
    default:
        return QStringLiteral("0");
    }
}

} // namespace

StoredTexts randomStoredTexts(RandomSource &random)
{
    static const QStringList keys =
        QStringLiteral("WordMode TempName AppSignalTempName FirstPage LastPage ListWidgetCurrtentItemRow ResizePage "
                       "Width Height ResetResolution XRes YRes ColorDepth Compression MultiPageTIFF UserPassword "
                       "MasterPassword")
            .split(QLatin1Char(' '));
    StoredTexts stored;
    for (const QString &key : keys) {
        switch (random.below(6)) {
        case 0:
            break;
        case 1:
            stored.insert(key, QString::number(random.below(13) - 3));
            break;
        case 2:
            stored.insert(key, QStringLiteral("1"));
            break;
        case 3:
            stored.insert(key, QString::number(random.below(2000)));
            break;
        case 4:
            stored.insert(key, QStringLiteral("00%1").arg(random.below(100)));
            break;
        default:
            stored.insert(key, random.text(8));
            break;
        }
    }
    return stored;
}

QString modelOptions(const StoredTexts &stored, const QString &extension)
{
    const auto text = [&stored](const char *key, const char *missing) {
        return stored.value(QString::fromLatin1(key), QString::fromLatin1(missing));
    };
    const auto number = [&text](const char *key, const char *missing) { return whole(text(key, missing)); };
    const auto on = [&text](const char *key) { return text(key, "0") == QStringLiteral("1"); };

    QStringList parts(14);
    parts[0] = text("TempName", "").isEmpty() ? QString() : two("-tempname", text("TempName", ""));
    parts[1] = on("AppSignalTempName") ? one("-tempname1") : QString();
    parts[2] = positive("-f", number("FirstPage", "0"));
    parts[3] = positive("-l", number("LastPage", "0"));
    if (on("ResizePage")) {
        parts[4] = positive("-width", number("Width", "0"));
        parts[5] = positive("-height", number("Height", "0"));
    }
    if (on("ResetResolution")) {
        parts[6] = positive("-xres", number("XRes", "0"));
        parts[7] = positive("-yres", number("YRes", "0"));
    }
    const int depth = number("ColorDepth", "2");
    parts[8] = depth == 0 ? one("-mono") : (depth == 1 ? one("-gray") : QString());
    parts[9] = compression(number("Compression", "0"));
    parts[10] = on("MultiPageTIFF") ? one("-multipage") : QString();
    parts[11] = two("-wordmode", wordMode(number("WordMode", "0")));
    parts[12] = onlySpaces(text("UserPassword", "")) ? QString() : two("-upw", text("UserPassword", ""));
    parts[13] = onlySpaces(text("MasterPassword", "")) ? QString() : two("-opw", text("MasterPassword", ""));

    if (!QStringList{QStringLiteral(".tif"), QStringLiteral(".tiff")}.contains(extension)) {
        parts[9].clear();
        parts[10].clear();
    }
    if (extension == QStringLiteral(".pbm")) {
        parts[8] = one("-mono");
    } else if (extension == QStringLiteral(".pgm")) {
        parts[8] = one("-gray");
    } else if (extension == QStringLiteral(".ppm")) {
        parts[8].clear();
    }
    if (!QStringList{QStringLiteral(".doc"), QStringLiteral(".docx"), QStringLiteral(".rtf")}.contains(extension)) {
        parts[11].clear();
    }
    return parts.join(QStringLiteral(" "));
}
