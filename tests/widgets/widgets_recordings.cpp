// SPDX-License-Identifier: GPL-3.0-or-later
// Compares what the front-end sends, stores and shows with the approved recordings/. Intended changes are approved with
// `scripts/approve window`, after reviewing the differences.
#include "about/about.h"
#include "app/light_look.h"
#include "settings/setting.h"
#include "window_fixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFontInfo>
#include <QImage>
#include <QSettings>
#include <QStyleFactory>
#include <QTabWidget>
#include <QtTest>

#include <algorithm>
#include <cstdlib>

namespace {

using Values = QMap<QString, QString>;

const char *const fontFamily = "DejaVu Sans";

QString recordingPath(const char *name)
{
    return QStringLiteral(QUORRA_RECORDINGS "/") + QLatin1String(name);
}

bool isApproving()
{
    return qEnvironmentVariableIsSet("QUORRA_APPROVE");
}

/// Fails at the first line that differs from the approved one.
void checkText(const char *name, const QStringList &lines)
{
    const QString path = recordingPath(name);
    if (isApproving()) {
        writeFile(path, lines.join(QLatin1Char('\n')).toUtf8() + '\n');
        return;
    }
    QStringList approved = QString::fromUtf8(fileContent(path)).split(QLatin1Char('\n'));
    approved.removeLast();
    for (qsizetype line = 0; line < std::min(lines.size(), approved.size()); ++line) {
        QVERIFY2(
            lines[line] == approved[line], qPrintable(QStringLiteral("%1:%2\n  now      %3\n  approved %4")
                                                          .arg(QLatin1String(name))
                                                          .arg(line + 1)
                                                          .arg(lines[line], approved[line])));
    }
    QCOMPARE(lines.size(), approved.size());
}

/// Fails if a pixel differs from the approved one. Processors round differently, so a difference of a few levels of 255
/// is allowed.
void checkPicture(const char *name, const QImage &now)
{
    constexpr int allowed = 4;
    const QString path = recordingPath(name);
    const QImage picture = now.convertToFormat(QImage::Format_RGB32);
    if (isApproving()) {
        QVERIFY(picture.save(path));
        return;
    }
    const QImage approved = QImage(path).convertToFormat(QImage::Format_RGB32);
    QCOMPARE(picture.size(), approved.size());
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb a = picture.pixel(x, y);
            const QRgb b = approved.pixel(x, y);
            const int difference =
                std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
            QVERIFY2(difference <= allowed, qPrintable(QStringLiteral("%1 at %2, %3").arg(path).arg(x).arg(y)));
        }
    }
}

/// Makes these the only settings, without using the program's code for writing them.
void storeOnly(const Values &values)
{
    QSettings settings(QStringLiteral("settingquorra.ini"), QSettings::IniFormat);
    settings.clear();
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        settings.setValue(QStringLiteral("/SettingInfo/") + value.key(), value.value());
    }
}

/// Each option separately, with values at and beyond its bounds.
QList<Values> singleOptions()
{
    QList<Values> options;
    const auto each = [&options](const char *name, const QStringList &texts) {
        for (const QString &text : texts) {
            options << Values{{QLatin1String(name), text}};
        }
    };
    const auto words = [](const char *text) { return QString::fromUtf8(text).split(QLatin1Char(',')); };
    each("WordMode", words("-1,0,1,2,3,4,5,x"));
    each("TempName", words("page%03d,  ,a\"b, c "));
    each("AppSignalTempName", words("0,1,true"));
    each("FirstPage", words("-1,0,1,2,007,x,9999"));
    each("LastPage", words("-1,0,1,2,007,x,9999"));
    each("ResizePage", words("0,1"));
    each("Width", words("800"));
    each("ResetResolution", words("0,1"));
    each("XRes", words("300"));
    each("ColorDepth", words("-1,0,1,2,3,x"));
    each("Compression", words("-1,0,1,2,3,4,5,6,7,8,x"));
    each("MultiPageTIFF", words("0,1,true"));
    each("UserPassword", words("secret,   , ab ,ä\"x"));
    each("MasterPassword", words("secret,   , ab ,ä\"x"));
    return options;
}

