// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/store.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class StoreTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(QDir::setCurrent(m_folder.path())); }
    void cleanupTestCase() { QDir::setCurrent(QDir::rootPath()); }
    void cleanup() { QFile::remove(m_fileName); }
    void readingMakesNoFile();
    void writesOneSectionInTheCurrentFolder();
    void passwordsArePlainText();
    void missingKeyGivesTheReadersDefault();
    void everyOpeningSeesTheLastWrite();
    void flags_data();
    void flags();

private:
    QString m_fileName = QStringLiteral("settingquorra.ini");
    QTemporaryDir m_folder;
};

void StoreTest::readingMakesNoFile()
{
    QCOMPARE(store::text(store::open(), store::key::width, QLatin1String("0")), QStringLiteral("0"));
    QVERIFY(!QFile::exists(m_fileName));
}

void StoreTest::writesOneSectionInTheCurrentFolder()
{
    store::write(store::key::outputKindRow, QStringLiteral("8"));
    store::write(store::key::converterFormat, QStringLiteral("20"));
    QFile file(m_fileName);
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    QCOMPARE(file.readAll(), QByteArray("[SettingInfo]\nConverterFormat=20\nListWidgetCurrtentItemRow=8\n"));
}

void StoreTest::passwordsArePlainText()
{
    store::write(store::key::userPassword, QStringLiteral("geheim"));
    QFile file(m_fileName);
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    QCOMPARE(file.readAll(), QByteArray("[SettingInfo]\nUserPassword=geheim\n"));
}

void StoreTest::missingKeyGivesTheReadersDefault()
{
    const QSettings settings = store::open();
    QCOMPARE(store::text(settings, store::key::colorDepth, QLatin1String("2")), QStringLiteral("2"));
    QCOMPARE(store::text(settings, store::key::converterFormat, QLatin1String("")), QString());
}

void StoreTest::everyOpeningSeesTheLastWrite()
{
    const QString typed = QStringLiteral(" a, \"b\"; ä=文%03d\n");
    store::write(store::key::tempName, typed);
    QCOMPARE(store::text(store::open(), store::key::tempName, QLatin1String("")), typed);
}

void StoreTest::flags_data()
{
    QTest::addColumn<QString>("stored");
    QTest::addColumn<bool>("on");
    for (const char *off : {"", "0", "true", "on", "yes", " 1", "1 ", "01", "2", "11"}) {
        QTest::addRow("'%s'", off) << QString::fromLatin1(off) << false;
    }
    QTest::addRow("1") << QStringLiteral("1") << true;
}

void StoreTest::flags()
{
    QFETCH(const QString, stored);
    QFETCH(const bool, on);
    QCOMPARE(store::isOn(stored), on);
    QCOMPARE(store::isOn(store::flagText(on)), on);
    QCOMPARE(store::flagText(on), on ? QStringLiteral("1") : QStringLiteral("0"));
}

QTEST_GUILESS_MAIN(StoreTest)
#include "store_test.moc"
