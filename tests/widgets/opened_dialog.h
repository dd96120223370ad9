// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "settings/setting.h"
#include "settings_file.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include <memory>

using Values = QMap<QString, QString>;

/// The settings dialog, shown, on given stored values.
struct Opened
{
    explicit Opened(const Values &values)
    {
        storeSettings(values);
        dialog = std::make_unique<Setting>();
        dialog->show();
    }

    QComboBox *combo(const char *name) const { return dialog->findChild<QComboBox *>(QLatin1String(name)); }
    QLineEdit *line(const char *name) const { return dialog->findChild<QLineEdit *>(QLatin1String(name)); }
    QCheckBox *check(const char *name) const { return dialog->findChild<QCheckBox *>(QLatin1String(name)); }
    QWidget *widget(const char *name) const { return dialog->findChild<QWidget *>(QLatin1String(name)); }
    void click(const char *name) const
    {
        QTest::mouseClick(dialog->findChild<QPushButton *>(QLatin1String(name)), Qt::LeftButton);
    }
    void apply() const { click("pushButton_Apply"); }
    QStringList items(const char *name) const
    {
        QStringList texts;
        for (int i = 0; i < combo(name)->count(); ++i) {
            texts << combo(name)->itemText(i);
        }
        return texts;
    }
    bool isEnabled(const char *name) const { return widget(name)->isEnabledTo(widget(name)->parentWidget()); }

    std::unique_ptr<Setting> dialog;
};

inline Values kind(int row, const Values &more = {})
{
    Values values = more;
    values.insert(QStringLiteral("ListWidgetCurrtentItemRow"), QString::number(row));
    return values;
}

inline Values one(const char *name, const char *value)
{
    return {{QString::fromLatin1(name), QString::fromLatin1(value)}};
}

inline QStringList generalDepths()
{
    return {QStringLiteral("1 Bit"), QStringLiteral("8 Bits"), QStringLiteral("24 Bits")};
}

inline QStringList jpegDepths()
{
    return {QStringLiteral("8 Bits"), QStringLiteral("24 Bits")};
}
