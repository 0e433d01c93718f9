#include "commonpopupdialog.h"
#include "insideloop.h"
#include "maskeddialogs.h"
#include "orvmaskctrl.h"
#include "orvupdatetipdlg.h"
#include "popuploadingdlgwithmask.h"
#include "testmain.h"
#include "tipsdlgwithcheckbox.h"
#include "xpointer.h"

#include <QtCore/QPointer>
#include <QtCore/QUrl>
#include <QtGui/QDesktopServices>
#include <QtGui/QImage>
#include <QtGui/QMovie>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <functional>
#include <memory>

using namespace MaskedDialogs;

namespace {

QPoint centreOf(const QWidget *widget)
{
    return widget->mapToGlobal(widget->rect().center());
}

/// Once the dialog is on the screen, in the loop that it blocks in, does something with the pointer. A dialog
/// that is still there afterwards is hidden, so that a click that missed fails the test instead of blocking
/// it.
void whenOnScreen(QWidget *dialog, const std::function<void()> &action)
{
    InsideLoop::run([dialog = QPointer<QWidget>(dialog), action] {
        if (QTest::qWaitForWindowExposed(dialog))
            action();
        if (dialog)
            dialog->hide();
    });
}

QPushButton *buttonWith(const QWidget *dialog, const QString &text)
{
    const auto buttons = dialog->findChildren<QPushButton *>();
    for (QPushButton *button : buttons) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

} // namespace

/// All dialogs under the real pointer.
class tst_Dialogs_x11 : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void openLink(const QUrl &url) { m_openedLinks << url; }

private Q_SLOTS:
    void initTestCase();
    void cleanup();

    void closesTheCommonPopup();
    void dragsTheCommonPopup_data();
    void dragsTheCommonPopup();
    void answersTheMaskedMessage_data();
    void answersTheMaskedMessage();
    void maskedMessageDarkensTheWindow();
    void maskedMessageStaysInPlace();
    void movesWhenOnScreen();
    void standsOverItsWindow();
    void answersTheTip_data();
    void answersTheTip();
    void answersTheUpdate_data();
    void answersTheUpdate();
    void opensTheLinkOutside();
    void showsTheLoading();

private:
    QWidget m_window;
    QList<QUrl> m_openedLinks;
};

void tst_Dialogs_x11::initTestCase()
{
    m_window.setGeometry(100, 100, 900, 700);
    m_window.setStyleSheet(QStringLiteral("background-color:#FFFFFF;"));
    QVERIFY(XPointer::showAndWait(&m_window));
    OrvMaskCtrl::getInstance(&m_window);
}

void tst_Dialogs_x11::cleanup()
{
    XPointer::moveTo(QPoint(5, 5));
}

void tst_Dialogs_x11::closesTheCommonPopup()
{
    CommonPopupDialog dialog(&m_window, QStringLiteral("Camera"), QSize(400, 300), true, true, false, true,
                             false);
    QSignalSpy closed(&dialog, &CommonPopupDialog::sigClosed);
    whenOnScreen(&dialog, [&] {
        // A press beside the button answers nothing.
        XPointer::click(dialog.mapToGlobal(QPoint(200, 200)));
        QVERIFY(dialog.isVisible());
        XPointer::click(centreOf(dialog.findChild<QPushButton *>()));
        QVERIFY(!dialog.isVisible());
    });
    QCOMPARE(dialog.exec(), CommonPopupDialog::Closed);
    QCOMPARE(closed.count(), 1);
}

void tst_Dialogs_x11::dragsTheCommonPopup_data()
{
    QTest::addColumn<bool>("movable");
    QTest::newRow("movable") << true;
    QTest::newRow("fixed") << false;
}

void tst_Dialogs_x11::dragsTheCommonPopup()
{
    QFETCH(const bool, movable);
    CommonPopupDialog dialog(&m_window, QStringLiteral("Camera"), QSize(400, 300), true, movable, false, true,
                             false);
    dialog.move(300, 300);
    whenOnScreen(&dialog, [&] {
        const QPoint before = dialog.pos();
        const QPoint title = dialog.mapToGlobal(QPoint(150, 20));
        XPointer::drag(title, title + QPoint(60, 40));
        QTRY_COMPARE(dialog.pos(), movable ? before + QPoint(60, 40) : before);
    });
    QCOMPARE(dialog.exec(), CommonPopupDialog::NoResult);
}

void tst_Dialogs_x11::answersTheMaskedMessage_data()
{
    QTest::addColumn<bool>("pages");
    QTest::addColumn<bool>("confirm");
    QTest::addColumn<bool>("deleteOnClose");
    QTest::newRow("message, close") << false << false << false;
    QTest::newRow("message, confirm") << false << true << false;
    QTest::newRow("message, confirm, deletes itself") << false << true << true;
    QTest::newRow("pages, close") << true << false << false;
    QTest::newRow("pages, close, deletes itself") << true << false << true;
    QTest::newRow("pages, confirm") << true << true << false;
}

