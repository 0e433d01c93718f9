#include "mouseevents.h"
#include "pressgesture.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QDialog>
#include <QtWidgets/QMenu>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace {

/// A widget in a widget in a window, and what a test opens beside them. Any of the widgets may be destroyed.
struct Scene
{
    QPointer<QWidget> window = new QWidget;
    QPointer<QWidget> middle = new QWidget(window);
    QPointer<QWidget> child = new QWidget(middle);
    QPointer<QWidget> sibling = new QWidget(middle);
    QPointer<QDialog> windowModalDialog = new QDialog(window);
    QWidget otherWindow;
    QDialog dialog;
    QMenu menu;

    Scene()
    {
        window->resize(300, 200);
        windowModalDialog->setWindowModality(Qt::WindowModal);
        menu.addAction(QStringLiteral("action"));
    }
    ~Scene() { delete window; }
    Q_DISABLE_COPY(Scene)

    bool show()
    {
        window->show();
        otherWindow.show();
        return QTest::qWaitForWindowExposed(window) && QTest::qWaitForWindowExposed(&otherWindow);
    }
};

/// A gesture that counts what it sees.
class CountingGesture : public PressGesture
{
public:
    using PressGesture::PressGesture;
    int seen = 0;

protected:
    bool eventFilter(QObject *receiver, QEvent *event) override
    {
        ++seen;
        return PressGesture::eventFilter(receiver, event);
    }
};

/// Refuses to close.
class StayingOpen : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::Close)
            return false;
        event->ignore();
        return true;
    }
};

void send(QWidget *widget, QEvent::Type type)
{
    QEvent event(type);
    if (widget)
        QCoreApplication::sendEvent(widget, &event);
}

using Action = std::function<void(Scene &)>;
enum On { Child = 1, Window = 2, Both = 3 };

struct Row
{
    const char *name;
    On on; // the widgets whose presses it concerns
    Action action;
};

const QVector<Row> &rowsThatTakeTheEnd()
{
    static const QVector<Row> rows = {
        {"hide()", Child,
         [](Scene &scene) {
             scene.child->hide();
         }},
        {"hide() of an ancestor", Child,
         [](Scene &scene) {
             scene.middle->hide();
         }},
        {"hide() of the window", Both,
         [](Scene &scene) {
             scene.window->hide();
         }},
        {"hide() of the native window", Both,
         [](Scene &scene) {
             scene.window->windowHandle()->hide();
         }},
        {"minimised", Both,
         [](Scene &scene) {
             scene.window->showMinimized();
             QTRY_VERIFY(scene.window->isMinimized());
         }},
        {"new parent", Child,
         [](Scene &scene) {
             scene.child->setParent(&scene.otherWindow);
         }},
        {"new flags", Both,
         [](Scene &scene) {
             scene.window->setWindowFlag(Qt::WindowStaysOnTopHint);
         }},
        {"close()", Child,
         [](Scene &scene) {
             scene.child->close();
         }},
        {"close() of the window", Both,
         [](Scene &scene) {
             scene.window->close();
         }},
        {"close() that is refused", Both,
         [](Scene &scene) {
             StayingOpen filter;
             scene.window->installEventFilter(&filter);
             QVERIFY(!scene.window->close());
         }},
        {"disabled", Child,
         [](Scene &scene) {
             scene.child->setEnabled(false);
         }},
        {"ancestor disabled", Child,
         [](Scene &scene) {
             scene.middle->setEnabled(false);
         }},
        {"window disabled", Both,
         [](Scene &scene) {
             scene.window->setEnabled(false);
         }},
        {"modal dialog", Both,
         [](Scene &scene) {
             scene.dialog.setModal(true);
             scene.dialog.show();
         }},
        {"modal dialog in a loop", Both,
         [](Scene &scene) {
             QTimer::singleShot(0, &scene.dialog, &QDialog::reject);
             scene.dialog.exec();
         }},
        {"dialog modal to the window", Both,
         [](Scene &scene) {
             scene.windowModalDialog->show();
         }},
        {"mouse lost", Both,
         [](Scene &scene) {
             send(scene.child, QEvent::UngrabMouse);
             send(scene.window, QEvent::UngrabMouse);
         }},
        {"menu", Both,
         [](Scene &scene) {
             scene.menu.popup(QPoint(10, 10));
         }},
        {"menu in a loop", Both,
         [](Scene &scene) {
             QTimer::singleShot(0, &scene.menu, &QMenu::close);
             scene.menu.exec();
         }},
    };
    return rows;
}

