// SPDX-License-Identifier: GPL-3.0-or-later
#include "conversion/engine_command.h"

#include <QProcess>
#include <QTest>

class EngineCommandTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void enginePath() { QCOMPARE(enginePathIn(QStringLiteral("/opt/a b")), QStringLiteral("/opt/a b/Qtminw")); }
    void baseNames_data();
    void baseNames();
    void outputPaths();
    void xmlSwitch_data();
    void xmlSwitch();
    void command();
    void splitsIntoTheMeantArguments_data();
    void splitsIntoTheMeantArguments();
};

void EngineCommandTest::baseNames_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("base");
    const auto row = [](const char *input, const char *base) {
        QTest::addRow("'%s'", input) << QString::fromUtf8(input) << QString::fromUtf8(base);
    };
    row("/in/a.pdf", "a");
    row("/in/a.b.pdf", "a");
    row("/in/report.final.pdf", "report");
    row("/in.x/a.pdf", "a");
    row("/in/.hidden.pdf", "");
    row("/in/.pdf", "");
    row("/in/noextension", "noextension");
    row("/in/a b\"ä文.pdf", "a b\"ä文");
    row("/in/a\nb.pdf", "a\nb");
    row("/in/-x.pdf", "-x");
    row("", "");
}

void EngineCommandTest::baseNames()
{
    QFETCH(const QString, input);
    QTEST(baseNameOf(input), "base");
}

void EngineCommandTest::outputPaths()
{
    const QString folder = QStringLiteral("/out");
    const QString input = QStringLiteral("/in/a.b.pdf");
    const QString doc = QStringLiteral(".doc");
    QCOMPARE(outputPathOf(folder, input, QString(), doc), QStringLiteral("/out/a.doc"));
    QCOMPARE(outputPathOf(folder, input, QStringLiteral("0001"), doc), QStringLiteral("/out/a0001.doc"));
    QCOMPARE(outputPathOf(folder, input, QString(), QString()), QStringLiteral("/out/a"));
    QCOMPARE(outputPathOf(QStringLiteral("/out/"), input, QString(), doc), QStringLiteral("/out//a.doc"));
}

void EngineCommandTest::xmlSwitch_data()
{
    QTest::addColumn<QString>("extension");
    QTest::addColumn<QString>("expected");
    QTest::addRow("xml") << QStringLiteral(".xml") << QStringLiteral(" \"-f\"  -htmlformat");
    for (const char *other : {".XML", "xml", ".html", ".htm", ""}) {
        QTest::addRow("'%s'", other) << QString::fromLatin1(other) << QStringLiteral(" \"-f\" ");
    }
}

void EngineCommandTest::xmlSwitch()
{
    QFETCH(const QString, extension);
    QTEST(optionsForExtension(QStringLiteral(" \"-f\" "), extension), "expected");
}

void EngineCommandTest::command()
{
    const QString command = engineCommand(
        QStringLiteral("/opt/a b/Qtminw"), QStringLiteral("  \"-f\" \"7\" "), QStringLiteral("/in/a b.pdf"),
        QStringLiteral("/out/a b.doc"));
    QCOMPARE(command, QStringLiteral("\"/opt/a b/Qtminw\"   \"-f\" \"7\"  \"-call\" \"/in/a b.pdf\" \"/out/a b.doc\""));
}

void EngineCommandTest::splitsIntoTheMeantArguments_data()
{
    QTest::addColumn<QString>("options");
    QTest::addColumn<QString>("input");
    QTest::addColumn<QStringList>("arguments");
    const auto row = [](const char *name, const char *options, const char *input, const QStringList &arguments) {
        QTest::addRow("%s", name) << QString::fromUtf8(options) << QString::fromUtf8(input) << arguments;
    };
    const QString call = QStringLiteral("-call");
    const QString plain = QStringLiteral("/in/a.pdf");
    row("no options", "             ", "/in/a.pdf", {call, plain});
    row("options", "  \"-f\" \"7\"  ", "/in/a.pdf", {QStringLiteral("-f"), QStringLiteral("7"), call, plain});
    row("bare switch", "    -htmlformat", "/in/a.pdf", {QStringLiteral("-htmlformat"), call, plain});
    row("spaces and line breaks", "", "/in/a b\tc\nd.pdf", {call, QStringLiteral("/in/a b\tc\nd.pdf")});
    row("not ASCII", "", "/in/ä文.pdf", {call, QStringLiteral("/in/ä文.pdf")});
    row("one quote splits wrongly", "", "/in/a\"b.pdf", {call, QStringLiteral("/in/ab.pdf /out/x.doc")});
    row("two quotes vanish", "", "/in/\"a\".pdf", {call, QStringLiteral("/in/a.pdf")});
}

void EngineCommandTest::splitsIntoTheMeantArguments()
{
    QFETCH(const QString, options);
    QFETCH(const QString, input);
    QFETCH(const QStringList, arguments);
    const QString output = QStringLiteral("/out/x.doc");
    QStringList split =
        QProcess::splitCommand(engineCommand(QStringLiteral("/opt/a b/Qtminw"), options, input, output));
    QCOMPARE(split.takeFirst(), QStringLiteral("/opt/a b/Qtminw"));
    if (split.last() == output) {
        split.removeLast();
    }
    QCOMPARE(split, arguments);
}

QTEST_APPLESS_MAIN(EngineCommandTest)
#include "engine_command_test.moc"
