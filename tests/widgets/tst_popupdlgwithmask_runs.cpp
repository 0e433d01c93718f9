#include "insideloop.h"
#include "logcapture.h"
#include "maskeddialogs.h"
#include "orvmaskctrl.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtGui/QWindow>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>

#include <private/qobject_p.h>
#include <private/qthread_p.h>

using namespace MaskedDialogs;

Q_DECLARE_METATYPE(Action)

namespace {

/// Notes what the blocking calls ask of the virtual show(), and whether the mask was there before.
class ShowSpy : public PopupDlgWithMask
{
public:
    using PopupDlgWithMask::PopupDlgWithMask;
    void show(bool argument) override
    {
        notes << qMakePair(argument, OrvMaskCtrl::getInstance(nullptr)->getMaskWidget()->isVisible());
        PopupDlgWithMask::show(argument);
    }
    QVector<QPair<bool, bool>> notes;
};

} // namespace

/// The blocking calls of PopupDlgWithMask and the many ways in which they end.
class tst_PopupDlgWithMaskRuns : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void maskThenTheVirtualShow();
    void raisedOnceItIsShown();
    void buttonsEndExec_data();
    void buttonsEndExec();
    void ignoredCloseStillEndsExec();
    void hidingEndsExec_data();
    void hidingEndsExec();
    void resultIsNotReset();
    void forceToExitWithoutExec();
    void execWithPosMoves();
    void execWithPosUsesTheRecordedLoop();
    void execWithPosAfterQuit();
    void innermostRunIsEnded();
    void destroyedInItsLoop_data();
    void destroyedInItsLoop();
    void destroyedInItsLoopAtPos_data() { destroyedInItsLoop_data(); }
    void destroyedInItsLoopAtPos();
    void hiddenWhileBeingShown_data();
    void hiddenWhileBeingShown();
    void destroyedByTheMask_data();
    void destroyedByTheMask();
    void secondDialogFromASlot();
    void applicationQuits();

private:
    static bool isMasked() { return OrvMaskCtrl::getInstance(nullptr)->getMaskWidget()->isVisible(); }

    QWidget m_window;
};

void tst_PopupDlgWithMaskRuns::initTestCase()
{
    // A dialog that was never shown and goes with its window does not make the mask in that window's name.
    auto *brief = new QWidget;
    new PopupDlgWithMask(QString(), QSize(400, 200), 0, 0, 0, 0, QString(), QString(), QString(), QString(),
                         true, false, true, false, brief);
    delete brief;

    m_window.resize(800, 600);
    m_window.show();
    OrvMaskCtrl::getInstance(&m_window);
    QCOMPARE(OrvMaskCtrl::getInstance(nullptr)->getMaskWidget()->parentWidget(), &m_window);
}

void tst_PopupDlgWithMaskRuns::maskThenTheVirtualShow()
{
    ShowSpy dialog(QString(), QSize(400, 200), 0, 0, 0, 0, QString(), QString(), QString(), QString(), true,
                   false, true, false, &m_window);
    InsideLoop::run([&] { dialog.hide(); });
    dialog.exec();
    QPoint pos(5, 5);
    InsideLoop::run([&] { dialog.hide(); });
    dialog.execWithPos(pos);
    QCOMPARE(dialog.notes, (QVector<QPair<bool, bool>>{{true, true}, {true, true}}));
}

void tst_PopupDlgWithMaskRuns::raisedOnceItIsShown()
{
    const auto dialog = makeMessage();
    QStringList order;
    InsideLoop::EventHook shown(dialog.get(), QEvent::ShowToParent, [&](QEvent *) {
        order << QStringLiteral("shown");
        return false;
    });
    InsideLoop::EventHook raised(dialog.get(), QEvent::ZOrderChange, [&](QEvent *) {
        order << QStringLiteral("raised");
        return false;
    });
    const auto orderWhen = [&](const Action &call) {
        order.clear();
        InsideLoop::run([&] { dialog->hide(); });
        call(dialog.get());
        return order.mid(order.indexOf(QStringLiteral("shown")));
    };
    const QStringList expected{QStringLiteral("shown"), QStringLiteral("raised")};
    QCOMPARE(orderWhen([](PopupDlgWithMask *it) { it->exec(); }), expected);
    QCOMPARE(orderWhen([](PopupDlgWithMask *it) {
                 QPoint pos(5, 5);
                 it->execWithPos(pos);
             }),
             expected);
}