const QVector<Row> &rowsThatLeaveTheEnd()
{
    static const QVector<Row> rows = {
        {"nothing", Both,
         [](Scene &) {
         }},
        {"move", Both,
         [](Scene &scene) {
             MouseEvents::move(scene.child, {5, 5});
         }},
        {"move without buttons", Both,
         [](Scene &scene) {
             MouseEvents::move(scene.child, {5, 5}, {});
         }},
        {"pointer leaves", Both,
         [](Scene &scene) {
             MouseEvents::leave(scene.child);
         }},
        {"second press", Both,
         [](Scene &scene) {
             MouseEvents::press(scene.child, {5, 5}, Qt::RightButton);
         }},
        {"context menu that nobody opens", Both,
         [](Scene &scene) {
             QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                                     scene.child->mapToGlobal(QPoint(5, 5)));
             QCoreApplication::sendEvent(scene.child, &event);
         }},
        {"sibling hidden", Both,
         [](Scene &scene) {
             scene.sibling->hide();
         }},
        {"child hidden", Window,
         [](Scene &scene) {
             scene.child->hide();
         }},
        {"sibling disabled", Both,
         [](Scene &scene) {
             scene.sibling->setEnabled(false);
         }},
        {"child disabled", Window,
         [](Scene &scene) {
             scene.child->setEnabled(false);
         }},
        {"enabled", Both,
         [](Scene &scene) {
             send(scene.child, QEvent::EnabledChange);
             send(scene.window, QEvent::EnabledChange);
         }},
        {"child closed", Window,
         [](Scene &scene) {
             scene.child->close();
         }},
        {"other window hidden", Both,
         [](Scene &scene) {
             scene.otherWindow.hide();
         }},
        {"other window closed", Both,
         [](Scene &scene) {
             scene.otherWindow.close();
         }},
        {"other window disabled", Both,
         [](Scene &scene) {
             scene.otherWindow.setEnabled(false);
         }},
        {"other window blocked", Both,
         [](Scene &scene) {
             QDialog dialog(&scene.otherWindow);
             dialog.setWindowModality(Qt::WindowModal);
             dialog.show();
         }},
        {"unblocked", Both,
         [](Scene &scene) {
             send(scene.window, QEvent::WindowUnblocked);
         }},
        {"dialog that is not modal", Both,
         [](Scene &scene) {
             scene.dialog.show();
         }},
        {"tool tip", Both,
         [](Scene &) {
             QWidget tip(nullptr, Qt::ToolTip);
             tip.show();
         }},
        {"window deactivated", Both,
         [](Scene &scene) {
             send(scene.window, QEvent::WindowDeactivate);
         }},
    };
    return rows;
}

void addRows(const QVector<Row> &rows)
{
    QTest::addColumn<Action>("action");
    QTest::addColumn<bool>("onWindow");
    for (const Row &row : rows) {
        if (row.on & Child)
            QTest::addRow("%s, press on a child", row.name) << row.action << false;
        if (row.on & Window)
            QTest::addRow("%s, press on the window", row.name) << row.action << true;
    }
}

} // namespace

Q_DECLARE_METATYPE(Action)
Q_DECLARE_METATYPE(QPointer<QWidget> Scene::*)

