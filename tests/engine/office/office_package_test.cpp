// SPDX-License-Identifier: GPL-3.0-or-later
#include "ooxml/cell_margins.h"
#include "ooxml/frozen_rows.h"
#include "ooxml/package_parts.h"

#include "base/failure.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <minizip/zip.h>

using namespace quorra;
using namespace quorra::office;

/// Corrections to exported packages.
class OfficePackageTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cellsGetTheMarginsOfTheirText();
    void otherSlidesStay();
    void rowsAreFrozen();
    void otherSheetsStay();
    void partsAreReplaced();
    void otherFilesStay();
    void damagedPackagesAreReported();
};

namespace {

void makePackage(const QString &path)
{
    zipFile archive = zipOpen64(QFile::encodeName(path).constData(), APPEND_STATUS_CREATE);
    QVERIFY(archive);
    zip_fileinfo facts{};
    facts.dosDate = 0x2A2A6000;
    for (const char *name : {"one.xml", "picture.png", "two.xml"}) {
        QCOMPARE(zipOpenNewFileInZip(archive, name, &facts, nullptr, 0, nullptr, 0, nullptr, 0, 0), ZIP_OK); // stored
        QCOMPARE(zipWriteInFileInZip(archive, name, static_cast<unsigned>(qstrlen(name))), ZIP_OK);
        QCOMPARE(zipCloseFileInZip(archive), ZIP_OK);
    }
    QCOMPARE(zipClose(archive, nullptr), ZIP_OK);
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList partsOf(const QString &path)
{
    QStringList parts;
    changeParts(path.toStdString(), [&](const QString &name, const QByteArray &content) {
        parts += name + u'=' + QString::fromUtf8(content);
        return std::nullopt;
    });
    return parts;
}

} // namespace

void OfficePackageTest::cellsGetTheMarginsOfTheirText()
{
    const QByteArray cell = "<a:tc><a:txBody><a:bodyPr lIns=\"1\" tIns=\"3960\" bIns=\"40\"/></a:txBody>";
    const QByteArray slide = "<s xmlns:a=\"u\">\xc3\xa9<a:bodyPr tIns=\"7\" bIns=\"8\"/>" + cell +
                             "<a:tcPr marL=\"1\"><x/></a:tcPr></a:tc><a:tc><a:tcPr/></a:tc>" + cell +
                             "<a:tcPr/></a:tc>" + cell + "<a:tcPr marT=\"5\"/></a:tc></s>";
    QByteArray wanted = slide;
    wanted.replace("<a:tcPr marL=\"1\">", "<a:tcPr marT=\"3960\" marB=\"40\" marL=\"1\">");
    const qsizetype last = wanted.lastIndexOf("<a:tcPr/>");
    wanted.replace(last, 9, "<a:tcPr marT=\"3960\" marB=\"40\"/>");
    QCOMPARE(withCellMargins(slide).value_or(QByteArray()), wanted);
    QVERIFY(!withCellMargins(wanted)); // there is nothing left to add
}

void OfficePackageTest::otherSlidesStay()
{
    QVERIFY(!withCellMargins("<s><bodyPr tIns=\"1\" bIns=\"1\"/></s>"));
    QVERIFY(!withCellMargins("<s><tc><bodyPr tIns=\"1\" bIns=\"1\"/><tcPr/>")); // not well-formed
}

void OfficePackageTest::rowsAreFrozen()
{
    const QByteArray sheet =
        "<w><sheetViews><sheetView tabSelected=\"1\"><selection pane=\"topLeft\" activeCell=\"A1\"/>"
        "</sheetView></sheetViews><c t=\"\xc3\xa9\"/></w>";
    QByteArray wanted = sheet;
    wanted.replace(
        "<selection pane=\"topLeft\"", "<pane ySplit=\"3\" topLeftCell=\"A4\" activePane=\"bottomLeft\" "
                                       "state=\"frozen\"/><selection pane=\"bottomLeft\"");
    QCOMPARE(withFrozenRows(sheet, 3).value_or(QByteArray()), wanted);
    QVERIFY(!withFrozenRows(wanted, 3)); // frozen already
    QVERIFY(!withFrozenRows(sheet, 0));
}

void OfficePackageTest::otherSheetsStay()
{
    QVERIFY(!withFrozenRows("<w><selection/></w>", 1)); // not of a view
    QVERIFY(!withFrozenRows("<w><sheetView/></w>", 1));
    QVERIFY(!withFrozenRows("no XML", 1));
}

void OfficePackageTest::partsAreReplaced()
{
    const QTemporaryDir folder;
    QByteArray made;
    for (const char *file : {"first.pptx", "second.pptx"}) {
        const QString path = folder.filePath(QString::fromUtf8(file));
        makePackage(path);
        changeParts(path.toStdString(), [](const QString &name, const QByteArray &content) {
            return name == QLatin1String("two.xml") ? std::optional(content + "!") : std::nullopt;
        });
        const QStringList parts = {QStringLiteral("one.xml=one.xml"), QStringLiteral("two.xml=two.xml!")};
        QCOMPARE(partsOf(path), parts);
        QVERIFY(made.isEmpty() || made == bytesOf(path)); // whenever it is made
        made = bytesOf(path);
        QVERIFY(!QFile::exists(path + QStringLiteral(".new")));
        QVERIFY(made.indexOf("picture.png") < made.indexOf("two.xml"));
        QCOMPARE(made.count(QByteArray::fromHex("00602a2a")), 6); // each time, before the entry and in the directory
    }
}

void OfficePackageTest::otherFilesStay()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("text.pptx"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no archive");
    file.close();
    QVERIFY(partsOf(path).isEmpty());
    QCOMPARE(bytesOf(path), QByteArray("no archive"));
}

void OfficePackageTest::damagedPackagesAreReported()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("damaged.pptx"));
    makePackage(path);
    QByteArray bytes = bytesOf(path);
    const qsizetype content = bytes.indexOf("one.xml") + 7;
    bytes.replace(content, 4, "xxxx"); // the checksum is another one
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    file.close();
    QVERIFY_THROWS_EXCEPTION(Failure, partsOf(path));
}

QTEST_APPLESS_MAIN(OfficePackageTest)
#include "office_package_test.moc"
