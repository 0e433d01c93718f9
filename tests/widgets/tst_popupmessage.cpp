#include "popupmessage.h"

#include "insideloop.h"
#include "maskeddialogs.h"
#include "orvlook.h"
#include "orvmaskctrl.h"
#include "pictures.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using namespace MaskedDialogs;

namespace {

const QString kCard = QStringLiteral(":/orvcommonlib/pictures/message_bg.png");

PopupMessage withTexts()
{
    PopupMessage message;
    message.title = QStringLiteral("Title");
    message.content = QStringLiteral("Content");
    message.noteText = QStringLiteral("1/3");
    message.confirmText = QStringLiteral("Go");
    return message;
}

PopupMessage withPages(int count)
{
    PopupMessage message = withTexts();
    message.size = kSize;
    for (int page = 0; page < count; ++page)
        message.pages.append({QStringLiteral(":/client/page%1.png").arg(page),
                              QStringLiteral("Page %1").arg(page), QStringLiteral("Text %1").arg(page)});
    return message;
}

QLabel *backgroundOf(const PopupDlgWithMask *dialog)
{
    return qobject_cast<QLabel *>(dialog->children().value(dialog->children().indexOf(dialog->layout()) - 1));
}

/// The geometry brought into the screen, which is smaller at higher ratios.
QRect onScreen(QRect geometry)
{
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    geometry.moveRight(qMin(geometry.right(), available.right()));
    geometry.moveBottom(qMin(geometry.bottom(), available.bottom()));
    geometry.moveLeft(qMax(geometry.left(), available.left()));
    geometry.moveTop(qMax(geometry.top(), available.top()));
    return geometry;
}

/// The dialog that is open, in the call that is being tested.
PopupDlgWithMask *openDialog()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        auto *dialog = qobject_cast<PopupDlgWithMask *>(window);
        if (dialog && dialog->isVisible())
            return dialog;
    }
    return nullptr;
}

} // namespace

/// PopupDlgWithMask as one value or one call makes it.
class tst_PopupMessage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void defaults();
    void makesAMessage();
    void makesPages();
    void oneParentIsEnough();
    void setsWhatItSays_data();
    void setsWhatItSays();
    void emptyConfirmTextIsOk();
    void stretchesTheClientsImage();
    void emptyImageIsTheCard();
    void cardIsThereInBothLooks();
    void cardFollowsTheLook();
    void cardKeepsItsShape_data();
    void cardKeepsItsShape();
    void buttonsAnswerTheMessage_data();
    void buttonsAnswerTheMessage();
    void messageStandsOverItsWindow();
    void messageIsTheDefaultOne();
    void hidingAnswersNothing();
    void windowDiesMeanwhile_data();
    void windowDiesMeanwhile();
    void messageWithoutWindow();

private:
    QWidget m_window;
};

void tst_PopupMessage::initTestCase()
{
    m_window.setWindowFlag(Qt::FramelessWindowHint);
    m_window.setGeometry(100, 50, 600, 500);
    m_window.show();
    OrvMaskCtrl::getInstance(&m_window);
}

void tst_PopupMessage::defaults()
{
    const PopupMessage message;
    QVERIFY(message.backgroundImage.isEmpty());
    QCOMPARE(message.size, QSize(432, 232));
    QCOMPARE(message.border, QMargins(16, 16, 16, 16));
    QVERIFY(message.title.isEmpty() && message.content.isEmpty());
    QVERIFY(message.noteText.isEmpty() && message.confirmText.isEmpty());
    QVERIFY(message.pages.isEmpty());
    QVERIFY(message.useMask && message.dialogWindow && message.modal);
    QVERIFY(!message.deleteOnClose);
}