class tst_pressgesture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isUnderWayFromBeginToEnd();
    void tellsItsDuration();
    void losesItsEnd_data();
    void losesItsEnd();
    void keepsItsEnd_data();
    void keepsItsEnd();
    void watchesWhileUnderWayOnly();
    void leavesOtherFiltersTheirEvents_data();
    void leavesOtherFiltersTheirEvents();
    void diesWithItsWidget();
    void mayBeDestroyedByTheLoss_data();
    void mayBeDestroyedByTheLoss();

    void announcesWhatIsToldOnce_data();
    void announcesWhatIsToldOnce();
    void announcesBeforeTheCallReturns_data();
    void announcesBeforeTheCallReturns();
    void announcesBeforeTheNextPress();
    void announcesNothingWhenDestroyed();
    void announcementMayDestroyAnything_data();
    void announcementMayDestroyAnything();
    void nextPressMayDestroyTheGesture();
};

void tst_pressgesture::isUnderWayFromBeginToEnd()
{
    QWidget widget;
    int losses = 0;
    PressGesture gesture(&widget, [&losses] { ++losses; });
    QVERIFY(!gesture.isUnderWay());
    QVERIFY(!gesture.end());

    QVERIFY(gesture.begin());
    QVERIFY(gesture.isUnderWay());
    QVERIFY(gesture.begin());
    QVERIFY(gesture.isUnderWay());
    QVERIFY(gesture.end());
    QVERIFY(!gesture.isUnderWay());
    QVERIFY(!gesture.end());
    QCOMPARE(losses, 0);
}

void tst_pressgesture::tellsItsDuration()
{
    QWidget widget;
    PressGesture gesture(&widget);
    QCOMPARE(gesture.duration(), 0);
    gesture.begin();
    QTRY_VERIFY(gesture.duration() > 0);
    gesture.end();
    QCOMPARE(gesture.duration(), 0);

    static qint64 now = 500;
    const auto realClock = std::exchange(PressGesture::clock, [] { return now; });
    gesture.begin();
    QCOMPARE(gesture.duration(), 0);
    now += 70;
    QCOMPARE(gesture.duration(), 70);
    gesture.begin();
    now += 8;
    QCOMPARE(gesture.duration(), 8);
    send(&widget, QEvent::UngrabMouse);
    QCOMPARE(gesture.duration(), 0);
    PressGesture::clock = realClock;
}

void tst_pressgesture::losesItsEnd_data()
{
    addRows(rowsThatTakeTheEnd());
}

void tst_pressgesture::losesItsEnd()
{
    QFETCH(Action, action);
    QFETCH(bool, onWindow);
    Scene scene;
    QVERIFY(scene.show());
    QWidget *const widget = onWindow ? scene.window : scene.child;
    int losses = 0;
    PressGesture *lostGesture = nullptr;
    PressGesture gesture(widget, [&] {
        ++losses;
        QVERIFY(!lostGesture->isUnderWay());
    });
    lostGesture = &gesture;
    PressGesture idle(widget, [] { QFAIL("nothing was pressed"); });
    PressGesture ended(widget, [] { QFAIL("the press had its end"); });
    ended.begin();
    ended.end();

    QVERIFY(gesture.begin());
    action(scene);
    QVERIFY(!gesture.isUnderWay());
    QVERIFY(!gesture.end());
    QCoreApplication::processEvents();
    QCOMPARE(losses, 1);

    QVERIFY(gesture.begin()); // the next one starts afresh
    QVERIFY(gesture.isUnderWay());
    QVERIFY(gesture.end());
    QCOMPARE(losses, 1);
}

void tst_pressgesture::keepsItsEnd_data()
{
    addRows(rowsThatLeaveTheEnd());
}

void tst_pressgesture::keepsItsEnd()
{
    QFETCH(Action, action);
    QFETCH(bool, onWindow);
    Scene scene;
    QVERIFY(scene.show());
    int losses = 0;
    PressGesture gesture(onWindow ? scene.window : scene.child, [&losses] { ++losses; });
    QVERIFY(gesture.begin());
    action(scene);
    QCoreApplication::processEvents();
    QCOMPARE(losses, 0);
    QVERIFY(gesture.end());
}

