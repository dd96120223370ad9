// SPDX-License-Identifier: GPL-3.0-or-later
#include "every_writer.h"

#include "analysis/analysis.h"
#include "convert/page_size.h"
#include "document/page_transform.h"
#include "document/page_walk.h"
#include "html/html_writer.h"
#include "sheets/sheets_writer.h"
#include "slides/slides_writer.h"
#include "text/text_writer.h"
#include "word/word_flow.h"
#include "word/word_placed.h"
#include "xml/xml_writer.h"

#include <QBuffer>
#include <QFile>
#include <QXmlStreamReader>

namespace fuzz {

using namespace quorra;

namespace {

/// Every second picture is unavailable.
class FewPictures : public model::PictureSource
{
public:
    model::EncodedPicture encode(const model::Figure &, model::DrawingWords) override { return background(1); }
    model::EncodedPicture background(int) override
    {
        return ++m_asked % 2 == 0 ? model::EncodedPicture{}
                                  : model::EncodedPicture{QByteArrayLiteral("x"), QByteArrayLiteral("image/png"), 1, 1};
    }

private:
    int m_asked = 0;
};

/// The same document with a table of styles of its own, for writers that change what they are given.
model::Document copyOf(const model::Document &document)
{
    model::Document copy;
    copy.pages = document.pages;
    copy.figures = document.figures;
    for (model::Page &page : copy.pages) {
        model::forEachParagraph(page, [&copy](model::Paragraph &paragraph) {
            for (model::Line &line : paragraph.lines) {
                for (model::Word &word : line.words) {
                    word.style = copy.styles.add(*word.style);
                }
            }
        });
    }
    return copy;
}

QString errorIn(const QByteArray &xml)
{
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        reader.readNext();
    }
    return reader.errorString();
}

class Outputs
{
public:
    explicit Outputs(QString folder) : m_folder(std::move(folder)) {}

    void addText(const model::Document &document)
    {
        QByteArray text;
        for (const model::Page &page : document.pages) {
            text += pageAsText(page).toUtf8() + '\f';
        }
        all.push_back({"text", text, {}});
    }

    template <typename Writer>
    void addXml(const char *name, const Writer &write)
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        write(buffer);
        all.push_back({name, buffer.data(), errorIn(buffer.data())});
    }

    template <typename Writer>
    void addOffice(const std::string &name, office::OdfKind kind, const Writer &write)
    {
        const QString path = m_folder + QStringLiteral("/made.xml");
        {
            office::OdfFile file(kind, path);
            write(file);
            file.finish();
        }
        QFile made(path);
        const QByteArray bytes = made.open(QIODevice::ReadOnly) ? made.readAll() : QByteArray();
        all.push_back({name, bytes, errorIn(bytes)});
    }

    std::vector<Output> all;

private:
    QString m_folder;
};

void addWordModes(Outputs &outputs, const model::Document &document)
{
    FewPictures pictures;
    const auto flow = [&](const char *name, const office::FlowForm &form, std::optional<bool> joinsOverPages) {
        model::Document joined = copyOf(document);
        if (joinsOverPages) {
            model::joinContinuations(joined, *joinsOverPages);
        }
        outputs.addOffice(name, office::OdfKind::Text, [&](office::OdfFile &file) {
            office::writeFlow(file, joined, pictures, form);
        });
    };
    flow("word mode 0", office::flowForms::inColumns, false);
    flow("word mode 0, .doc", office::forOldWord(office::flowForms::inColumns), false);
    outputs.addOffice("word mode 1", office::OdfKind::Text, [&](office::OdfFile &file) {
        office::writeFramed(file, document, pictures);
    });
    outputs.addOffice("word mode 2", office::OdfKind::Text, [&](office::OdfFile &file) {
        office::writeExact(file, document, pictures);
    });
    flow("word mode 3", office::flowForms::inOneColumn, {});
    flow("word mode 4", office::flowForms::continuous, true);
}

void addOnOtherPaper(Outputs &outputs, model::Document document)
{
    Options options;
    options.width = 1000;
    options.height = 500;
    FewPictures pictures;
    fitToOptions(document, options);
    model::reduceColours(document, ColourDepth::Gray);
    outputs.addXml("xml on other paper", [&](QIODevice &out) { writeXml(out, document); });
    outputs.addOffice("word on other paper", office::OdfKind::Text, [&](office::OdfFile &file) {
        office::writeFramed(file, document, pictures);
    });
}

} // namespace

std::vector<Output> everyOutput(const model::Document &document, const QString &folder)
{
    Outputs outputs(folder);
    FewPictures pictures;
    outputs.addText(document);
    outputs.addXml("xml", [&](QIODevice &out) { writeXml(out, document); });
    model::Document joined = copyOf(document);
    model::joinContinuations(joined, true);
    for (const bool xhtml : {false, true}) {
        outputs.addXml(xhtml ? "xhtml" : "html", [&](QIODevice &out) {
            writeHtml(out, joined, pictures, {xhtml, QStringLiteral("a < b")});
        });
    }
    addWordModes(outputs, document);
    model::Document slides = copyOf(document);
    office::unifyPages(slides);
    outputs.addOffice("slides", office::OdfKind::Presentation, [&](office::OdfFile &file) {
        office::writeSlides(file, slides, pictures);
    });
    outputs.addOffice("sheets", office::OdfKind::Spreadsheet, [&](office::OdfFile &file) {
        office::writeSheets(file, document, pictures);
    });
    addOnOtherPaper(outputs, copyOf(document));
    return std::move(outputs.all);
}

} // namespace fuzz
