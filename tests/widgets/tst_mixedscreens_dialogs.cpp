#include "basemovedialog.h"
#include "basemovedialogwithbackimage.h"
#include "commonpopupdialog.h"
#include "customwraptexttooltip.h"
#include "insideloop.h"
#include "logcapture.h"
#include "maskeddialogs.h"
#include "orvmaskctrl.h"
#include "orvupdatetipdlg.h"
#include "popuploadingdlgwithmask.h"
#include "randomdesktop.h"
#include "testmain.h"
#include "tipsdlgwithcheckbox.h"

#include <QtCore/QPointer>
#include <QtGui/QMovie>
#include <QtTest/QTest>

using namespace MixedScreens;

namespace {

constexpr QSize kSize(300, 240);

struct Kind
{
    const char *name;
    std::function<QWidget *(QWidget *parent)> make;
};

QString image()
{
    return QStringLiteral(":/images/images/combox/popup_bg.png");
}

QWidget *newLoadingDialog(QWidget *parent)
{
    auto *dialog = new PopupLoadingDlgWithMask(kSize, QSize(96, 120), QStringLiteral("Loading"), parent);
    QMovie *movie = dialog->findChild<QLabel *>()->movie();
    movie->setParent(dialog);
    movie->stop(); // two of them would show two frames
    return dialog;
}

const QVector<Kind> kDialogs{
    {"BaseMoveDialog",
     [](QWidget *parent) {
         return new BaseMoveDialog(parent, true, true, true);
     }},
    {"BaseMoveDialogWithBackImage",
     [](QWidget *parent) {
         return new BaseMoveDialogWithBackImage(image(), 8, true, true, parent);
     }},
    {"CommonPopupDialog",
     [](QWidget *parent) {
         return new CommonPopupDialog(parent, QStringLiteral("Title"), kSize, true, true, false, false, true);
     }},
    {"PopupDlgWithMask",
     [](QWidget *parent) {
         return MaskedDialogs::newMessage({true, false, true, false, parent});
     }},
    {"PopupDlgWithMask with pages",
     [](QWidget *parent) {
         return MaskedDialogs::newPages(2, 2, 2, {true, false, true, false, parent});
     }},
    {"TipsDlgWithCheckbox",
     [](QWidget *parent) {
         return new TipsDlgWithCheckbox(parent, kSize, QStringLiteral("Title"), QStringLiteral("Content"),
                                        QStringLiteral("Never again"), QStringLiteral("OK"));
     }},
    {"OrvUpdateTipDlg",
     [](QWidget *parent) {
         return new OrvUpdateTipDlg(kSize, image(), 8, 8, 8, 8, parent, QStringLiteral("Now"),
                                    QStringLiteral("Later"), false, true);
     }},
    {"PopupLoadingDlgWithMask", &newLoadingDialog},
    {"customWrapTextToolTip",
     [](QWidget *parent) {
         return new customWrapTextToolTip(customWrapTextToolTip::DirectionBottom, 200, parent, 8);
     }},
};

struct Run
{
    const char *name;
    std::function<QWidget *(QWidget *parent)> make;
    std::function<void(QWidget *dialog)> exec;
};

template<typename Dialog>
void execute(QWidget *dialog)
{
    static_cast<Dialog *>(dialog)->exec();
}

const QVector<Run> kRuns{
    {"CommonPopupDialog", kDialogs.at(2).make, &execute<CommonPopupDialog>},
    {"PopupDlgWithMask", kDialogs.at(3).make, &execute<PopupDlgWithMask>},
    {"TipsDlgWithCheckbox", kDialogs.at(5).make, &execute<TipsDlgWithCheckbox>},
};

} // namespace

/// Dialogs that go from screen to screen, and whose screen changes or is unplugged while they are open.
class tst_MixedScreensDialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void goFromScreenToScreen_data();
    void goFromScreenToScreen();
    void runWhileTheScreenIsUnplugged_data();
    void runWhileTheScreenIsUnplugged();
    void masksCoverTheirWindow();
};

void tst_MixedScreensDialogs::initTestCase()
{
    QGuiApplication::setQuitOnLastWindowClosed(false);
}

void tst_MixedScreensDialogs::goFromScreenToScreen_data()
{
    QTest::addColumn<int>("kind");
    for (int i = 0; i < kDialogs.size(); ++i)
        QTest::newRow(kDialogs.at(i).name) << i;
}