/// Groups of settings that switch something on, to be combined in pairs.
QList<Values> switchedOptions()
{
    const auto values = [](std::initializer_list<std::pair<const char *, const char *>> pairs) {
        Values result;
        for (const auto &[name, text] : pairs) {
            result.insert(QLatin1String(name), QLatin1String(text));
        }
        return result;
    };
    return {
        values({{"TempName", "t%d"}}),
        values({{"AppSignalTempName", "1"}}),
        values({{"FirstPage", "2"}}),
        values({{"LastPage", "5"}}),
        values({{"ResizePage", "1"}, {"Width", "1"}, {"Height", "0"}}),
        values({{"ResizePage", "1"}, {"Width", "800"}, {"Height", "600"}}),
        values({{"ResetResolution", "1"}, {"XRes", "0"}, {"YRes", "1"}}),
        values({{"ResetResolution", "1"}, {"XRes", "300"}, {"YRes", "150"}}),
        values({{"ColorDepth", "0"}}),
        values({{"ColorDepth", "1"}}),
        values({{"Compression", "3"}}),
        values({{"MultiPageTIFF", "1"}}),
        values({{"WordMode", "2"}}),
        values({{"UserPassword", "u"}}),
        values({{"MasterPassword", "o"}}),
    };
}

Values allSwitched()
{
    Values together;
    for (const Values &switched : switchedOptions()) {
        together.insert(switched);
    }
    return together;
}

QList<Values> singleAndPairedOptions()
{
    QList<Values> options = singleOptions();
    const QList<Values> switched = switchedOptions();
    for (qsizetype first = 0; first < switched.size(); ++first) {
        for (qsizetype second = first + 1; second < switched.size(); ++second) {
            Values pair = switched[first];
            pair.insert(switched[second]);
            options << pair;
        }
    }
    return options;
}

/// Extension numbers: all, and one of each that the option string treats in a way of its own.
QList<int> allIndexes()
{
    QList<int> indexes;
    for (int index = 0; index < 28; ++index) {
        indexes << index;
    }
    return indexes;
}

const QList<int> specialIndexes{0, 1, 2, 10, 13, 14, 20, 24, 25, 26}; // clazy:exclude=non-pod-global-static

QString textOf(const Values &values)
{
    QStringList parts;
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        parts << value.key() + QLatin1Char('=') + value.value();
    }
    return parts.isEmpty() ? QStringLiteral("(nothing stored)") : parts.join(QStringLiteral("; "));
}

/// What a widget shows beyond its place.
QString contentOf(const QWidget &widget)
{
    QStringList parts;
    if (const auto *box = qobject_cast<const QComboBox *>(&widget)) {
        parts << QStringLiteral("row %1 of").arg(box->currentIndex());
        for (int row = 0; row < box->count(); ++row) {
            parts << QLatin1Char('\'') + box->itemText(row) + QLatin1Char('\'');
        }
    } else if (const auto *bar = qobject_cast<const QProgressBar *>(&widget)) {
        parts << QStringLiteral("%1 of %2").arg(bar->value()).arg(bar->maximum());
    } else if (const auto *list = qobject_cast<const QListWidget *>(&widget)) {
        for (int row = 0; row < list->count(); ++row) {
            const QSize hint = list->item(row)->sizeHint();
            parts << QStringLiteral("'%1' %2x%3").arg(list->item(row)->text()).arg(hint.width()).arg(hint.height());
        }
    } else if (const auto *table = qobject_cast<const QTableWidget *>(&widget)) {
        parts << QStringLiteral("columns %1 %2, current %3")
                     .arg(table->columnWidth(0))
                     .arg(table->columnWidth(1))
                     .arg(table->currentRow());
        for (int row = 0; row < table->rowCount(); ++row) {
            const bool selected = table->selectionModel()->isRowSelected(row);
            const QTableWidgetItem *size = table->item(row, 1);
            parts << (selected ? QStringLiteral("[%1|%2]") : QStringLiteral("%1|%2"))
                         .arg(QFileInfo(table->item(row, 0)->text()).fileName(), size ? size->text() : QString());
        }
    } else if (widget.property("text").isValid()) {
        parts << QLatin1Char('\'') + widget.property("text").toString() + QLatin1Char('\'');
    }
    if (widget.property("checked").toBool()) {
        parts << QStringLiteral("checked");
    }
    if (widget.property("readOnly").toBool()) {
        parts << QStringLiteral("read-only");
    }
    return parts.join(QLatin1Char(' '));
}

