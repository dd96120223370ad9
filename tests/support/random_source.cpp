// SPDX-License-Identifier: GPL-3.0-or-later
#include "random_source.h"

#include <QtGlobal>

#include <cstdio>

namespace {

quint32 chooseSeed()
{
    bool given = false;
    const quint32 seed = qEnvironmentVariable("QUORRA_SEED").toUInt(&given);
    return given ? seed : QRandomGenerator::global()->generate();
}

} // namespace

RandomSource::RandomSource() : m_seed(chooseSeed()), m_generator(m_seed)
{
    std::printf("QUORRA_SEED=%u\n", m_seed);
    std::fflush(stdout);
}

QString RandomSource::text(int longest)
{
    static const QString letters = QStringLiteral("abcXYZ0123789 \t\"'%;,=[]@\\/.-+#&üß€漢\u0301\u200f😀");
    QString result;
    for (int count = below(longest + 1); count > 0; --count) {
        result += letters.at(below(int(letters.size())));
    }
    // An unpaired surrogate cannot come from a user or a file.
    return QString::fromUtf8(result.toUtf8());
}

int randomRounds(int normal)
{
    bool given = false;
    const int rounds = qEnvironmentVariableIntValue("QUORRA_ROUNDS", &given);
    return given ? rounds : normal;
}
