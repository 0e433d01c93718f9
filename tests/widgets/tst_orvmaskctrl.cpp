#include "orvmaskctrl.h"

#include "insideloop.h"
#include "logcapture.h"
#include "pictures.h"
#include "testmain.h"

#include <QtCore/QEvent>
#include <QtCore/QMetaMethod>
#include <QtCore/QProcess>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <atomic>
#include <functional>
#include <memory>
#include <thread>
#include <type_traits>
#include <vector>

// Only the class itself creates and deletes its instance.
static_assert(!std::is_default_constructible<OrvMaskCtrl>::value);
static_assert(!std::is_constructible<OrvMaskCtrl, QWidget *>::value);
static_assert(!std::is_destructible<OrvMaskCtrl>::value);

/// The instance never comes back once it was deleted, so main() runs each of these functions in a process of
/// its own.
class tst_OrvMaskCtrl : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void coversTheWindowOfTheFirstCall();
    void ignoresTheWindowOfLaterCalls();
    void keepsItsSizeWhenTheWindowChanges();
    void darkensTheWindow();
    void comesAboveWhatWasAddedLater();
    void staysUntilTheLastOwnerLetsGo();
    void countsAnOwnerOnce();
    void ignoresStrangers();
    void goesAtOnceForANullOwner();
    void takesNullForAnOwner();
    void neverComesBackOnceDeleted();
    void isCreatedAfterADeletionThatFoundNothing();
    void leavesItsMaskToTheWindow();
    void showsNothingWithoutWindow();
    void showsNothingWhenItsWindowIsGone();
    void coversAWindowWithoutSize();
    void isCreatedOnceByConcurrentCalls();
    void isAskedForWhileItIsCreated();
    void ownerRegisteredWhileItIsCreated();
    void isDeletedWhileItIsCreated();
    void maskIsDestroyedAsItComesToTheFront() { destroyMaskIn(QEvent::ZOrderChange); }
    void maskIsDestroyedAsItIsShown() { destroyMaskIn(QEvent::ShowToParent); }
    void maskIsDestroyedAsItIsHidden() { destroyMaskIn(QEvent::HideToParent); }

private:
    void destroyMaskIn(QEvent::Type type);

    QWidget m_window;
    int m_first = 0;
    int m_second = 0;
    int m_third = 0;
};

void tst_OrvMaskCtrl::coversTheWindowOfTheFirstCall()
{
    m_window.resize(320, 240);
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&m_window);
    QVERIFY(mask);
    QVERIFY(!mask->parent());
    QCOMPARE(mask->metaObject(), &QObject::staticMetaObject);

    auto *label = qobject_cast<QLabel *>(mask->getMaskWidget());
    QVERIFY(label);
    QCOMPARE(label->parentWidget(), &m_window);
    QCOMPARE(label->geometry(), QRect(0, 0, 320, 240));
    QCOMPARE(label->windowFlags(), Qt::WindowFlags(Qt::FramelessWindowHint));
    QVERIFY(!label->isWindow());
    QVERIFY(label->testAttribute(Qt::WA_TranslucentBackground));
    QVERIFY(label->isHidden());

    const QImage expected = QPixmap(QStringLiteral(":/images/images/mask.png"))
                                .scaled(320, 240, Qt::IgnoreAspectRatio, Qt::FastTransformation)
                                .toImage();
    QCOMPARE(expected.size(), QSize(320, 240));
    QCOMPARE(differingPixels(label->pixmap(Qt::ReturnByValue).toImage(), expected), 0);

    m_window.show();
    QVERIFY(!label->isVisible());
}

void tst_OrvMaskCtrl::ignoresTheWindowOfLaterCalls()
{
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&m_window);
    QWidget other;
    QCOMPARE(OrvMaskCtrl::getInstance(&other), mask);
    QCOMPARE(OrvMaskCtrl::getInstance(nullptr), mask);
    QCOMPARE(mask->getMaskWidget()->parentWidget(), &m_window);
    QVERIFY(other.children().isEmpty());
    QCOMPARE(m_window.children().size(), 1);
}