/// One line for the window, and one for each widget with a name.
QStringList describedWindow(const QString &title, const QWidget &window)
{
    QStringList lines{
        QString(),
        QStringLiteral("%1: '%2' %3 x %4").arg(title, window.windowTitle()).arg(window.width()).arg(window.height())};
    for (const QWidget *widget : window.findChildren<QWidget *>()) {
        if (widget->objectName().isEmpty() || widget->objectName().startsWith(QLatin1String("qt_"))) {
            continue;
        }
        const QPoint place = widget->mapTo(&window, QPoint(0, 0));
        QString line = QStringLiteral("%1 %2 at %3,%4 size %5x%6")
                           .arg(widget->objectName(), QLatin1String(widget->metaObject()->className()))
                           .arg(place.x())
                           .arg(place.y())
                           .arg(widget->width())
                           .arg(widget->height());
        if (!widget->isVisibleTo(&window)) {
            line += QStringLiteral(" hidden");
        }
        if (!widget->isEnabledTo(&window)) {
            line += QStringLiteral(" disabled");
        }
        lines << QStringLiteral("  ") + (line + QLatin1Char(' ') + contentOf(*widget)).trimmed();
    }
    return lines;
}

} // namespace

class WidgetsRecordings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { failOnUnexpectedWarnings(); }

    void optionStrings();
    void commands();
    void settingsFile();
    void windows();
    void pictures();

private:
    /// The settings file as it is, with the test's folder named FOLDER.
    static QStringList settingsAfter(const WindowFixture &fixture, const QString &action);
};