void tst_PopupDlgWithMaskRuns::buttonsEndExec_data()
{
    QTest::addColumn<bool>("pages");
    QTest::addColumn<bool>("atPos");
    QTest::addColumn<bool>("confirm");
    QTest::addColumn<bool>("deleteOnClose");
    for (const bool pages : {false, true}) {
        for (const bool atPos : {false, true}) {
            for (const bool confirm : {false, true}) {
                for (const bool deleteOnClose : {false, true}) {
                    QTest::addRow("%s, %s, %s%s", pages ? "pages" : "message", atPos ? "execWithPos" : "exec",
                                  confirm ? "confirm" : "close", deleteOnClose ? ", deletes itself" : "")
                        << pages << atPos << confirm << deleteOnClose;
                }
            }
        }
    }
}

void tst_PopupDlgWithMaskRuns::buttonsEndExec()
{
    QFETCH(const bool, pages);
    QFETCH(const bool, atPos);
    QFETCH(const bool, confirm);
    QFETCH(const bool, deleteOnClose);
    Options options;
    options.deleteOnClose = deleteOnClose;
    const QPointer<PopupDlgWithMask> dialog = pages ? newPages(2, 2, 2, options) : newMessage(options);
    QSignalSpy closed(dialog, &PopupDlgWithMask::closeMsgBox);
    InsideLoop::run([&] {
        QVERIFY(dialog->isVisible());
        InsideLoop::click(confirm ? confirmButtonOf(dialog) : closeButtonOf(dialog));
    });
    QPoint pos(40, 30);
    QCOMPARE(int(atPos ? dialog->execWithPos(pos) : dialog->exec()), confirm ? 0 : 2);
    QCOMPARE(closed.count(), 1);
    QVERIFY(!dialog || !dialog->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(dialog.isNull(), deleteOnClose);
    delete dialog;
}

void tst_PopupDlgWithMaskRuns::ignoredCloseStillEndsExec()
{
    const auto dialog = makeMessage();
    InsideLoop::EventHook hook(dialog.get(), QEvent::Close, [](QEvent *event) {
        event->ignore();
        return true;
    });
    InsideLoop::run([&] { InsideLoop::click(confirmButtonOf(dialog.get())); });
    QCOMPARE(dialog->exec(), PopupDlgWithMask::Confirmed);
    QVERIFY(dialog->isVisible());
}

void tst_PopupDlgWithMaskRuns::hidingEndsExec_data()
{
    QTest::addColumn<Action>("hide");
    QTest::newRow("hide()") << Action([](PopupDlgWithMask *dialog) { dialog->hide(); });
    QTest::newRow("setVisible()") << Action([](QWidget *dialog) { dialog->setVisible(false); });
    QTest::newRow("setVisible(), of which it does not hear") << Action([](QWidget *dialog) {
        const InsideLoop::EventHook hook(dialog, QEvent::HideToParent, [](QEvent *) { return true; });
        dialog->setVisible(false);
    });
    QTest::newRow("close()") << Action([](PopupDlgWithMask *dialog) { dialog->close(); });
    QTest::newRow("native hide") << Action([](QWidget *dialog) { dialog->windowHandle()->hide(); });
    QTest::newRow("forceToExit()") << Action([](PopupDlgWithMask *dialog) { dialog->forceToExit(); });
}

void tst_PopupDlgWithMaskRuns::hidingEndsExec()
{
    QFETCH(const Action, hide);
    const auto dialog = makeMessage();
    QSignalSpy closed(dialog.get(), &PopupDlgWithMask::closeMsgBox);
    const LogCapture log;
    InsideLoop::run([&] { hide(dialog.get()); });
    QCOMPARE(dialog->exec(), PopupDlgWithMask::NoResult);
    QPoint pos(1, 1);
    InsideLoop::run([&] { hide(dialog.get()); });
    QCOMPARE(dialog->execWithPos(pos), PopupDlgWithMask::NoResult);
    QVERIFY(!dialog->isVisible());
    QCOMPARE(closed.count(), 0);
    QCOMPARE(libraryTexts(log), QStringList());
}

void tst_PopupDlgWithMaskRuns::resultIsNotReset()
{
    const auto dialog = makeMessage();
    InsideLoop::run([&] { InsideLoop::click(closeButtonOf(dialog.get())); });
    QCOMPARE(dialog->exec(), PopupDlgWithMask::Closed);
    InsideLoop::run([&] { dialog->hide(); });
    QCOMPARE(dialog->exec(), PopupDlgWithMask::Closed);
    InsideLoop::run([&] { InsideLoop::click(confirmButtonOf(dialog.get())); });
    QCOMPARE(dialog->exec(), PopupDlgWithMask::Confirmed);
    QPoint pos(7, 8);
    InsideLoop::run([&] { dialog->forceToExit(); });
    QCOMPARE(dialog->execWithPos(pos), PopupDlgWithMask::Confirmed);
}

void tst_PopupDlgWithMaskRuns::forceToExitWithoutExec()
{
    const auto dialog = makePages(2);
    dialog->forceToExit();
    dialog->show(true);
    QVERIFY(pageTimerOf(dialog.get())->isActive());
    dialog->forceToExit();
    QVERIFY(!dialog->isVisible());
    QVERIFY(!pageTimerOf(dialog.get())->isActive());

    Options options;
    options.deleteOnClose = true;
    const QPointer<PopupDlgWithMask> other = newMessage(options);
    other->forceToExit();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!other);
}