void tst_pressgesture::watchesWhileUnderWayOnly()
{
    QWidget widget;
    CountingGesture gesture(&widget);
    MouseEvents::move(&widget, {5, 5});
    QCOMPARE(gesture.seen, 0);

    gesture.begin();
    gesture.begin();
    MouseEvents::move(&widget, {5, 5});
    QCOMPARE(gesture.seen, 1);
    gesture.end();
    MouseEvents::move(&widget, {5, 5});
    QCOMPARE(gesture.seen, 1);

    gesture.begin();
    send(&widget, QEvent::UngrabMouse);
    QCOMPARE(gesture.seen, 2);
    MouseEvents::move(&widget, {5, 5});
    QCOMPARE(gesture.seen, 2);
}

void tst_pressgesture::leavesOtherFiltersTheirEvents_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    for (int before = 0; before < 3; ++before) {
        for (int after = 0; after < 3; ++after)
            QTest::addRow("%d gestures before, %d after", before, after) << before << after;
    }
}

// The filters of an application change while they are being asked, when several gestures end in one event.
void tst_pressgesture::leavesOtherFiltersTheirEvents()
{
    QFETCH(int, before);
    QFETCH(int, after);
    class HideCounter : public QObject
    {
    public:
        bool eventFilter(QObject *receiver, QEvent *event) override
        {
            hides += receiver->isWidgetType() && event->type() == QEvent::Hide ? 1 : 0;
            return false;
        }
        int hides = 0;
    };
    QWidget widget;
    widget.show();
    std::vector<std::unique_ptr<PressGesture>> gestures;
    int announcements = 0;
    const auto addGestures = [&](int count) {
        for (int i = 0; i < count; ++i) {
            const std::size_t index = gestures.size();
            const bool announces = index % 2 == 1;
            gestures.push_back(std::make_unique<PressGesture>(&widget, [&, index, announces] {
                if (announces)
                    gestures.at(index)->announce([&announcements] { ++announcements; });
            }));
            gestures.back()->begin();
        }
    };
    addGestures(before);
    HideCounter counter;
    QCoreApplication::instance()->installEventFilter(&counter);
    addGestures(after);
    widget.hide();
    QCOMPARE(counter.hides, 1);
    QTRY_COMPARE(announcements, (before + after) / 2);
}

void tst_pressgesture::diesWithItsWidget()
{
    Scene scene;
    QVERIFY(scene.show());
    int losses = 0;
    PressGesture gesture(scene.child, [&losses] { ++losses; });
    gesture.begin();
    delete scene.child;
    QVERIFY(!gesture.isUnderWay());
    scene.window->hide();
    QVERIFY(!gesture.end());
    QCOMPARE(losses, 0);
}

void tst_pressgesture::mayBeDestroyedByTheLoss_data()
{
    addRows(rowsThatTakeTheEnd());
}

void tst_pressgesture::mayBeDestroyedByTheLoss()
{
    QFETCH(Action, action);
    QFETCH(bool, onWindow);
    Scene scene;
    QVERIFY(scene.show());
    int losses = 0;
    std::unique_ptr<PressGesture> gesture;
    gesture = std::make_unique<PressGesture>(onWindow ? scene.window : scene.child, [&] {
        ++losses;
        gesture.reset();
    });
    gesture->begin();
    action(scene);
    QVERIFY(!gesture);
    QCOMPARE(losses, 1);
}

void tst_pressgesture::announcesWhatIsToldOnce_data()
{
    addRows(rowsThatTakeTheEnd());
}

void tst_pressgesture::announcesWhatIsToldOnce()
{
    QFETCH(Action, action);
    QFETCH(bool, onWindow);
    Scene scene;
    QVERIFY(scene.show());
    int announcements = 0;
    CountingGesture *announcing = nullptr;
    CountingGesture gesture(onWindow ? scene.window : scene.child,
                            [&] { announcing->announce([&announcements] { ++announcements; }); });
    announcing = &gesture;
    gesture.begin();
    action(scene);
    QTRY_COMPARE(announcements, 1);
    QCoreApplication::processEvents();
    QCOMPARE(announcements, 1);

    const int seen = gesture.seen;
    send(&scene.otherWindow, QEvent::User);
    QCOMPARE(gesture.seen, seen);
}