void tst_Dialogs_x11::answersTheMaskedMessage()
{
    QFETCH(const bool, pages);
    QFETCH(const bool, confirm);
    QFETCH(const bool, deleteOnClose);
    Options options;
    options.useMask = true;
    options.modal = true;
    options.deleteOnClose = deleteOnClose;
    options.parent = &m_window;
    const QPointer<PopupDlgWithMask> dialog = pages ? newPages(3, 3, 3, options) : newMessage(options);
    QSignalSpy closed(dialog, &PopupDlgWithMask::closeMsgBox);
    QWidget *mask = OrvMaskCtrl::getInstance(nullptr)->getMaskWidget();
    whenOnScreen(dialog, [&] {
        QVERIFY(mask->isVisible());
        XPointer::click(centreOf(confirm ? confirmButtonOf(dialog) : closeButtonOf(dialog)));
    });
    QCOMPARE(int(dialog->exec()), confirm ? 0 : 2);
    QCOMPARE(closed.count(), 1);
    QVERIFY(!mask->isVisible());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(dialog.isNull(), deleteOnClose);
    delete dialog;
}

void tst_Dialogs_x11::maskedMessageDarkensTheWindow()
{
    Options options;
    options.useMask = true;
    options.parent = &m_window;
    const auto dialog = makeMessage(options);
    const QPoint corner = m_window.mapToGlobal(QPoint(10, 10));
    QTRY_COMPARE(XPointer::grabScreen().pixelColor(corner), QColor(Qt::white));
    whenOnScreen(dialog.get(), [&] {
        QTRY_VERIFY(XPointer::grabScreen().pixelColor(corner).lightness() < 240);
        XPointer::click(centreOf(confirmButtonOf(dialog.get())));
    });
    QCOMPARE(dialog->exec(), PopupDlgWithMask::Confirmed);
    QTRY_COMPARE(XPointer::grabScreen().pixelColor(corner), QColor(Qt::white));
}

void tst_Dialogs_x11::maskedMessageStaysInPlace()
{
    const auto dialog = makeMessage();
    QPoint pos(400, 250);
    whenOnScreen(dialog.get(), [&] {
        QTRY_COMPARE(dialog->pos(), pos);
        const QPoint title = dialog->mapToGlobal(QPoint(150, 30));
        XPointer::drag(title, title + QPoint(60, 40));
        QCOMPARE(dialog->pos(), pos);
        XPointer::click(centreOf(closeButtonOf(dialog.get())));
    });
    QCOMPARE(dialog->execWithPos(pos), PopupDlgWithMask::Closed);
}

void tst_Dialogs_x11::movesWhenOnScreen()
{
    const auto dialog = makePages(2);
    QPoint pos(611, 222);
    whenOnScreen(dialog.get(), [&] {
        QTRY_COMPARE(dialog->pos(), pos);
        QTRY_COMPARE(
            XPointer::xdotool({QStringLiteral("getwindowgeometry"), QString::number(dialog->winId())})
                .contains(QLatin1String("611,222")),
            true);
    });
    QCOMPARE(dialog->execWithPos(pos), PopupDlgWithMask::NoResult);
}

// The window manager leaves it where it was put, which is over the middle of the window with its frame.
void tst_Dialogs_x11::standsOverItsWindow()
{
    QTRY_VERIFY(m_window.frameGeometry().height() > m_window.height());
    const QRect frame = m_window.frameGeometry();
    QRect geometry;
    InsideLoop::run([&] {
        const auto dialogs = m_window.findChildren<PopupDlgWithMask *>();
        QVERIFY(!dialogs.isEmpty());
        PopupDlgWithMask *dialog = dialogs.constFirst();
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
        geometry = QRect(dialog->mapToGlobal(QPoint(0, 0)), dialog->size());
        XPointer::click(centreOf(buttonWith(dialog, QStringLiteral("OK"))));
    });
    QCOMPARE(PopupDlgWithMask::message(&m_window, QStringLiteral("Title"), QStringLiteral("Text")),
             PopupDlgWithMask::Confirmed);
    const QPoint distance = geometry.center() - frame.center();
    QVERIFY2(distance.manhattanLength() <= 2, qPrintable(QString::number(distance.manhattanLength())));
}

void tst_Dialogs_x11::answersTheTip_data()
{
    QTest::addColumn<bool>("tick");
    QTest::addColumn<bool>("confirm");
    QTest::newRow("close") << false << false;
    QTest::newRow("tick and close") << true << false;
    QTest::newRow("confirm") << false << true;
    QTest::newRow("tick and confirm") << true << true;
}

