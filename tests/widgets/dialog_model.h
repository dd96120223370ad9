// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

/// A second implementation of the settings dialog's rules: what it must show for given stored values and what it must
/// store. It shares no tables or functions with the program, so that it does not repeat its mistakes.
class DialogModel
{
public:
    using Values = QMap<QString, QString>;

    /// Opens the dialog with stored values; missing keys have their defaults.
    explicit DialogModel(const Values &stored);

    void reset();
    void chooseFormat(int index);
    /// The contents of the file after "Apply"; keys that the dialog does not write are kept.
    Values stored() const;

    bool loaded = false; ///< false when the stored extension index names none
    QStringList formats;
    int format = -1;
    QStringList depths;
    int depth = -1;
    int wordMode = 0;
    int compression = 0;
    QString firstPage, lastPage, width, height, xRes, yRes, tempName, userPassword, masterPassword;
    bool resize = false, resolution = false, multiPage = false, singleName = false;
    bool sizeEnabled = false, resolutionEnabled = false, depthEnabled = true;
    bool resizeBoxEnabled = true, resolutionBoxEnabled = true, tiffEnabled = true;

    static int number(const QString &text); ///< 0 for what is no whole decimal number

private:
    void init();
    void load();
    QString formatText() const { return format < 0 ? QString() : formats.at(format); }
    QString value(const char *key, const char *fallback) const;

    Values m_stored;
    QString m_kind;  ///< the stored row as the dialog first reads it
    int m_savedKind; ///< the row that a main window makes of it
};
