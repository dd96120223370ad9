// SPDX-License-Identifier: GPL-3.0-or-later
// Reads random bytes as a settings file and builds the engine's option string for all extensions.
#include "fuzz_support.h"

#include "app/output_extensions.h"
#include "conversion/engine_options.h"
#include "settings/engine_settings.h"
#include "settings/store.h"

#include <QHash>
#include <QProcess>
#include <QStringList>

namespace {

/// The options with and without a value.
bool takesValue(const QString &option)
{
    static const QStringList options = {
        QStringLiteral("-tempname"), QStringLiteral("-f"),    QStringLiteral("-l"),    QStringLiteral("-width"),
        QStringLiteral("-height"),   QStringLiteral("-xres"), QStringLiteral("-yres"), QStringLiteral("-compress"),
        QStringLiteral("-wordmode"), QStringLiteral("-upw"),  QStringLiteral("-opw")};
    return options.contains(option);
}

bool standsAlone(const QString &option)
{
    static const QStringList options = {
        QStringLiteral("-tempname1"), QStringLiteral("-mono"), QStringLiteral("-gray"), QStringLiteral("-multipage")};
    return options.contains(option);
}

bool isPositiveNumber(const QString &text)
{
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    return isNumber && number > 0 && text == QString::number(number);
}

/// The options as received by the engine, with their values (empty for those without).
QHash<QString, QString> received(const QString &optionString)
{
    QHash<QString, QString> options;
    const QStringList arguments = QProcess::splitCommand(optionString);
    for (qsizetype index = 0; index < arguments.size(); ++index) {
        const QString &option = arguments[index];
        fuzz::require(!options.contains(option), "no option is sent twice");
        if (takesValue(option)) {
            fuzz::require(index + 1 < arguments.size(), "an option that takes a value has one");
            options.insert(option, arguments[++index]);
        } else {
            fuzz::require(standsAlone(option), "only known options are sent");
            options.insert(option, QString());
        }
    }
    return options;
}

void checkSeparators(const QString &optionString, const QHash<QString, QString> &options)
{
    qsizetype spaces = 0;
    bool quoted = false;
    for (const QChar character : optionString) {
        if (character == QLatin1Char('"')) {
            quoted = !quoted;
        } else if (character == QLatin1Char(' ') && !quoted) {
            ++spaces;
        }
    }
    qsizetype expected = 13;
    for (auto option = options.begin(); option != options.end(); ++option) {
        expected += takesValue(option.key()) ? 1 : 0;
    }
    fuzz::require(spaces == expected, "thirteen spaces separate the fragments, and one separates each pair");
}

void checkOptions(const EngineSettings &settings, const QString &extension, const QHash<QString, QString> &options)
{
    for (const char *name : {"-f", "-l", "-width", "-height", "-xres", "-yres"}) {
        const QString option = QString::fromLatin1(name);
        fuzz::require(!options.contains(option) || isPositiveNumber(options[option]), "numbers are positive decimals");
    }
    const bool tiff = extension == QLatin1String(".tif") || extension == QLatin1String(".tiff");
    const bool word =
        extension == QLatin1String(".doc") || extension == QLatin1String(".docx") || extension == QLatin1String(".rtf");
    fuzz::require(tiff || !options.contains(QStringLiteral("-compress")), "only TIFF is compressed");
    fuzz::require(tiff || !options.contains(QStringLiteral("-multipage")), "only TIFF has many pages");
    fuzz::require(word == options.contains(QStringLiteral("-wordmode")), "exactly word output has a word mode");
    fuzz::require(options.value(QStringLiteral("-tempname")) == settings.tempName, "the template goes out as stored");
    fuzz::require(
        options.value(QStringLiteral("-upw")) ==
            (settings.userPassword.trimmed().isEmpty() ? QString() : settings.userPassword),
        "the user password goes out as stored");
    fuzz::require(
        options.contains(QStringLiteral("-tempname1")) == (settings.singleTempName == QLatin1String("1")),
        "a flag is on only when it is 1");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argumentCount*/, char *** /*arguments*/)
{
    fuzz::workInTemporaryFolder();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fuzz::writeSettingsFile(fuzz::bytes(data, size));
    const EngineSettings settings = readEngineSettings(store::open());
    /// Nothing is escaped: a double quote in a value breaks the splitting, on purpose.
    const bool splits =
        !(settings.tempName + settings.userPassword + settings.masterPassword).contains(QLatin1Char('"'));
    for (int index = 0; index <= 28; ++index) {
        const QString extension = extensionOfIndex(index);
        const QString optionString = engineOptions(settings, extension);
        if (!splits) {
            continue;
        }
        const QHash<QString, QString> options = received(optionString);
        checkSeparators(optionString, options);
        checkOptions(settings, extension, options);
    }
    return 0;
}