void WidgetsRecordings::initTestCase()
{
    if (!QFontInfo(QFont(QLatin1String(fontFamily))).exactMatch()) {
        QSKIP("not run: the recordings were made with DejaVu Sans");
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setFont(QFont(QLatin1String(fontFamily), 9));
    keepLightLook();
}

/// Extensions with the same option string share a line.
void WidgetsRecordings::optionStrings()
{
    WindowFixture fixture;
    fixture.open();
    QStringList lines;
    const auto record = [&](const Values &options, const QList<int> &indexes) {
        lines << textOf(options);
        QStringList texts;
        QMap<QString, QStringList> extensions;
        for (const int index : indexes) {
            Values values = options;
            values.insert(QStringLiteral("ConverterFormat"), QString::number(index));
            storeOnly(values);
            const QString text = fixture.window->GetSetParameter();
            if (!extensions.contains(text)) {
                texts << text;
            }
            extensions[text] << QString::number(index) + fixture.window->m_strOutputFormat;
        }
        for (const QString &text : std::as_const(texts)) {
            lines << QStringLiteral("  <%1> %2").arg(text, extensions[text].join(QLatin1Char(' ')));
        }
    };
    record({}, allIndexes());
    record(allSwitched(), allIndexes());
    for (const Values &options : singleAndPairedOptions()) {
        record(options, specialIndexes);
    }
    checkText("option-strings.txt", lines);
}

/// The arguments that the engine is really started with, for each kind and each extension that its dialog offers.
void WidgetsRecordings::commands()
{
    WindowFixture fixture;
    fixture.open();
    fixture.drop({fixture.folder.makePdf(QStringLiteral("in/a report.final.pdf"))});
    QStringList lines;
    for (int row = 0; row < 9; ++row) {
        fixture.selectFormat(row);
        int offered = 1;
        for (int extension = 0; extension < offered; ++extension) {
            DialogAnswer<Setting> answer([&](Setting &dialog) {
                auto *box = dialog.findChild<QComboBox *>(QStringLiteral("comboBox_Format"));
                offered = box->count();
                box->setCurrentIndex(extension);
                dialog.On_Button_Apply_Click();
            });
            fixture.call("On_Button_Setting");
            QVERIFY(answer.seen());
            fixture.folder.forgetRuns();
            fixture.runToTheEnd();
            const QByteArrayList arguments = fixture.folder.runs().at(0).arguments;
            QString line = QString::fromUtf8("\"" + arguments.join("\" \"") + "\"");
            lines << line.replace(fixture.folder.path(), QStringLiteral("FOLDER"));
        }
    }
    checkText("commands.txt", lines);
}

QStringList WidgetsRecordings::settingsAfter(const WindowFixture &fixture, const QString &action)
{
    QString content = QString::fromUtf8(fileContent(fixture.folder.filePath(QStringLiteral("settingquorra.ini"))));
    content.replace(fixture.folder.path(), QStringLiteral("FOLDER"));
    return QStringList{QString(), action + QLatin1Char(':')} + content.trimmed().split(QLatin1Char('\n'));
}

void WidgetsRecordings::settingsFile()
{
    WindowFixture fixture;
    QStringList lines;
    fixture.open();
    lines << settingsAfter(fixture, QStringLiteral("first start"));
    for (int row = 0; row < 9; ++row) {
        fixture.selectFormat(row);
        lines << settingsAfter(fixture, QStringLiteral("kind %1").arg(row));
        fixture.visitSettings("pushButton_Apply");
        lines << settingsAfter(fixture, QStringLiteral("kind %1, Apply").arg(row));
    }
    {
        DialogAnswer<Setting> answer([](Setting &dialog) {
            int number = 0;
            for (QLineEdit *line : dialog.findChildren<QLineEdit *>()) {
                line->setText(QString::number(++number));
            }
            for (QCheckBox *box : dialog.findChildren<QCheckBox *>()) {
                box->setChecked(true);
            }
            for (QComboBox *box : dialog.findChildren<QComboBox *>()) {
                box->setCurrentIndex(1);
            }
            dialog.On_Button_Apply_Click();
        });
        fixture.call("On_Button_Setting");
        QVERIFY(answer.seen());
    }
    lines << settingsAfter(fixture, QStringLiteral("everything filled in, Apply"));
    fixture.visitSettings("pushButton_Cancle");
    lines << settingsAfter(fixture, QStringLiteral("Cancel"));
    {
        DialogAnswer<Setting> answer([](Setting &dialog) {
            dialog.On_Button_Reset_Click();
            dialog.On_Button_Apply_Click();
        });
        fixture.call("On_Button_Setting");
        QVERIFY(answer.seen());
    }
    lines << settingsAfter(fixture, QStringLiteral("Reset, Apply"));
    const QString input = fixture.folder.makePdf(QStringLiteral("in/a.pdf"));
    {
        DialogAnswer<QFileDialog> answer([&](QFileDialog &dialog) { answerFileDialog(dialog, {input}); });
        fixture.call("On_Button_AddFile");
        QVERIFY(answer.seen());
    }
    lines << settingsAfter(fixture, QStringLiteral("file added"));
    {
        const QString chosen = fixture.outputFolder;
        DialogAnswer<QFileDialog> answer([&](QFileDialog &dialog) { answerFileDialog(dialog, {chosen}); });
        fixture.call("On_Button_OutputFolder");
        QVERIFY(answer.seen());
    }
    lines << settingsAfter(fixture, QStringLiteral("folder chosen"));
    fixture.runToTheEnd();
    lines << settingsAfter(fixture, QStringLiteral("run"));
    fixture.close();
    lines << settingsAfter(fixture, QStringLiteral("closed"));
    fixture.open();
    lines << settingsAfter(fixture, QStringLiteral("second start"));
    checkText("settings-file.txt", lines);
}

void WidgetsRecordings::windows()
{
    QStringList lines;
    {
        WindowFixture fixture;
        fixture.outputFolder = QStringLiteral("/out");
        fixture.open();
        lines << describedWindow(QStringLiteral("main window"), *fixture.window);
        fixture.selectFormat(8);
        fixture.dropFiles(3);
        fixture.table()->setCurrentCell(1, 0);
        lines << describedWindow(QStringLiteral("main window with files"), *fixture.window);
        const about box;
        lines << describedWindow(QStringLiteral("about"), box);
    }
    {
        WindowFixture fixture;
        fixture.beginRun(3);
        fixture.outputLine()->clear(); // the temporary folder's name
        lines << describedWindow(QStringLiteral("main window, running"), *fixture.window);
    }
    const WindowFixture fixture;
    for (int row = 0; row < 9; ++row) {
        storeOnly({{QStringLiteral("ListWidgetCurrtentItemRow"), QString::number(row)}});
        Setting dialog;
        dialog.show();
        lines << describedWindow(QStringLiteral("settings, kind %1").arg(row), dialog);
        dialog.On_Button_Reset_Click();
        lines << describedWindow(QStringLiteral("settings, kind %1, after Reset").arg(row), dialog);
    }
    checkText("windows.txt", lines);
}

void WidgetsRecordings::pictures()
{
    {
        WindowFixture fixture;
        fixture.outputFolder = QStringLiteral("/out");
        fixture.open();
        fixture.window->centralWidget()->setFocus();
        checkPicture("main.png", fixture.window->grab().toImage());
    }
    const WindowFixture fixture;
    storeOnly({{QStringLiteral("ListWidgetCurrtentItemRow"), QStringLiteral("8")}});
    Setting dialog;
    dialog.setFocus();
    checkPicture("setting.png", dialog.grab().toImage());
    dialog.findChild<QTabWidget *>()->setCurrentIndex(1);
    checkPicture("setting-image.png", dialog.grab().toImage());
    about box;
    box.setFocus();
    checkPicture("about.png", box.grab().toImage());
}

QTEST_MAIN(WidgetsRecordings)
#include "widgets_recordings.moc"
