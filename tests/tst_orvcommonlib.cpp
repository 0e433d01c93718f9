#include "orvcommonlib.h"
#include "testmain.h"

#include <QtTest/QTest>

#include <type_traits>
#include <utility>

class tst_orvcommonlib : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void holdsNoData();
    void isCopiedAndMoved();
};

void tst_orvcommonlib::holdsNoData()
{
    const orvcommonlib first;
    orvcommonlib second;
    second = first;
    QVERIFY(std::is_empty<orvcommonlib>::value);
}

// By functions of the library, which clients of every compiler find there.
void tst_orvcommonlib::isCopiedAndMoved()
{
    orvcommonlib first;
    orvcommonlib second(first);
    orvcommonlib third(std::move(second));
    first = third;
    third = std::move(first);
    QVERIFY(std::is_nothrow_move_constructible<orvcommonlib>::value);
    QVERIFY(std::is_nothrow_move_assignable<orvcommonlib>::value);
}

ORV_TEST_MAIN(tst_orvcommonlib)

#include "tst_orvcommonlib.moc"