void tst_PopupDlgWithMaskRuns::execWithPosMoves()
{
    const auto dialog = makeMessage();
    QPoint pos(123, 45);
    bool shownFirst = false;
    InsideLoop::EventHook hook(dialog.get(), QEvent::Move, [&](QEvent *) {
        shownFirst = shownFirst || (dialog->pos() == pos && dialog->isVisible());
        return false;
    });
    InsideLoop::run([&] {
        QCOMPARE(dialog->pos(), pos);
        dialog->hide();
    });
    dialog->execWithPos(pos);
    QVERIFY(shownFirst);
    QCOMPARE(pos, QPoint(123, 45));
}

void tst_PopupDlgWithMaskRuns::execWithPosUsesTheRecordedLoop()
{
    // A loop that runs cannot run a second time: Qt says so, and the inner call returns at once.
    const auto dialog = makeMessage();
    QPoint pos(10, 10);
    QStringList said;
    InsideLoop::run([&] {
        const LogCapture log;
        QCOMPARE(dialog->execWithPos(pos), PopupDlgWithMask::NoResult);
        said = log.texts().filter(QStringLiteral("QEventLoop::exec"));
        InsideLoop::run([&] { InsideLoop::click(confirmButtonOf(dialog.get())); });
    });
    QCOMPARE(dialog->execWithPos(pos), PopupDlgWithMask::Confirmed);
    QCOMPARE(said.size(), 1);
}

void tst_PopupDlgWithMaskRuns::execWithPosAfterQuit()
{
    // A loop that the dialog did not end stays recorded, and serves the next run; one that it ended does not.
    const auto dialog = makeMessage();
    QPoint pos(10, 10);
    QVector<const QEventLoop *> loops;
    const auto noteLoop = [&loops] {
        loops << QObjectPrivate::get(qApp)->threadData.loadRelaxed()->eventLoops.top();
    };
    InsideLoop::run([&] {
        InsideLoop::run([&] {
            noteLoop();
            QCoreApplication::exit();
        });
        QCOMPARE(dialog->execWithPos(pos), PopupDlgWithMask::NoResult);
    });
    QCoreApplication::exec();
    for (int run = 0; run < 2; ++run) {
        InsideLoop::run([&] {
            noteLoop();
            InsideLoop::click(closeButtonOf(dialog.get()));
        });
        QCOMPARE(dialog->execWithPos(pos), PopupDlgWithMask::Closed);
    }
    QCOMPARE(loops.size(), 3);
    QCOMPARE(loops.at(1), loops.at(0));
    QVERIFY(loops.at(2) != loops.at(1)); // which is left to the process
    InsideLoop::run([&] { InsideLoop::click(confirmButtonOf(dialog.get())); });
    QCOMPARE(dialog->exec(), PopupDlgWithMask::Confirmed);
}