void tst_OrvMaskCtrl::keepsItsSizeWhenTheWindowChanges()
{
    m_window.resize(320, 240);
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&m_window);
    m_window.resize(640, 480);
    m_window.show();
    mask->showMasking(&m_first);
    QCOMPARE(mask->getMaskWidget()->geometry(), QRect(0, 0, 320, 240));
}

void tst_OrvMaskCtrl::darkensTheWindow()
{
    m_window.resize(320, 240);
    m_window.setStyleSheet(QStringLiteral("background-color:white;"));
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&m_window);
    const auto lightest = [this] {
        const QImage picture = m_window.grab().toImage();
        int value = 0;
        for (int y = 0; y < picture.height(); y += 5) {
            for (int x = 0; x < picture.width(); x += 5)
                value = qMax(value, picture.pixelColor(x, y).lightness());
        }
        return value;
    };
    QCOMPARE(lightest(), 255);
    mask->showMasking(&m_first);
    QVERIFY(lightest() < 200);
    QVERIFY(lightest() > 0);
    mask->hideMasking(&m_first);
    QCOMPARE(lightest(), 255);
}

void tst_OrvMaskCtrl::comesAboveWhatWasAddedLater()
{
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&m_window);
    QPushButton button(&m_window);
    QCOMPARE(m_window.children().constLast(), &button);
    mask->showMasking(&m_first);
    QCOMPARE(m_window.children().constLast(), mask->getMaskWidget());
    button.raise();
    mask->showMasking(&m_first); // a second call of the same owner raises as well
    QCOMPARE(m_window.children().constLast(), mask->getMaskWidget());
}

void tst_OrvMaskCtrl::staysUntilTheLastOwnerLetsGo()
{
    m_window.show();
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&m_window);
    mask->showMasking(&m_first);
    QVERIFY(mask->getMaskWidget()->isVisible());
    mask->showMasking(&m_second);
    QVERIFY(mask->getMaskWidget()->isVisible());
    mask->hideMasking(&m_first);
    QVERIFY(mask->getMaskWidget()->isVisible());
    mask->hideMasking(&m_second);
    QVERIFY(!mask->getMaskWidget()->isVisible());
    mask->showMasking(&m_second);
    QVERIFY(mask->getMaskWidget()->isVisible());
}

void tst_OrvMaskCtrl::countsAnOwnerOnce()
{
    m_window.show();
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&m_window);
    mask->showMasking(&m_first);
    mask->showMasking(&m_first);
    mask->hideMasking(&m_first);
    QVERIFY(!mask->getMaskWidget()->isVisible());
}

void tst_OrvMaskCtrl::ignoresStrangers()
{
    m_window.show();
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&m_window);
    mask->hideMasking(&m_second);
    QVERIFY(!mask->getMaskWidget()->isVisible());
    mask->showMasking(&m_first);
    mask->hideMasking(&m_second);
    QVERIFY(mask->getMaskWidget()->isVisible());
}

void tst_OrvMaskCtrl::goesAtOnceForANullOwner()
{
    m_window.show();
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&m_window);
    mask->showMasking(&m_first);
    mask->showMasking(&m_second);
    mask->hideMasking(nullptr);
    QVERIFY(!mask->getMaskWidget()->isVisible());

    // The owners are still registered.
    mask->showMasking(&m_third);
    QVERIFY(mask->getMaskWidget()->isVisible());
    mask->hideMasking(&m_third);
    mask->hideMasking(&m_second);
    QVERIFY(mask->getMaskWidget()->isVisible());
    mask->hideMasking(&m_first);
    QVERIFY(!mask->getMaskWidget()->isVisible());
}