// However a dialog came to a screen, it looks as one that was opened there, and is as large.
void tst_MixedScreensDialogs::goFromScreenToScreen()
{
    QFETCH(const int, kind);
    onDesktops([kind](RandomDesktop &desktop) {
        const LogCapture quiet;
        const auto shown = [&](QPoint pos) {
            std::unique_ptr<QWidget> dialog(kDialogs.at(kind).make(nullptr));
            dialog->setAttribute(Qt::WA_DeleteOnClose, false);
            dialog->resize(kSize);
            dialog->move(pos);
            dialog->show();
            RandomDesktop::settle();
            return dialog;
        };
        const QSize room(420, 560);
        const auto traveller = shown(desktop.placeOn(desktop.screen(0), room).topLeft());
        const QSize size = traveller->size();
        for (int step = 0; step < 4; ++step) {
            const int index = desktop.below(desktop.count());
            const QScreen *screen = desktop.screen(index);
            const auto travel = [&] {
                const QPoint pos = desktop.placeOn(screen, room).topLeft();
                traveller->show(); // a tool tip has closed for the other one
                traveller->move(pos);
                RandomDesktop::settle();
                QCOMPARE(traveller->pos(), pos);
            };
            travel();
            if (step == 2) {
                desktop.change(index);
                travel();
            }
            QCOMPARE(traveller->windowHandle()->screen(), screen);
            QCOMPARE(traveller->size(), size);
            const auto native = shown(screen->availableGeometry().topLeft());
            const QPixmap picture = traveller->grab();
            QCOMPARE(picture.devicePixelRatio(), screen->devicePixelRatio());
            QCOMPARE(picture.size(), (QSizeF(size) * screen->devicePixelRatio()).toSize());
            QCOMPARE(native->size(), size);
            QCOMPARE(native->grab().devicePixelRatio(), picture.devicePixelRatio());
            QVERIFY(picture.toImage() == native->grab().toImage());
        }
    });
}

void tst_MixedScreensDialogs::runWhileTheScreenIsUnplugged_data()
{
    QTest::addColumn<int>("run");
    QTest::addColumn<bool>("closesOnTheWay");
    for (int i = 0; i < kRuns.size(); ++i) {
        QTest::addRow("%s", kRuns.at(i).name) << i << false;
        QTest::addRow("%s, closed by that", kRuns.at(i).name) << i << true;
    }
}

// The dialog stays open and usable where the system has put it, and exec() returns when it is closed, not before.
void tst_MixedScreensDialogs::runWhileTheScreenIsUnplugged()
{
    QFETCH(const int, run);
    QFETCH(const bool, closesOnTheWay);
    onDesktops([run, closesOnTheWay](RandomDesktop &desktop) {
        const LogCapture quiet;
        const QPointer<QWidget> dialog(kRuns.at(run).make(nullptr));
        bool wasThere = false;
        bool stayed = false;
        bool isSharp = false;
        const int index = desktop.below(desktop.count());
        dialog->move(desktop.screen(index)->availableGeometry().topLeft() + QPoint(10, 10));
        InsideLoop::run([&] {
            RandomDesktop::settle();
            wasThere = dialog->windowHandle()->screen() == desktop.screen(index);
            if (closesOnTheWay)
                connect(dialog->windowHandle(), &QWindow::screenChanged, dialog, &QWidget::close,
                        Qt::QueuedConnection); // Qt 6 goes on with the window that it moves
            desktop.unplug(index);
            stayed = dialog && dialog->isVisible() && isOnSomeScreen(dialog->geometry());
            isSharp = stayed && dialog->grab().devicePixelRatio() ==
                                    QGuiApplication::primaryScreen()->devicePixelRatio();
            if (stayed)
                dialog->close();
        });
        kRuns.at(run).exec(dialog);
        QVERIFY(!dialog || !dialog->isVisible());
        QVERIFY(wasThere);
        QCOMPARE(stayed, !closesOnTheWay);
        QCOMPARE(isSharp, !closesOnTheWay);
        delete dialog;
    });
}

void tst_MixedScreensDialogs::masksCoverTheirWindow()
{
    OrvMaskCtrl::setFollowsWindow(true);
    onDesktops([](RandomDesktop &desktop) {
        const LogCapture quiet;
        const auto window = shownWindow(desktop.placeOn(desktop.screen(0), kWindow));
        const QWidget *mask = OrvMaskCtrl::getInstance(window.get())->getMaskWidget();
        const std::unique_ptr<PopupDlgWithMask> dialog(
            MaskedDialogs::newMessage({true, false, true, false, window.get()}));
        dialog->show(true);
        for (int step = 0; step < 4; ++step) {
            const int index = desktop.below(desktop.count());
            window->setGeometry(desktop.placeOn(desktop.screen(index), kWindow));
            RandomDesktop::settle();
            if (step == 2)
                desktop.change(index);
            if (step == 3)
                desktop.unplug(index);
            QVERIFY(mask->isVisible());
            QCOMPARE(mask->geometry(), window->rect());
            QCOMPARE(window->grab().devicePixelRatio(), window->screen()->devicePixelRatio());
        }
        dialog->close();
        QVERIFY(!mask->isVisible());
    });
    OrvMaskCtrl::setFollowsWindow(false);
}

ORV_TEST_MAIN(tst_MixedScreensDialogs)

#include "tst_mixedscreens_dialogs.moc"
