#include "orvcommonlib.h"
#include "testmain.h"

#include <QtTest/QTest>

#include <type_traits>

class tst_orvcommonlib : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void holdsNoData();
};

void tst_orvcommonlib::holdsNoData()
{
    const orvcommonlib first;
    orvcommonlib second;
    second = first;
    QVERIFY(std::is_empty<orvcommonlib>::value);
}

ORV_TEST_MAIN(tst_orvcommonlib)

#include "tst_orvcommonlib.moc"