void tst_PopupMessage::makesAMessage()
{
    PopupMessage message = withTexts();
    message.border = QMargins(1, 2, 3, 4);
    const PopupDlgWithMask dialog(message, &m_window);
    QCOMPARE(dialog.parentWidget(), &m_window);
    QCOMPARE(dialog.size(), QSize(432, 232));
    QCOMPARE(dialog.minimumSize(), dialog.maximumSize());
    QVERIFY(dialog.testAttribute(Qt::WA_TranslucentBackground));
    QCOMPARE(dialog.layout()->contentsMargins(), QMargins(17, 18, 19, 20));
    QCOMPARE(titleOf(&dialog)->text(), message.title);
    QCOMPARE(contentOf(&dialog)->text(), message.content);
    QCOMPARE(noteOf(&dialog)->text(), message.noteText);
    QCOMPARE(confirmButtonOf(&dialog)->text(), message.confirmText);
    QVERIFY(!stackOf(&dialog));
    QVERIFY(!pageTimerOf(&dialog));
    QVERIFY(dialog.isHidden());
    QCOMPARE(dialog.pos(), QPoint(0, 0));
}

void tst_PopupMessage::makesPages()
{
    PopupDlgWithMask dialog(withPages(3));
    QCOMPARE(dialog.size(), kSize);
    QCOMPARE(titleOf(&dialog)->text(), QStringLiteral("Title"));
    QCOMPARE(noteOf(&dialog)->text(), QStringLiteral("1/3"));
    QCOMPARE(confirmButtonOf(&dialog)->text(), QStringLiteral("Go"));
    QCOMPARE(stackOf(&dialog)->count(), 3);
    for (int page = 0; page < 3; ++page) {
        const auto labels =
            stackOf(&dialog)->widget(page)->findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(labels.at(0)->styleSheet().contains(QStringLiteral(":/client/page%1.png").arg(page)));
        QCOMPARE(labels.at(1)->text(), QStringLiteral("Page %1").arg(page));
        QCOMPARE(labels.at(2)->text(), QStringLiteral("Text %1").arg(page));
    }
    turnPage(&dialog);
    QCOMPARE(stackOf(&dialog)->currentIndex(), 1);
}

void tst_PopupMessage::oneParentIsEnough()
{
    const PopupDlgWithMask dialog(withTexts());
    QVERIFY(!dialog.parentWidget());
    static_assert(!std::is_convertible<PopupMessage, PopupDlgWithMask>::value);
}

void tst_PopupMessage::setsWhatItSays_data()
{
    QTest::addColumn<bool>("on");
    QTest::newRow("on") << true;
    QTest::newRow("off") << false;
}

void tst_PopupMessage::setsWhatItSays()
{
    QFETCH(bool, on);
    PopupMessage message = withTexts();
    message.useMask = message.deleteOnClose = message.modal = on;
    QPointer<PopupDlgWithMask> dialog = new PopupDlgWithMask(message, &m_window);
    QCOMPARE(dialog->testAttribute(Qt::WA_DeleteOnClose), on);
    QCOMPARE(dialog->windowModality(), on ? Qt::ApplicationModal : Qt::NonModal);
    QCOMPARE(dialog->windowType(), Qt::Tool);
    dialog->show(true);
    QCOMPARE(OrvMaskCtrl::getInstance(nullptr)->getMaskWidget()->isVisible(), on);
    dialog->close();
    QVERIFY(!OrvMaskCtrl::getInstance(nullptr)->getMaskWidget()->isVisible());
    if (on)
        QTRY_VERIFY(!dialog);
    delete dialog;
}

void tst_PopupMessage::emptyConfirmTextIsOk()
{
    for (const int pages : {0, 2}) {
        PopupMessage message = withPages(pages);
        message.confirmText.clear();
        const PopupDlgWithMask dialog(message);
        QCOMPARE(confirmButtonOf(&dialog)->text(), QStringLiteral("OK"));
    }
}

void tst_PopupMessage::stretchesTheClientsImage()
{
    PopupMessage message = withTexts();
    message.backgroundImage = QStringLiteral(":/client/popup_bg.png");
    message.size = kSize;
    message.border = QMargins(1, 2, 3, 4);
    const PopupDlgWithMask dialog(message);
    const std::unique_ptr<PopupDlgWithMask> same = makeMessage();
    QCOMPARE(backgroundOf(&dialog)->styleSheet(), backgroundOf(same.get())->styleSheet());
    QCOMPARE(backgroundOf(&dialog)->size(), kSize);
}