void tst_pressgesture::announcesBeforeTheCallReturns_data()
{
    QTest::addColumn<Action>("action");
    QTest::addRow("hide()") << Action([](Scene &scene) { scene.child->hide(); });
    QTest::addRow("close()") << Action([](Scene &scene) { scene.child->close(); });
    QTest::addRow("disabled") << Action([](Scene &scene) { scene.child->setEnabled(false); });
    QTest::addRow("mouse lost") << Action([](Scene &scene) { send(scene.child, QEvent::UngrabMouse); });
}

void tst_pressgesture::announcesBeforeTheCallReturns()
{
    QFETCH(Action, action);
    Scene scene;
    QVERIFY(scene.show());
    int announcements = 0;
    PressGesture *announcing = nullptr;
    PressGesture gesture(scene.child, [&] { announcing->announce([&announcements] { ++announcements; }); });
    announcing = &gesture;
    gesture.begin();
    action(scene);
    QCOMPARE(announcements, 1);
}

void tst_pressgesture::announcesBeforeTheNextPress()
{
    QWidget widget;
    QStringList story;
    PressGesture *announcing = nullptr;
    PressGesture gesture(&widget, [&] {
        story << QStringLiteral("lost");
        announcing->announce([&] {
            story << QStringLiteral("announced");
            QVERIFY(!announcing->isUnderWay());
        });
    });
    announcing = &gesture;
    gesture.begin();
    send(&widget, QEvent::WindowBlocked);
    QCOMPARE(story, QStringList({QStringLiteral("lost")}));
    QVERIFY(gesture.begin());
    QCOMPARE(story, QStringList({QStringLiteral("lost"), QStringLiteral("announced")}));
    QCoreApplication::processEvents();
    QCOMPARE(story.size(), 2);
    QVERIFY(gesture.end());
}

void tst_pressgesture::announcesNothingWhenDestroyed()
{
    QWidget widget;
    int announcements = 0;
    std::unique_ptr<PressGesture> gesture;
    gesture = std::make_unique<PressGesture>(
        &widget, [&] { gesture->announce([&announcements] { ++announcements; }); });
    gesture->begin();
    send(&widget, QEvent::WindowBlocked);
    gesture.reset();
    QCoreApplication::processEvents();
    QCOMPARE(announcements, 0);
}

void tst_pressgesture::announcementMayDestroyAnything_data()
{
    using Victim = QPointer<QWidget> Scene::*;
    QTest::addColumn<Action>("action");
    QTest::addColumn<Victim>("victim");
    for (const Row &row : rowsThatTakeTheEnd()) {
        // Qt's own call goes on with a widget that it gives a new parent or new flags.
        if (!(row.on & Child) || qstrncmp(row.name, "new ", 4) == 0)
            continue;
        QTest::addRow("%s, destroys the widget", row.name) << row.action << &Scene::child;
        QTest::addRow("%s, destroys the parent", row.name) << row.action << &Scene::middle;
        QTest::addRow("%s, destroys the window", row.name) << row.action << &Scene::window;
    }
}

void tst_pressgesture::announcementMayDestroyAnything()
{
    QFETCH(Action, action);
    QFETCH(QPointer<QWidget> Scene::*, victim);
    Scene scene;
    QVERIFY(scene.show());
    std::unique_ptr<PressGesture> gesture;
    gesture = std::make_unique<PressGesture>(scene.child, [&] {
        gesture->announce([&] {
            gesture.reset();
            delete (scene.*victim);
        });
    });
    gesture->begin();
    action(scene);
    QTRY_VERIFY(!(scene.*victim));
    QVERIFY(!gesture);
}

void tst_pressgesture::nextPressMayDestroyTheGesture()
{
    QWidget widget;
    std::unique_ptr<PressGesture> gesture;
    gesture =
        std::make_unique<PressGesture>(&widget, [&] { gesture->announce([&gesture] { gesture.reset(); }); });
    gesture->begin();
    send(&widget, QEvent::WindowBlocked);
    QVERIFY(!gesture->begin());
    QVERIFY(!gesture);
}

ORV_TEST_MAIN(tst_pressgesture)
#include "tst_pressgesture.moc"
