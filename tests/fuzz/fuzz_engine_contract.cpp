// SPDX-License-Identifier: GPL-3.0-or-later
// The engine understands what the window sends: settings and paths are converted to the option string and the command,
// split into arguments, and parsed by the engine.
#include "fuzz_support.h"

#include "app/output_extensions.h"
#include "base/failure.h"
#include "cli/options.h"
#include "conversion/engine_command.h"
#include "conversion/engine_options.h"
#include "settings/engine_settings.h"

#include <QProcess>
#include <QStringList>

#include <optional>
#include <string>
#include <vector>

namespace {

struct Job
{
    EngineSettings settings;
    QString extension;
    QString input;
    QString outputFolder;
};

/// The fields of an input; numbers and flags of the settings are texts, as stored.
Job jobOf(const std::uint8_t *data, std::size_t size)
{
    Job job;
    const QByteArrayList texts = fuzz::fields(data, size, 20);
    QString *const stored[] = {
        &job.settings.tempName,
        &job.settings.singleTempName,
        &job.settings.firstPage,
        &job.settings.lastPage,
        &job.settings.resizePage,
        &job.settings.width,
        &job.settings.height,
        &job.settings.resetResolution,
        &job.settings.xRes,
        &job.settings.yRes,
        &job.settings.colorDepth,
        &job.settings.compression,
        &job.settings.multiPageTiff,
        &job.settings.userPassword,
        &job.settings.masterPassword,
        &job.input,
        &job.outputFolder};
    qsizetype field = 0;
    for (QString *text : stored) {
        *text = QString::fromUtf8(texts[field++]);
    }
    job.settings.wordMode = texts[field++].toInt();
    job.extension = extensionOfIndex(texts[field].toInt());
    return job;
}

std::optional<int> positive(bool wanted, const QString &text)
{
    return wanted && text.toInt() > 0 ? std::optional(text.toInt()) : std::nullopt;
}

std::string password(const QString &text)
{
    return text.trimmed().isEmpty() ? std::string() : text.toStdString();
}

void checkReceived(const Job &job, const quorra::Options &options)
{
    const EngineSettings &settings = job.settings;
    const bool resized = settings.resizePage == QLatin1String("1");
    const bool resampled = settings.resetResolution == QLatin1String("1");
    fuzz::require(options.inputPath == job.input.toStdString(), "the input arrives");
    fuzz::require(
        options.outputPath == outputPathOf(job.outputFolder, job.input, QString(), job.extension).toStdString(),
        "the output arrives");
    fuzz::require(options.firstPage == positive(true, settings.firstPage), "the first page arrives");
    fuzz::require(options.lastPage == positive(true, settings.lastPage), "the last page arrives");
    fuzz::require(options.width == positive(resized, settings.width), "the width arrives");
    fuzz::require(options.height == positive(resized, settings.height), "the height arrives");
    fuzz::require(options.xres == positive(resampled, settings.xRes), "the resolution arrives");
    fuzz::require(options.yres == positive(resampled, settings.yRes), "the other resolution arrives");
    fuzz::require(options.tempName == settings.tempName.toStdString(), "the template arrives");
    fuzz::require(options.userPassword == password(settings.userPassword), "the user password arrives");
    fuzz::require(options.ownerPassword == password(settings.masterPassword), "the owner password arrives");
    fuzz::require(options.htmlFormat == (job.extension == QLatin1String(".xml")), "the switch of XML arrives");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argumentCount*/, char *** /*arguments*/)
{
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const Job job = jobOf(data, size);
    const EngineSettings &settings = job.settings;
    const QString values =
        settings.tempName + settings.userPassword + settings.masterPassword + job.input + job.outputFolder;
    /// Nothing is escaped, so a double quote breaks the arguments, and an empty path is not an argument.
    if (values.contains(QLatin1Char('"')) || job.input.isEmpty()) {
        return 0;
    }
    const QString options = optionsForExtension(engineOptions(settings, job.extension), job.extension);
    const QString output = outputPathOf(job.outputFolder, job.input, QString(), job.extension);
    const QStringList command =
        QProcess::splitCommand(engineCommand(QStringLiteral("/engine"), options, job.input, output));
    std::vector<std::string> arguments;
    for (qsizetype index = 1; index < command.size(); ++index) {
        arguments.push_back(command[index].toStdString());
    }
    try {
        checkReceived(job, quorra::parseOptions(arguments));
    } catch (const quorra::Failure &) {
        fuzz::require(false, "the engine understands whatever the window sends");
    }
    return 0;
}
