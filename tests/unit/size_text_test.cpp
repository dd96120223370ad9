// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/size_text.h"

#include <QLocale>
#include <QTest>

#include <array>
#include <clocale>
#include <cstdio>
#include <random>

class SizeTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void eachSize_data();
    void eachSize();
    void localeIsIgnored();
    void matchesTheCFunctions();
    void sizesAreTruncatedToThirtyTwoBits_data();
    void sizesAreTruncatedToThirtyTwoBits();
};

void SizeTextTest::cleanup()
{
    std::setlocale(LC_ALL, "C");
    QLocale::setDefault(QLocale::c());
}

void SizeTextTest::eachSize_data()
{
    QTest::addColumn<int>("bytes");
    QTest::addColumn<QString>("added");
    QTest::addColumn<QString>("dropped");
    const auto row = [](int bytes, const char *added, const char *dropped) {
        QTest::addRow("%d", bytes) << bytes << QString::fromLatin1(added) << QString::fromLatin1(dropped);
    };
    row(0, "", "");
    row(-1, "", "");
    row(std::numeric_limits<int>::min(), "", "");
    row(1, "0.001       KB", "         0,001 KB");
    row(999, "0.999       KB", "         0,999 KB");
    row(2048, "2.048       KB", "         2,048 KB");
    row(1048575, "1048.575    KB", "      1048,575 KB");
    row(1048576, "1048.576    KB", "      1048,576 KB");
    row(1048577, "1048.577    KB", "         1,049 MB");
    row(5000000, "5000.000    KB", "         5,000 MB");
    row(1062500, "1062.500    KB", "         1,062 MB"); // a tie goes to the even digit, as C does it
    row(1187500, "1187.500    KB", "         1,188 MB");
    row(2147483647, "2147483.647 KB", "      2147,484 MB");
}

void SizeTextTest::eachSize()
{
    QFETCH(const int, bytes);
    QTEST(addedSizeText(bytes), "added");
    QTEST(droppedSizeText(bytes), "dropped");
}

void SizeTextTest::localeIsIgnored()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    // Not every machine has the German locale of the C library; Qt's always exists.
    if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr && std::setlocale(LC_ALL, "de_DE") == nullptr) {
        qInfo("no German locale in the C library");
    }
    QCOMPARE(addedSizeText(5000000), QStringLiteral("5000.000    KB"));
    QCOMPARE(droppedSizeText(5000000), QStringLiteral("         5,000 MB"));
}

void SizeTextTest::matchesTheCFunctions()
{
    std::mt19937 random(20261121); // NOLINT(cert-msc51-cpp): the same sizes each time
    std::array<char, 64> text{};
    for (int i = 0; i < 20000; ++i) {
        // Every second size is half-way between two displayed values in megabytes.
        const int size =
            i % 2 == 0 ? static_cast<int>(random() >> 1) : static_cast<int>(random() % 2000000) * 1000 + 500;
        if (size < 1) {
            continue;
        }
        std::snprintf(text.data(), text.size(), "%-11.3f KB", size / 1000.0);
        QCOMPARE(addedSizeText(size), QString::fromLatin1(text.data()));
        const bool mega = size > 1048576;
        std::snprintf(text.data(), text.size(), mega ? "%14.3f MB" : "%14.3f KB", size / (mega ? 1000000.0 : 1000.0));
        QCOMPARE(droppedSizeText(size), QString::fromLatin1(text.data()).replace(QLatin1Char('.'), QLatin1Char(',')));
    }
}

void SizeTextTest::sizesAreTruncatedToThirtyTwoBits_data()
{
    QTest::addColumn<qint64>("bytes");
    QTest::addColumn<int>("listed");
    QTest::addRow("0") << qint64(0) << 0;
    QTest::addRow("2 GiB - 1") << (qint64(1) << 31) - 1 << 2147483647;
    QTest::addRow("2 GiB") << (qint64(1) << 31) << std::numeric_limits<int>::min();
    QTest::addRow("4 GiB - 1") << (qint64(1) << 32) - 1 << -1;
    QTest::addRow("4 GiB") << (qint64(1) << 32) << 0;
    QTest::addRow("4 GiB + 2048") << (qint64(1) << 32) + 2048 << 2048;
}

void SizeTextTest::sizesAreTruncatedToThirtyTwoBits()
{
    QFETCH(const qint64, bytes);
    QTEST(listedSize(bytes), "listed");
}

QTEST_APPLESS_MAIN(SizeTextTest)
#include "size_text_test.moc"
