// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRandomGenerator>
#include <QString>
#include <QStringList>

/// Random numbers of a test run. The seed is printed, and read from the environment variable QUORRA_SEED if it is set,
/// to reproduce a failure.
class RandomSource
{
public:
    RandomSource();

    quint32 seed() const { return m_seed; }
    int below(int bound) { return m_generator.bounded(bound); } // 0 ... bound - 1
    bool oneIn(int chances) { return below(chances) == 0; }
    QString pick(const QStringList &texts) { return texts.at(below(int(texts.size()))); }
    /// Up to `longest` characters: letters, digits, spaces, quotes, INI and path characters, non-ASCII.
    QString text(int longest);

private:
    quint32 m_seed;
    QRandomGenerator m_generator;
};

/// How often to repeat: `normal`, or the environment variable QUORRA_ROUNDS.
int randomRounds(int normal);
