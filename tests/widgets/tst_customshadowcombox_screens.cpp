#include "shadowcombotesting.h"
#include "testmain.h"

#include <QtGui/QGuiApplication>
#include <QtGui/qpa/qplatformscreen.h>
#include <QtGui/qpa/qwindowsysteminterface.h>
#include <QtGui/QScreen>

using ShadowComboTesting::Combo;

namespace {

// A screen left of the first one and higher than it, with a bar at its bottom.
const QRect kScreen(-1024, -300, 1024, 700);
const QRect kAvailable(-1024, -300, 1024, 660);

class LeftScreen : public QPlatformScreen
{
public:
    QRect geometry() const override { return kScreen; }
    QRect availableGeometry() const override { return kAvailable; }
    int depth() const override { return 32; }
    QImage::Format format() const override { return QImage::Format_RGB32; }
};

} // namespace

/// The shadow combo box on a second screen, in negative coordinates.
class tst_CustomShadowComboxScreens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void opensOnTheScreenOfItsHeader_data();
    void opensOnTheScreenOfItsHeader();

private:
    LeftScreen *m_screen = nullptr;
};

void tst_CustomShadowComboxScreens::initTestCase()
{
    m_screen = new LeftScreen;
    QWindowSystemInterface::handleScreenAdded(m_screen);
    QCOMPARE(QGuiApplication::screens().size(), 2);
    QVERIFY(!QGuiApplication::primaryScreen()->geometry().intersects(kScreen));
}

void tst_CustomShadowComboxScreens::cleanupTestCase()
{
    QWindowSystemInterface::handleScreenRemoved(m_screen);
}

void tst_CustomShadowComboxScreens::opensOnTheScreenOfItsHeader_data()
{
    QTest::addColumn<QPoint>("pos"); // of the combo box
    QTest::addColumn<bool>("above");
    // Three rows take 168 pixels; the header is 48 high.
    const int bottom = kAvailable.top() + kAvailable.height();
    QTest::newRow("top") << QPoint(-900, -300) << false;
    QTest::newRow("just fits") << QPoint(-900, bottom - 48 - 168) << false;
    QTest::newRow("one pixel short") << QPoint(-900, bottom - 48 - 168 + 1) << true;
    QTest::newRow("behind the bar") << QPoint(-900, bottom - 20) << true;
    QTest::newRow("across the edge, most of it on the first screen") << QPoint(-20, bottom - 100) << true;
    QTest::newRow("first screen") << QPoint(10, bottom - 100) << false;
}

void tst_CustomShadowComboxScreens::opensOnTheScreenOfItsHeader()
{
    QFETCH(QPoint, pos);
    QFETCH(bool, above);
    Combo combo(nullptr);
    for (int row = 0; row < 3; ++row)
        combo.addItem(QString::number(row), 16);
    combo.setWindowFlags(Qt::FramelessWindowHint);
    combo.setGeometry(QRect(pos, QSize(200, 48)));
    combo.show();
    QVERIFY(QTest::qWaitForWindowExposed(&combo));
    QCOMPARE(combo.mapToGlobal(QPoint(0, 0)), pos);
    combo.showPopup();
    QCOMPARE(combo.popup()->pos(), QPoint(pos.x() - 4, above ? pos.y() - 168 : pos.y() + 48));
    QCOMPARE(combo.arrow().contains(QLatin1String("up.png")), above);
}

ORV_TEST_MAIN(tst_CustomShadowComboxScreens)

#include "tst_customshadowcombox_screens.moc"