void tst_Dialogs_x11::answersTheTip()
{
    QFETCH(const bool, tick);
    QFETCH(const bool, confirm);
    const QVector<QString> lines{QStringLiteral("One"), QStringLiteral("Two"), QStringLiteral("Three"),
                                 QStringLiteral("Mind this")};
    const QPointer<TipsDlgWithCheckbox> dialog =
        new TipsDlgWithCheckbox(&m_window, QSize(400, 260), QStringLiteral("Tip"), lines,
                                QStringLiteral("Not again"), QStringLiteral("OK"));
    QSignalSpy closed(dialog, &TipsDlgWithCheckbox::closeMsgBox);
    QSignalSpy clicked(dialog, &TipsDlgWithCheckbox::sig_BtnClicked);
    QSignalSpy ticked(dialog, &TipsDlgWithCheckbox::sig_checkboxStateChanged);
    whenOnScreen(dialog, [&] {
        const auto *checkbox = dialog->findChild<QCheckBox *>();
        if (tick)
            XPointer::click(checkbox->mapToGlobal(QPoint(9, checkbox->height() / 2)));
        QCOMPARE(checkbox->isChecked(), tick);
        XPointer::click(centreOf(buttonWith(dialog, confirm ? QStringLiteral("OK") : QString())));
    });
    dialog->exec();
    QCOMPARE(closed.count(), confirm ? 0 : 1);
    QCOMPARE(clicked.count(), confirm ? 1 : 0);
    QCOMPARE(ticked.count(), tick && confirm ? 1 : 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!dialog);
}

void tst_Dialogs_x11::answersTheUpdate_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QVector<int>>("signalCounts");
    QTest::newRow("close") << QString() << QVector<int>({1, 0, 0});
    QTest::newRow("cancel") << QStringLiteral("Later") << QVector<int>({0, 1, 0});
    QTest::newRow("confirm") << QStringLiteral("Update") << QVector<int>({0, 0, 1});
}

void tst_Dialogs_x11::answersTheUpdate()
{
    QFETCH(const QString, button);
    QFETCH(const QVector<int>, signalCounts);
    const QPointer<OrvUpdateTipDlg> dialog =
        new OrvUpdateTipDlg(QSize(436, 240), QString(), 17, 14, 19, 22, &m_window, QStringLiteral("Update"),
                            QStringLiteral("Later"), false, true);
    QSignalSpy closed(dialog, &OrvUpdateTipDlg::sig_closeMsgBox);
    QSignalSpy cancelled(dialog, &OrvUpdateTipDlg::sig_cancelBtnClicked);
    QSignalSpy confirmed(dialog, &OrvUpdateTipDlg::sig_confirmBtnClicked);
    QVERIFY(XPointer::showAndWait(dialog));
    XPointer::click(centreOf(buttonWith(dialog, button)));
    QTRY_VERIFY(!dialog);
    QCOMPARE(QVector<int>({int(closed.count()), int(cancelled.count()), int(confirmed.count())}),
             signalCounts);
}

void tst_Dialogs_x11::opensTheLinkOutside()
{
    QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "openLink");
    OrvUpdateTipDlg dialog(QSize(436, 240), QString(), 17, 14, 19, 22, &m_window, QStringLiteral("Update"),
                           QStringLiteral("Later"), true, false);
    dialog.setNewVersionLink(QStringLiteral("<a href=\"https://example.com/new\">See what is new</a>"));
    QVERIFY(XPointer::showAndWait(&dialog));
    const auto labels = dialog.findChildren<QLabel *>();
    const QLabel *link = labels.last();
    QVERIFY(link->openExternalLinks());
    XPointer::click(link->mapToGlobal(QPoint(20, link->fontMetrics().height() / 2)));
    QTRY_COMPARE(m_openedLinks, QList<QUrl>({QUrl(QStringLiteral("https://example.com/new"))}));
    QVERIFY(dialog.isVisible());
    QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
}

void tst_Dialogs_x11::showsTheLoading()
{
    const QPointer<PopupLoadingDlgWithMask> dialog =
        new PopupLoadingDlgWithMask(m_window.size(), QSize(96, 120), QStringLiteral("Connecting"), &m_window);
    const std::unique_ptr<QMovie> movie(dialog->findChild<QLabel *>()->movie());
    dialog->move(m_window.pos());
    QVERIFY(XPointer::showAndWait(dialog));
    QCOMPARE(movie->state(), QMovie::Running);
    // Its own area takes the clicks that are meant for the window below.
    XPointer::click(centreOf(dialog));
    QVERIFY(dialog->isVisible());
    dialog->close();
    QTRY_VERIFY(!dialog);
    QCOMPARE(movie->state(), QMovie::NotRunning);
}

ORV_TEST_MAIN(tst_Dialogs_x11)

#include "tst_dialogs_x11.moc"
