#include "orvcommonlib.h"
#include "orvcommonlib_version.h"

#include "testmain.h"

#include <QtCore/QVersionNumber>
#include <QtTest/QTest>

static_assert(orvcommonlibVersionAtLeast(ORVCOMMONLIB_VERSION_MAJOR, ORVCOMMONLIB_VERSION_MINOR,
                                         ORVCOMMONLIB_VERSION_PATCH));
static_assert(orvcommonlibVersionAtLeast(0, 255, 255));
static_assert(orvcommonlibVersionAtLeast(1));
static_assert(!orvcommonlibVersionAtLeast(ORVCOMMONLIB_VERSION_MAJOR, ORVCOMMONLIB_VERSION_MINOR,
                                          ORVCOMMONLIB_VERSION_PATCH + 1));
static_assert(!orvcommonlibVersionAtLeast(ORVCOMMONLIB_VERSION_MAJOR, ORVCOMMONLIB_VERSION_MINOR + 1));
static_assert(!orvcommonlibVersionAtLeast(ORVCOMMONLIB_VERSION_MAJOR + 1));
static_assert(ORVCOMMONLIB_VERSION_CHECK(1, 2, 3) == 0x010203);

// What is deprecated later than the version that clients leave behind is still there.
static_assert(ORV_DEPRECATED_SINCE(1, 1));
static_assert(!ORV_DEPRECATED_SINCE(1, 0));

#undef ORV_DISABLE_DEPRECATED_BEFORE
#define ORV_DISABLE_DEPRECATED_BEFORE ORVCOMMONLIB_VERSION_CHECK(1, 2, 0)
static_assert(!ORV_DEPRECATED_SINCE(1, 2));
static_assert(ORV_DEPRECATED_SINCE(1, 3));

class VersionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isOneEverywhere();
};

void VersionTest::isOneEverywhere()
{
    const QVersionNumber version(ORVCOMMONLIB_VERSION_MAJOR, ORVCOMMONLIB_VERSION_MINOR,
                                 ORVCOMMONLIB_VERSION_PATCH);
    QCOMPARE(QStringLiteral(ORVCOMMONLIB_VERSION_STRING), version.toString());
    QCOMPARE(totalcommon::version(), version.toString());
    QCOMPARE(QStringLiteral(ORV_PROJECT_VERSION), version.toString());
}

ORV_TEST_MAIN(VersionTest)

#include "tst_version.moc"