void tst_PopupDlgWithMaskRuns::innermostRunIsEnded()
{
    auto dialog = makeMessage();
    bool outerStillRuns = false;
    InsideLoop::run([&] {
        InsideLoop::run([&] { InsideLoop::click(confirmButtonOf(dialog.get())); });
        QCOMPARE(dialog->exec(), PopupDlgWithMask::Confirmed);
        InsideLoop::run([&] {
            dialog->show(true);
            dialog->forceToExit();
            InsideLoop::run([&] {
                outerStillRuns = true;
                dialog.reset();
            });
        });
    });
    QCOMPARE(dialog->exec(), PopupDlgWithMask::Confirmed);
    QVERIFY(outerStillRuns);
}

void tst_PopupDlgWithMaskRuns::destroyedInItsLoop_data()
{
    QTest::addColumn<Action>("destroy");
    QTest::addColumn<int>("result");
    QTest::newRow("deleted") << Action([](PopupDlgWithMask *dialog) { delete dialog; }) << -1;
    QTest::newRow("deleted later") << Action([](PopupDlgWithMask *dialog) { dialog->deleteLater(); }) << -1;
    QTest::newRow("parent deleted") << Action([](PopupDlgWithMask *dialog) { delete dialog->parentWidget(); })
                                    << -1;
    QTest::newRow("parent deleted later")
        << Action([](PopupDlgWithMask *dialog) { dialog->parentWidget()->deleteLater(); }) << -1;
    QTest::newRow("deletes itself") << Action([](PopupDlgWithMask *dialog) {
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        InsideLoop::click(confirmButtonOf(dialog));
    }) << 0;
    QTest::newRow("deletes itself, forced") << Action([](PopupDlgWithMask *dialog) {
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->forceToExit();
    }) << -1;
    QTest::newRow("deletes itself, shown again") << Action([](PopupDlgWithMask *dialog) {
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        connect(dialog, &PopupDlgWithMask::closeMsgBox, dialog, [dialog] {
            InsideLoop::run([dialog] { dialog->hide(); });
            dialog->exec();
        });
        InsideLoop::click(closeButtonOf(dialog));
    }) << 2;
    QTest::newRow("deleted after the action") << Action([](PopupDlgWithMask *dialog) {
        connect(dialog, &PopupDlgWithMask::closeMsgBox, dialog, [dialog] { delete dialog; });
        InsideLoop::click(closeButtonOf(dialog));
    }) << 2;
    QTest::newRow("deleted while it closes") << Action([](PopupDlgWithMask *dialog) {
        auto *hook = new InsideLoop::EventHook(dialog, QEvent::Close, [dialog](QEvent *) {
            delete dialog;
            return true;
        });
        hook->setParent(qApp);
        InsideLoop::click(confirmButtonOf(dialog));
    }) << -1;
    QTest::newRow("deleted while it is forced") << Action([](PopupDlgWithMask *dialog) {
        auto *hook = new InsideLoop::EventHook(dialog, QEvent::Close, [dialog](QEvent *) {
            delete dialog;
            return true;
        });
        hook->setParent(qApp);
        dialog->forceToExit();
    }) << -1;
}

void tst_PopupDlgWithMaskRuns::destroyedInItsLoop()
{
    QFETCH(const Action, destroy);
    QFETCH(const int, result);
    const QPointer<QWidget> parent = new QWidget;
    Options options;
    options.useMask = true;
    options.parent = parent;
    const QPointer<PopupDlgWithMask> dialog = newPages(2, 2, 2, options);
    InsideLoop::run([&] { destroy(dialog); });
    QCOMPARE(int(dialog->exec()), result);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!dialog);
    QVERIFY(!isMasked());
    delete parent;
}

void tst_PopupDlgWithMaskRuns::destroyedInItsLoopAtPos()
{
    QFETCH(const Action, destroy);
    QFETCH(const int, result);
    const QPointer<QWidget> parent = new QWidget;
    Options options;
    options.parent = parent;
    const QPointer<PopupDlgWithMask> dialog = newMessage(options);
    InsideLoop::run([&] { destroy(dialog); });
    QPoint pos(5, 5);
    QCOMPARE(int(dialog->execWithPos(pos)), result);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!dialog);
    delete parent;
}