void tst_PopupMessage::emptyImageIsTheCard()
{
    PopupMessage message = withTexts();
    const PopupDlgWithMask dialog(message);
    QVERIFY(backgroundOf(&dialog)->styleSheet().contains(kCard));
    message.backgroundImage = kCard;
    const PopupDlgWithMask same(message);
    QCOMPARE(backgroundOf(&same)->styleSheet(), backgroundOf(&dialog)->styleSheet());
}

void tst_PopupMessage::cardIsThereInBothLooks()
{
    const QImage light(kCard);
    const QImage dark(QStringLiteral(":/orvcommonlib/pictures/message_bg_dark.png"));
    QCOMPARE(light.size(), QSize(864, 464)); // twice the size of a message
    QCOMPARE(dark.size(), light.size());
    const QPoint middle = light.rect().center();
    QVERIFY(light.pixelColor(middle).lightness() > 230);
    QVERIFY(dark.pixelColor(middle).lightness() < 80);
    for (const QImage &card : {light, dark}) {
        QCOMPARE(card.pixelColor(middle).alpha(), 255);
        QCOMPARE(card.pixelColor(34, middle.y()).alpha(), 255);
        QVERIFY(card.pixelColor(20, middle.y()).alpha() < 60); // the shadow
        QVERIFY(card.pixelColor(0, 0).alpha() < 5);
    }
}

void tst_PopupMessage::cardFollowsTheLook()
{
    const PopupDlgWithMask dialog{PopupMessage()};
    const QString light = backgroundOf(&dialog)->styleSheet();
    const auto ground = [&dialog] {
        const QImage picture = renderWidget(backgroundOf(&dialog));
        return picture.pixelColor(picture.rect().center()).lightness();
    };
    QVERIFY(ground() > 230);
    OrvLook::setDark(true);
    QVERIFY(ground() < 80);
    QVERIFY(backgroundOf(&dialog)->styleSheet().contains(QLatin1String("message_bg_dark.png")));
    OrvLook::setDark(false);
    QCOMPARE(backgroundOf(&dialog)->styleSheet(), light);
}

void tst_PopupMessage::cardKeepsItsShape_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("a message") << QSize(432, 232);
    QTest::newRow("pages") << QSize(332, 425);
    QTest::newRow("wide") << QSize(700, 232);
}

void tst_PopupMessage::cardKeepsItsShape()
{
    QFETCH(QSize, size);
    PopupMessage message;
    message.size = size;
    const PopupDlgWithMask dialog(message);
    const QImage picture = renderWidget(backgroundOf(&dialog));
    const double ratio = picture.devicePixelRatio();
    const QRect panel = QRect(QPoint(), size).marginsRemoved(message.border);
    const auto alphaAt = [&](int x, int y) {
        return picture.pixelColor(int((x + 0.5) * ratio), int((y + 0.5) * ratio)).alpha();
    };
    // Opaque from edge to edge of the panel, but for its corners, and a shadow outside.
    const QPoint middle = panel.center();
    for (const QPoint &pos :
         {QPoint(panel.left() + 1, middle.y()), QPoint(panel.right() - 1, middle.y()),
          QPoint(middle.x(), panel.top() + 1), QPoint(middle.x(), panel.bottom() - 1), middle})
        QCOMPARE(alphaAt(pos.x(), pos.y()), 255);
    QVERIFY(alphaAt(panel.left() - 3, middle.y()) < 80);
    QVERIFY(alphaAt(middle.x(), panel.bottom() + 3) < 80);
    QVERIFY(alphaAt(panel.left(), panel.top()) < 100);
    QVERIFY(alphaAt(panel.right(), panel.bottom()) < 100);
    QCOMPARE(alphaAt(panel.left() + 4, panel.top() + 4), 255);
}

void tst_PopupMessage::buttonsAnswerTheMessage_data()
{
    QTest::addColumn<bool>("confirm");
    QTest::addColumn<int>("expected");
    QTest::newRow("confirm") << true << 0;
    QTest::newRow("close") << false << 2;
}

