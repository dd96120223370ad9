// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/disjoint_sets.h"

#include <QTest>

using quorra::DisjointSets;

class DisjointSetsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void startsWithSingleMembers()
    {
        DisjointSets sets(3);
        QCOMPARE(sets.find(0), std::size_t(0));
        QCOMPARE(sets.find(2), std::size_t(2));
    }

    void joinsOverOtherMembers()
    {
        DisjointSets sets(6);
        sets.join(0, 1);
        sets.join(3, 4);
        QVERIFY(sets.find(0) != sets.find(3));
        sets.join(1, 4);
        QCOMPARE(sets.find(0), sets.find(3));
        QVERIFY(sets.find(0) != sets.find(2));
        QVERIFY(sets.find(0) != sets.find(5));
    }

    void joiningAgainChangesNothing()
    {
        DisjointSets sets(2);
        sets.join(0, 1);
        sets.join(1, 0);
        sets.join(0, 0);
        QCOMPARE(sets.find(0), sets.find(1));
    }
};

QTEST_APPLESS_MAIN(DisjointSetsTest)
#include "disjoint_sets_test.moc"