void tst_PopupDlgWithMaskRuns::hiddenWhileBeingShown_data()
{
    QTest::addColumn<Action>("hide");
    QTest::addColumn<int>("type");
    const Action hide = [](QWidget *dialog) {
        dialog->hide();
    };
    const Action hideNatively = [](QWidget *dialog) {
        dialog->windowHandle()->hide();
    };
    QTest::newRow("before its window is") << hide << int(QEvent::Show);
    QTest::newRow("after its window is") << hide << int(QEvent::ShowToParent);
    QTest::newRow("natively, before its window is") << hideNatively << int(QEvent::Show);
    QTest::newRow("natively, after its window is") << hideNatively << int(QEvent::ShowToParent);
}

void tst_PopupDlgWithMaskRuns::hiddenWhileBeingShown()
{
    QFETCH(const Action, hide);
    QFETCH(const int, type);
    Options options;
    options.useMask = true;
    options.parent = &m_window;
    const auto dialog = makePages(2, options);
    InsideLoop::EventHook hook(dialog.get(), QEvent::Type(type), [&](QEvent *) {
        hide(dialog.get());
        return false;
    });
    QCOMPARE(dialog->exec(), PopupDlgWithMask::NoResult);
    QPoint pos(9, 9);
    QCOMPARE(dialog->execWithPos(pos), PopupDlgWithMask::NoResult);
    QVERIFY(!isMasked());
    QVERIFY(!pageTimerOf(dialog.get())->isActive());
}

void tst_PopupDlgWithMaskRuns::destroyedByTheMask_data()
{
    QTest::addColumn<bool>("atPos");
    QTest::addColumn<int>("type");
    for (const bool atPos : {false, true}) {
        const char *call = atPos ? "execWithPos" : "exec";
        QTest::addRow("%s, the mask comes to the front", call) << atPos << int(QEvent::ZOrderChange);
        QTest::addRow("%s, the mask is shown", call) << atPos << int(QEvent::ShowToParent);
        QTest::addRow("%s, the mask is hidden", call) << atPos << int(QEvent::HideToParent);
    }
}

void tst_PopupDlgWithMaskRuns::destroyedByTheMask()
{
    QFETCH(const bool, atPos);
    QFETCH(const int, type);
    Options options;
    options.useMask = true;
    const QPointer<PopupDlgWithMask> dialog = newPages(2, 2, 2, options);
    const QWidget aboveTheMask(&m_window);
    InsideLoop::EventHook hook(OrvMaskCtrl::getInstance(nullptr)->getMaskWidget(), QEvent::Type(type),
                               [&](QEvent *) {
                                   delete dialog;
                                   return false;
                               });
    InsideLoop::run([dialog] { // there may be no loop to run it before this function returns
        if (dialog)
            dialog->hide();
    });
    QPoint pos(5, 5);
    QCOMPARE(int(atPos ? dialog->execWithPos(pos) : dialog->exec()), -1);
    QVERIFY(!dialog);
    QVERIFY(!isMasked());
}

void tst_PopupDlgWithMaskRuns::secondDialogFromASlot()
{
    Options options;
    options.useMask = true;
    options.modal = true;
    options.parent = &m_window;
    const auto first = makeMessage(options);
    const auto second = makePages(3, options);
    connect(first.get(), &PopupDlgWithMask::closeMsgBox, this, [&] {
        QVERIFY(!isMasked());
        InsideLoop::run([&] {
            QVERIFY(isMasked());
            InsideLoop::click(closeButtonOf(second.get()));
        });
        QCOMPARE(second->exec(), PopupDlgWithMask::Closed);
    });
    InsideLoop::run([&] { InsideLoop::click(confirmButtonOf(first.get())); });
    QCOMPARE(first->exec(), PopupDlgWithMask::Confirmed);
    QVERIFY(!isMasked());
}

void tst_PopupDlgWithMaskRuns::applicationQuits()
{
    const auto dialog = makeMessage();
    bool returned = false;
    InsideLoop::run([&] {
        InsideLoop::run([] { QCoreApplication::exit(); });
        QCOMPARE(dialog->exec(), PopupDlgWithMask::NoResult);
        returned = true;
    });
    QCoreApplication::exec();
    QVERIFY(returned);
}

ORV_TEST_MAIN(tst_PopupDlgWithMaskRuns)

#include "tst_popupdlgwithmask_runs.moc"