void tst_OrvMaskCtrl::takesNullForAnOwner()
{
    m_window.show();
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&m_window);
    mask->showMasking(nullptr);
    QVERIFY(mask->getMaskWidget()->isVisible());
    mask->showMasking(&m_first);
    mask->hideMasking(&m_first);
    QVERIFY(mask->getMaskWidget()->isVisible());
    mask->hideMasking(nullptr);
    QVERIFY(!mask->getMaskWidget()->isVisible());
    mask->showMasking(&m_first);
    mask->hideMasking(&m_first);
    QVERIFY(!mask->getMaskWidget()->isVisible());
}

void tst_OrvMaskCtrl::neverComesBackOnceDeleted()
{
    QVERIFY(OrvMaskCtrl::getInstance(&m_window));
    OrvMaskCtrl::deleteInstance();
    QVERIFY(!OrvMaskCtrl::getInstance(&m_window));
    OrvMaskCtrl::deleteInstance();
    QWidget other;
    QVERIFY(!OrvMaskCtrl::getInstance(&other));
    QVERIFY(!OrvMaskCtrl::getInstance(nullptr));
    QVERIFY(other.children().isEmpty());
}

void tst_OrvMaskCtrl::isCreatedAfterADeletionThatFoundNothing()
{
    OrvMaskCtrl::deleteInstance();
    QVERIFY(OrvMaskCtrl::getInstance(&m_window));
}

void tst_OrvMaskCtrl::leavesItsMaskToTheWindow()
{
    m_window.show();
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&m_window);
    mask->showMasking(&m_first);
    const QPointer<QWidget> label = mask->getMaskWidget();
    OrvMaskCtrl::deleteInstance();
    QVERIFY(label);
    QVERIFY(label->isVisible());
}

void tst_OrvMaskCtrl::showsNothingWithoutWindow()
{
    const LogCapture log;
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(nullptr);
    QVERIFY(mask);
    QVERIFY(!mask->getMaskWidget());
    const int windows = QApplication::topLevelWidgets().size();
    mask->showMasking(&m_first);
    mask->hideMasking(&m_first);
    mask->showMasking(nullptr);
    mask->hideMasking(nullptr);
    QCOMPARE(QApplication::topLevelWidgets().size(), windows);
    QCOMPARE(OrvMaskCtrl::getInstance(&m_window), mask);
    QVERIFY(!mask->getMaskWidget());
    OrvMaskCtrl::deleteInstance();
    QVERIFY(!OrvMaskCtrl::getInstance(&m_window));
    QCOMPARE(log.texts(), QStringList());
}

void tst_OrvMaskCtrl::showsNothingWhenItsWindowIsGone()
{
    auto window = std::make_unique<QWidget>();
    window->show();
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(window.get());
    mask->showMasking(&m_first);
    window.reset();
    QVERIFY(!mask->getMaskWidget());
    mask->showMasking(&m_second);
    mask->hideMasking(&m_first);
    mask->hideMasking(&m_second);
    mask->hideMasking(nullptr);
    QCOMPARE(OrvMaskCtrl::getInstance(&m_window), mask);
    QVERIFY(!mask->getMaskWidget());
    OrvMaskCtrl::deleteInstance();
}

void tst_OrvMaskCtrl::coversAWindowWithoutSize()
{
    const LogCapture log;
    m_window.resize(0, 0);
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&m_window);
    QCOMPARE(mask->getMaskWidget()->geometry(), QRect(0, 0, 0, 0));
    mask->showMasking(&m_first);
    mask->hideMasking(&m_first);
    QCOMPARE(log.texts(), QStringList());
}

