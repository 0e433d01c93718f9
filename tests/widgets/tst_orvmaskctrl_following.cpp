#include "orvmaskctrl.h"
#include "popupdlgwithmask.h"
#include "testmain.h"

#include <QtCore/QEvent>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

#include <functional>
#include <memory>

namespace {

/// A window that does something when a child comes to it, and looks at its mask while it is being resized.
class Window : public QWidget
{
public:
    std::function<void()> onChild;
    QVector<QSize> maskSizes;

protected:
    void childEvent(QChildEvent *event) override
    {
        if (event->added() && onChild)
            onChild();
    }
    void resizeEvent(QResizeEvent *) override
    {
        if (const auto *mask = findChild<QLabel *>())
            maskSizes << mask->size();
    }
};

} // namespace

/// The mask as it follows its window. The instance of the process lives through all of these functions, in the
/// order in which they stand: each begins and ends without a window.
class tst_OrvMaskCtrlFollowing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void isOffAtFirst();
    void takesTheWindowsSizeAtOnce();
    void hasTheSizeAtEveryMoment();
    void hasTheSizeOfAHiddenWindow();
    void staysWhereItIsOnceSwitchedOff();
    void losesItsMask();
    void coversTheNextWindow();
    void coversTheNextWindowAtOnce();
    void coversTheWindowOfTheNextDialog();
    void leavesALivingWindowAlone();
    void isAskedForWhileItCovers();
    void coversNoOtherWindowWhileOff();
    void isDeletedWhileItCovers();

private:
    static OrvMaskCtrl *instance() { return OrvMaskCtrl::getInstance(nullptr); }
    void newWindow()
    {
        m_window = std::make_unique<Window>();
        m_window->resize(320, 240);
        OrvMaskCtrl::getInstance(m_window.get());
    }

    std::unique_ptr<Window> m_window;
    int m_owner = 0;
};

void tst_OrvMaskCtrlFollowing::init()
{
    if (QByteArray(QTest::currentTestFunction()) != "isOffAtFirst")
        OrvMaskCtrl::setFollowsWindow(true);
}

void tst_OrvMaskCtrlFollowing::cleanup()
{
    m_window.reset();
    if (OrvMaskCtrl *mask = instance())
        mask->hideMasking(&m_owner);
    OrvMaskCtrl::setFollowsWindow(false);
}

void tst_OrvMaskCtrlFollowing::isOffAtFirst()
{
    QVERIFY(!OrvMaskCtrl::followsWindow());
    newWindow(); // the window of the first call
    m_window->resize(400, 300);
    QCOMPARE(instance()->getMaskWidget()->size(), QSize(320, 240));
    instance()->showMasking(&m_owner);
    QCOMPARE(instance()->getMaskWidget()->size(), QSize(320, 240));
    m_window.reset();
    newWindow();
    QVERIFY(!instance()->getMaskWidget());
}

void tst_OrvMaskCtrlFollowing::takesTheWindowsSizeAtOnce()
{
    QVERIFY(OrvMaskCtrl::followsWindow());
    OrvMaskCtrl::setFollowsWindow(false);
    QVERIFY(!OrvMaskCtrl::followsWindow());
    OrvMaskCtrl::setFollowsWindow(true);
    newWindow();
    OrvMaskCtrl::setFollowsWindow(false);
    auto *mask = qobject_cast<QLabel *>(instance()->getMaskWidget());
    m_window->resize(400, 300);
    m_window->show();
    QCOMPARE(mask->size(), QSize(320, 240));
    OrvMaskCtrl::setFollowsWindow(true);
    QCOMPARE(mask->geometry(), QRect(0, 0, 400, 300));
    QCOMPARE(mask->pixmap(Qt::ReturnByValue).size(), QSize(400, 300));
    QVERIFY(mask->isHidden());
}

void tst_OrvMaskCtrlFollowing::hasTheSizeAtEveryMoment()
{
    newWindow();
    m_window->show();
    instance()->showMasking(&m_owner);
    auto *mask = qobject_cast<QLabel *>(instance()->getMaskWidget());
    QVERIFY(mask->isVisible());
    m_window->maskSizes.clear();
    const QVector<QSize> sizes{{640, 480}, {200, 100}, {200, 500}};
    for (const QSize &size : sizes) {
        m_window->resize(size);
        QCOMPARE(mask->geometry(), QRect(QPoint(0, 0), size));
        QCOMPARE(mask->pixmap(Qt::ReturnByValue).size(), size);
    }
    QCOMPARE(m_window->maskSizes, sizes); // as the window's own handler saw it
    instance()->hideMasking(&m_owner);
    m_window->resize(333, 222);
    QCOMPARE(mask->size(), QSize(333, 222));
}