void tst_PopupMessage::buttonsAnswerTheMessage()
{
    QFETCH(bool, confirm);
    QFETCH(int, expected);
    QPointer<PopupDlgWithMask> dialog;
    InsideLoop::run([&] {
        dialog = openDialog();
        InsideLoop::click(confirm ? confirmButtonOf(dialog) : closeButtonOf(dialog));
    });
    const PopupDlgWithMask::ExecResult result =
        PopupDlgWithMask::message(&m_window, QStringLiteral("Title"), QStringLiteral("Content"));
    QCOMPARE(int(result), expected);
    QVERIFY(!dialog);
    QVERIFY(!openDialog());
}

void tst_PopupMessage::messageStandsOverItsWindow()
{
    QWidget panel(&m_window);
    panel.setGeometry(500, 400, 10, 10);
    QWidget *mask = OrvMaskCtrl::getInstance(nullptr)->getMaskWidget();
    bool masked = false;
    QRect geometry;
    InsideLoop::run([&] {
        masked = mask->isVisible();
        geometry = openDialog()->geometry();
        QCOMPARE(openDialog()->parentWidget(), &m_window);
        openDialog()->hide();
    });
    PopupDlgWithMask::message(&panel, QString(), QString());
    QCOMPARE(geometry, onScreen(QRect(184, 184, 432, 232)));
    QVERIFY(masked);
    QVERIFY(!mask->isVisible());
}

void tst_PopupMessage::messageIsTheDefaultOne()
{
    QStringList texts;
    Qt::WindowModality modality = Qt::NonModal;
    InsideLoop::run([&] {
        const PopupDlgWithMask *dialog = openDialog();
        modality = dialog->windowModality();
        texts << titleOf(dialog)->text() << contentOf(dialog)->text() << noteOf(dialog)->text()
              << confirmButtonOf(dialog)->text();
        openDialog()->hide();
    });
    PopupDlgWithMask::message(&m_window, QStringLiteral("a"), QStringLiteral("b"));
    QCOMPARE(texts, QStringList({QStringLiteral("a"), QStringLiteral("b"), QString(), QStringLiteral("OK")}));
    QCOMPARE(modality, Qt::ApplicationModal);
    InsideLoop::run([&] {
        texts = QStringList{confirmButtonOf(openDialog())->text()};
        openDialog()->hide();
    });
    PopupDlgWithMask::message(&m_window, QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"));
    QCOMPARE(texts, QStringList{QStringLiteral("c")});
}

void tst_PopupMessage::hidingAnswersNothing()
{
    InsideLoop::run([] { openDialog()->hide(); });
    QCOMPARE(PopupDlgWithMask::message(&m_window, QString(), QString()), PopupDlgWithMask::NoResult);
}

void tst_PopupMessage::windowDiesMeanwhile_data()
{
    QTest::addColumn<bool>("answered");
    QTest::newRow("unanswered") << false;
    QTest::newRow("as it is answered") << true;
}

void tst_PopupMessage::windowDiesMeanwhile()
{
    QFETCH(bool, answered);
    const QPointer<QWidget> window = new QWidget;
    window->show();
    InsideLoop::run([&] {
        if (!answered) {
            delete window;
            return;
        }
        connect(openDialog(), &PopupDlgWithMask::closeMsgBox, window, [&] { delete window; });
        InsideLoop::click(confirmButtonOf(openDialog()));
    });
    QCOMPARE(PopupDlgWithMask::message(window, QString(), QString()), PopupDlgWithMask::NoResult);
    QVERIFY(!window);
    QVERIFY(!openDialog());
}

void tst_PopupMessage::messageWithoutWindow()
{
    QRect geometry;
    InsideLoop::run([&] {
        geometry = openDialog()->geometry();
        InsideLoop::click(confirmButtonOf(openDialog()));
    });
    QCOMPARE(PopupDlgWithMask::message(nullptr, QString(), QString()), PopupDlgWithMask::Confirmed);
    const QRect available = QGuiApplication::primaryScreen()->availableGeometry();
    QCOMPARE(geometry,
             onScreen(QRect((available.width() - 432) / 2, (available.height() - 232) / 2, 432, 232)));
}

ORV_TEST_MAIN(tst_PopupMessage)

#include "tst_popupmessage.moc"
