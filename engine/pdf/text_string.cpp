// SPDX-License-Identifier: GPL-3.0-or-later
#include "text_string.h"

#include <Object.h>
#include <PDFDocEncoding.h>

#include <QRegularExpression>
#include <QStringDecoder>
#include <QStringList>

namespace quorra {

namespace {

QString decoded(QStringDecoder::Encoding encoding, const std::string &bytes, std::size_t skip)
{
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    return decoder.decode(QByteArrayView(bytes.data() + skip, static_cast<qsizetype>(bytes.size() - skip)));
}

QString fromAnyEncoding(const std::string &bytes)
{
    const auto startsWith = [&bytes](const char *mark) { return bytes.rfind(mark, 0) == 0; };
    if (startsWith("\xfe\xff")) {
        return decoded(QStringDecoder::Utf16BE, bytes, 2);
    }
    if (startsWith("\xff\xfe")) { // not allowed, but written by some programs
        return decoded(QStringDecoder::Utf16LE, bytes, 2);
    }
    if (startsWith("\xef\xbb\xbf")) {
        return decoded(QStringDecoder::Utf8, bytes, 3);
    }
    QString text;
    text.reserve(static_cast<qsizetype>(bytes.size()));
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        const Unicode letter = pdfDocEncoding[code];
        text += QChar(static_cast<char16_t>(letter != 0 ? letter : code));
    }
    return text;
}

} // namespace

QString textString(const std::string &bytes)
{
    constexpr char16_t escape = 0x1b; // before and after the language of the text that follows
    const QString all = fromAnyEncoding(bytes);
    QString text;
    bool escaped = false;
    for (const QChar c : all) {
        if (c.unicode() == escape) {
            escaped = !escaped;
        } else if (!escaped && (c == QLatin1Char('\n') || c == QLatin1Char('\t') || c.unicode() >= ' ')) {
            text += c;
        } else if (!escaped && c == QLatin1Char('\r')) {
            text += QLatin1Char('\n');
        }
    }
    return text.trimmed();
}

QString textString(const Object &object)
{
    return object.isString() ? textString(object.getString()->toStr()) : QString();
}

QString languageTag(const QString &text)
{
    static const QRegularExpression tag(QStringLiteral("^[A-Za-z]{2,3}(?:-[A-Za-z0-9]{1,8})*$"));
    QString language = text.trimmed().replace(QLatin1Char('_'), QLatin1Char('-'));
    if (!tag.match(language).hasMatch()) {
        return {};
    }
    QStringList parts = language.split(QLatin1Char('-'));
    parts.front() = parts.front().toLower();
    for (qsizetype i = 1; i < parts.size(); ++i) {
        constexpr qsizetype regionLength = 2;
        parts[i] = parts[i].size() == regionLength ? parts[i].toUpper() : parts[i];
    }
    return parts.front() == QLatin1String("und") || parts.front() == QLatin1String("zxx")
               ? QString()
               : parts.join(QLatin1Char('-'));
}

} // namespace quorra