void tst_OrvMaskCtrlFollowing::hasTheSizeOfAHiddenWindow()
{
    newWindow();
    m_window->resize(500, 400);
    QCOMPARE(instance()->getMaskWidget()->size(), QSize(500, 400));
    const auto *mask = m_window->findChild<QLabel *>();
    m_window->resize(600, 400);
    instance()->showMasking(&m_owner);
    QCOMPARE(mask->size(), QSize(600, 400));
    m_window->resize(700, 400);
    m_window->show();
    QCOMPARE(mask->size(), QSize(700, 400));
}

void tst_OrvMaskCtrlFollowing::staysWhereItIsOnceSwitchedOff()
{
    newWindow();
    m_window->show();
    const QWidget *mask = instance()->getMaskWidget();
    m_window->resize(500, 400);
    OrvMaskCtrl::setFollowsWindow(false);
    m_window->resize(600, 500);
    instance()->showMasking(&m_owner);
    QCOMPARE(mask->size(), QSize(500, 400));
}

void tst_OrvMaskCtrlFollowing::losesItsMask()
{
    newWindow();
    m_window->show();
    delete instance()->getMaskWidget();
    m_window->resize(500, 400);
    QVERIFY(!instance()->getMaskWidget());
    QVERIFY(m_window->children().isEmpty());
}

void tst_OrvMaskCtrlFollowing::coversTheNextWindow()
{
    newWindow();
    m_window.reset();
    QVERIFY(!instance()->getMaskWidget());
    newWindow();
    const QWidget *mask = instance()->getMaskWidget();
    QVERIFY(mask);
    QCOMPARE(mask->parentWidget(), m_window.get());
    m_window->show();
    QVERIFY(mask->isHidden());
    instance()->showMasking(&m_owner);
    QVERIFY(mask->isVisible());
}

void tst_OrvMaskCtrlFollowing::coversTheNextWindowAtOnce()
{
    newWindow();
    instance()->showMasking(&m_owner);
    m_window.reset();
    m_window = std::make_unique<Window>();
    m_window->show();
    OrvMaskCtrl::getInstance(m_window.get());
    QVERIFY(instance()->getMaskWidget()->isVisible());
    instance()->hideMasking(&m_owner);
    QVERIFY(!instance()->getMaskWidget()->isVisible());
}

void tst_OrvMaskCtrlFollowing::coversTheWindowOfTheNextDialog()
{
    newWindow();
    m_window.reset();
    m_window = std::make_unique<Window>();
    m_window->show();
    PopupDlgWithMask dialog(QString(), QSize(100, 100), 0, 0, 0, 0, QString(), QString(), QString(),
                            QString(), true, false, true, false, m_window.get());
    dialog.show(true);
    QCOMPARE(instance()->getMaskWidget()->parentWidget(), m_window.get());
    QVERIFY(instance()->getMaskWidget()->isVisible());
    dialog.hide();
    QVERIFY(!instance()->getMaskWidget()->isVisible());
    dialog.setParent(nullptr);
}

void tst_OrvMaskCtrlFollowing::leavesALivingWindowAlone()
{
    newWindow();
    QWidget other;
    OrvMaskCtrl::getInstance(&other);
    QCOMPARE(instance()->getMaskWidget()->parentWidget(), m_window.get());
    QVERIFY(other.children().isEmpty());
}

void tst_OrvMaskCtrlFollowing::isAskedForWhileItCovers()
{
    QWidget other;
    m_window = std::make_unique<Window>();
    m_window->show();
    m_window->onChild = [&] {
        OrvMaskCtrl::getInstance(&other)->showMasking(&m_owner);
    };
    OrvMaskCtrl::getInstance(m_window.get());
    m_window->onChild = nullptr;
    QVERIFY(other.children().isEmpty());
    QCOMPARE(m_window->findChildren<QLabel *>().size(), 1);
    QVERIFY(instance()->getMaskWidget()->isVisible());
}

void tst_OrvMaskCtrlFollowing::coversNoOtherWindowWhileOff()
{
    newWindow();
    m_window.reset();
    OrvMaskCtrl::setFollowsWindow(false);
    newWindow();
    QVERIFY(!instance()->getMaskWidget());
    OrvMaskCtrl::setFollowsWindow(true);
    QVERIFY(!instance()->getMaskWidget());
    OrvMaskCtrl::getInstance(m_window.get());
    QVERIFY(instance()->getMaskWidget());
}

void tst_OrvMaskCtrlFollowing::isDeletedWhileItCovers()
{
    m_window = std::make_unique<Window>();
    m_window->show();
    m_window->onChild = [] {
        OrvMaskCtrl::deleteInstance();
    };
    QVERIFY(!OrvMaskCtrl::getInstance(m_window.get()));
    m_window->onChild = nullptr;
    OrvMaskCtrl::setFollowsWindow(true);
    m_window->resize(700, 100);
    QWidget other;
    QVERIFY(!OrvMaskCtrl::getInstance(&other));
    QVERIFY(other.children().isEmpty());
}

ORV_TEST_MAIN(tst_OrvMaskCtrlFollowing)

#include "tst_orvmaskctrl_following.moc"
