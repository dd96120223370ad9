// SPDX-License-Identifier: GPL-3.0-or-later
#include "html.h"

#include "html/html_writer.h"
#include "markup.h"

namespace quorra {

namespace {

/// The file name without folder and extension; invalid UTF-8 is replaced.
QString titleOf(const std::string &path)
{
    const QString name = QString::fromStdString(path.substr(path.rfind('/') + 1));
    const auto dot = name.lastIndexOf(QLatin1Char('.'));
    return dot > 0 ? name.left(dot) : name;
}

} // namespace

void convertToMarkup(const Job &job, bool xhtml)
{
    const HtmlOptions options{xhtml, titleOf(job.options.inputPath)};
    const auto write = [&options](QIODevice &out, const model::Document &document, model::PictureSource &pictures) {
        writeHtml(out, document, pictures, options);
    };
    writeMarkup(job, Continuations::Joined, write);
}

void convertToHtml(const Job &job)
{
    convertToMarkup(job, false);
}

} // namespace quorra