void tst_OrvMaskCtrl::isCreatedOnceByConcurrentCalls()
{
    constexpr int kThreads = 8;
    std::atomic<int> waiting{kThreads};
    std::vector<OrvMaskCtrl *> instances(kThreads);
    std::vector<std::thread> threads;
    threads.reserve(kThreads);
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([&waiting, &instance = instances[size_t(i)]] {
            --waiting;
            while (waiting > 0) {
            }
            instance = OrvMaskCtrl::getInstance(nullptr);
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    for (OrvMaskCtrl *instance : instances) {
        QVERIFY(instance);
        QCOMPARE(instance, instances.front());
    }
}

namespace {

/// A window that does something when a child comes to it.
class Mother : public QWidget
{
public:
    std::function<void()> onChild;

protected:
    void childEvent(QChildEvent *event) override
    {
        if (event->added() && onChild)
            onChild();
    }
};

} // namespace

void tst_OrvMaskCtrl::isAskedForWhileItIsCreated()
{
    Mother mother;
    OrvMaskCtrl *nested = nullptr;
    mother.onChild = [&] {
        nested = OrvMaskCtrl::getInstance(&m_window);
    };
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&mother);
    QVERIFY(mask);
    QCOMPARE(nested, mask);
    QCOMPARE(mask->getMaskWidget()->parentWidget(), &mother);
    QVERIFY(m_window.children().isEmpty());
}

void tst_OrvMaskCtrl::ownerRegisteredWhileItIsCreated()
{
    Mother mother;
    mother.show();
    mother.onChild = [&] {
        OrvMaskCtrl::getInstance(nullptr)->showMasking(&m_first);
    };
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(&mother);
    QVERIFY(mask->getMaskWidget()->isVisible());
    mask->hideMasking(&m_first);
    QVERIFY(!mask->getMaskWidget()->isVisible());
}

void tst_OrvMaskCtrl::isDeletedWhileItIsCreated()
{
    Mother mother;
    mother.show();
    mother.onChild = [] {
        OrvMaskCtrl::deleteInstance();
    };
    QVERIFY(!OrvMaskCtrl::getInstance(&mother));
    QVERIFY(!OrvMaskCtrl::getInstance(&mother));
    const auto labels = mother.findChildren<QLabel *>();
    for (const QLabel *label : labels)
        QVERIFY(!label->isVisible());
}

void tst_OrvMaskCtrl::destroyMaskIn(QEvent::Type type)
{
    auto window = std::make_unique<QWidget>();
    window->show();
    OrvMaskCtrl *mask = OrvMaskCtrl::getInstance(window.get());
    InsideLoop::EventHook hook(mask->getMaskWidget(), type, [&](QEvent *) {
        window.reset();
        OrvMaskCtrl::deleteInstance();
        return true; // the mask is gone
    });
    new QWidget(window.get()); // lies above the mask
    mask->showMasking(&m_first);
    if (OrvMaskCtrl *alive = OrvMaskCtrl::getInstance(nullptr))
        alive->hideMasking(&m_first);
    QVERIFY(!window);
    QVERIFY(!OrvMaskCtrl::getInstance(nullptr));
}

static QStringList testFunctions()
{
    QStringList functions;
    const QMetaObject &tests = tst_OrvMaskCtrl::staticMetaObject;
    for (int i = tests.methodOffset(); i < tests.methodCount(); ++i)
        functions << QString::fromLatin1(tests.method(i).name());
    return functions;
}

/// Stops at the first failure, so that a report that goes to a file is the one that matters.
static int runEachInItsOwnProcess(const QString &program, const QStringList &arguments)
{
    const QStringList functions = testFunctions();
    for (const QString &function : functions) {
        const int result = QProcess::execute(program, arguments + QStringList{function});
        if (result != 0)
            return result;
    }
    return 0;
}

int main(int argc, char **argv)
{
    QStringList arguments;
    bool functionNamed = false;
    for (int i = 1; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
        functionNamed = functionNamed || testFunctions().contains(arguments.constLast());
    }
    if (!functionNamed)
        return runEachInItsOwnProcess(QString::fromLocal8Bit(argv[0]), arguments);

    const QApplication application(argc, argv);
    tst_OrvMaskCtrl tests;
    return TestMain::run(&tests, argc, argv);
}

#include "tst_orvmaskctrl.moc"
