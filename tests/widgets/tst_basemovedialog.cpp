#include "basemovedialogtest.h"

#include "logcapture.h"
#include "pictures.h"
#include "testmain.h"

#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QRubberBand>

#include <climits>

class tst_BaseMoveDialog : public BaseMoveDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void hasItsSignals();
    void isFrameless_data();
    void isFrameless();
    void ownsOneHelper_data();
    void ownsOneHelper();
    void handsItsSettingsToTheHelper();
    void setsBorderAndRubberBand_data();
    void setsBorderAndRubberBand();
    void readsNegativeMeasures();
    void keepsTheEnlargedCornerWithANegativeBorder();
    void readsTheLargestMeasures();

    void passesItsEventsToTheBase();
    void paintsItsStyleSheet();
    void isMappedWhenShown();

    void survivesDestructionInItsSlots_data();
    void survivesDestructionInItsSlots();
    void keepsAnEventThatItDoesNotSurvive_data();
    void keepsAnEventThatItDoesNotSurvive();
    void survivesDestructionInTheMiddleOfAGesture();
    void survivesTheLossOfItsHelper();
};

void tst_BaseMoveDialog::hasItsSignals()
{
    const QMetaObject &meta = BaseMoveDialog::staticMetaObject;
    QStringList names;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        QCOMPARE(meta.method(i).methodType(), QMetaMethod::Signal);
        names << QString::fromLatin1(meta.method(i).methodSignature());
    }
    QCOMPARE(names, QStringList({QStringLiteral("sig_windowMoved(QPoint)"),
                                 QStringLiteral("sig_windowMovefinished()"),
                                 QStringLiteral("sig_windowResizefinished()"),
                                 QStringLiteral("sig_doubleclickCanDragRect()")}));
    QCOMPARE(meta.superClass(), &QWidget::staticMetaObject);
}

void tst_BaseMoveDialog::isFrameless_data()
{
    QTest::addColumn<bool>("withParent");
    QTest::addColumn<bool>("translucent");
    QTest::addColumn<bool>("asDialog");
    for (int bits = 0; bits < 8; ++bits)
        QTest::addRow("%d", bits) << bool(bits & 1) << bool(bits & 2) << bool(bits & 4);
}

void tst_BaseMoveDialog::isFrameless()
{
    QFETCH(bool, withParent);
    QFETCH(bool, translucent);
    QFETCH(bool, asDialog);
    QWidget parent;
    auto dialog =
        std::make_unique<BaseMoveDialog>(withParent ? &parent : nullptr, true, translucent, asDialog);
    const QWidget plain(withParent ? &parent : nullptr);
    Qt::WindowFlags expected = plain.windowFlags() | Qt::FramelessWindowHint;
    if (asDialog)
        expected |= Qt::Dialog;
    QCOMPARE(dialog->windowFlags(), expected);
    QCOMPARE(dialog->isWindow(), asDialog || !withParent);
    QCOMPARE(dialog->parentWidget(), withParent ? &parent : nullptr);
    QCOMPARE(dialog->testAttribute(Qt::WA_TranslucentBackground), translucent);
    QVERIFY(dialog->isHidden() || !dialog->isVisible());
}

void tst_BaseMoveDialog::ownsOneHelper_data()
{
    QTest::addColumn<bool>("canMove");
    QTest::newRow("movable") << true;
    QTest::newRow("fixed") << false;
}

void tst_BaseMoveDialog::ownsOneHelper()
{
    QFETCH(bool, canMove);
    const BaseMoveDialog dialog(nullptr, canMove, false, true);
    const auto helpers = dialog.findChildren<FramelessHelper *>();
    QCOMPARE(helpers.size(), 1);
    QCOMPARE(helpers.constFirst()->parent(), &dialog);
    QCOMPARE(helpers.constFirst()->widgetMovable(), canMove);
    QVERIFY(!helpers.constFirst()->widgetResizable());
    QVERIFY(dialog.hasMouseTracking()); // the helper is active
    QVERIFY(!dialog.isMoving());
}

void tst_BaseMoveDialog::handsItsSettingsToTheHelper()
{
    m_dialog->setCanMove(false);
    QVERIFY(!helper()->widgetMovable());
    m_dialog->setCanMove(true);
    QVERIFY(helper()->widgetMovable());
    m_dialog->setWidgetResizable(true);
    QVERIFY(helper()->widgetResizable());
    m_dialog->setWidgetResizable(false);
    QVERIFY(!helper()->widgetResizable());

    // These two hold for every dialog of the process.
    BaseMoveDialog other(nullptr, true, false, true);
    m_dialog->setWidgetTitleHeight(140);
    m_dialog->setEnableRightBottomResizeArea(true);
    QCOMPARE(other.findChild<FramelessHelper *>()->titleHeight(), 140U);
    QVERIFY(other.findChild<FramelessHelper *>()->enableRightBottomAreaResizeState());
    other.setGeometry(kGeometry);
    MouseEvents::press(&other, at({150, 139}));
    MouseEvents::move(&other, at({151, 140}));
    QCOMPARE(other.geometry(), kGeometry.translated(1, 1));
    m_dialog->setEnableRightBottomResizeArea(false);
    QVERIFY(!helper()->enableRightBottomAreaResizeState());
    m_dialog->setWidgetTitleHeight(0);
    QCOMPARE(helper()->titleHeight(), 140U);
}

void tst_BaseMoveDialog::setsBorderAndRubberBand_data()
{
    QTest::addColumn<bool>("before");
    QTest::addColumn<bool>("rubberBand");
    QTest::addColumn<int>("border");
    QTest::addColumn<bool>("apply");
    QTest::addColumn<bool>("bandAfter");
    QTest::addColumn<unsigned int>("borderAfter");
    QTest::newRow("on") << false << true << 8 << true << true << 8U;
    QTest::newRow("off") << true << false << 8 << true << false << 8U;
    QTest::newRow("on, not applied") << false << true << 8 << false << false << 8U;
    QTest::newRow("off, not applied") << true << false << 8 << false << true << 8U;
    QTest::newRow("no border") << false << true << 0 << true << true << 5U;
    QTest::newRow("negative border") << false << true << -1 << true << true << UINT_MAX;
}

void tst_BaseMoveDialog::setsBorderAndRubberBand()
{
    QFETCH(bool, before);
    QFETCH(bool, rubberBand);
    QFETCH(int, border);
    QFETCH(bool, apply);
    QFETCH(bool, bandAfter);
    QFETCH(unsigned int, borderAfter);
    helper()->setRubberBandOnResize(before);
    m_dialog->setRectOfCanResize(rubberBand, border, apply);
    QCOMPARE(helper()->rubberBandOnResisze(), bandAfter);
    QCOMPARE(helper()->borderWidth(), borderAfter);
    QVERIFY(!helper()->rubberBandOnMove());
}

void tst_BaseMoveDialog::readsNegativeMeasures()
{
    // No border to press on, and the whole dialog for a title strip.
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);
    m_dialog->setWidgetResizable(true);
    for (const int measure : {-1, -10, INT_MIN}) {
        m_dialog->setRectOfCanResize(false, measure, false);
        m_dialog->setWidgetTitleHeight(measure);
        for (const QPoint &from : {QPoint(0, 0), QPoint(0, 130), kTitle, kMiddle, QPoint(299, 249)}) {
            press(from);
            moveTo(from - QPoint(5, 5));
            release(from - QPoint(5, 5));
            QCOMPARE(m_dialog->geometry(), kGeometry.translated(-5, -5));
            QCOMPARE(resized.count(), 0);
            m_dialog->setGeometry(kGeometry);
        }
    }
}

// Its side is the sum of both measures, so that it is there without a border.
void tst_BaseMoveDialog::keepsTheEnlargedCornerWithANegativeBorder()
{
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);
    m_dialog->setWidgetResizable(true);
    m_dialog->setRectOfCanResize(false, -4, false);
    m_dialog->setEnableRightBottomResizeArea(true);
    press({293, 243});
    release({292, 243});
    QCOMPARE(resized.count(), 0);
    press({294, 244});
    release({293, 244});
    QCOMPARE(resized.count(), 1);
}

void tst_BaseMoveDialog::readsTheLargestMeasures()
{
    const QSignalSpy resized(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished);
    m_dialog->setWidgetResizable(true);
    m_dialog->setRectOfCanResize(false, INT_MAX, false);
    helper()->setRightBottomAreaExtraPix(INT_MAX);
    m_dialog->setEnableRightBottomResizeArea(true);
    press(kMiddle);
    moveTo(kMiddle + QPoint(100, 100));
    release(kMiddle + QPoint(1, 1));
    QCOMPARE(resized.count(), 1);
}

void tst_BaseMoveDialog::passesItsEventsToTheBase()
{
    // QWidget's own handlers leave mouse events to the parent.
    const auto passes = [this](QEvent::Type type, Qt::MouseButtons buttons,
                               void (BaseMoveDialog::*handler)(QMouseEvent *)) {
        QMouseEvent event(type, kMiddle, at(kMiddle),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
        event.accept();
        (m_dialog.get()->*handler)(&event);
        return !event.isAccepted();
    };
    for (const bool canMove : {true, false}) {
        for (const bool resizable : {true, false}) {
            m_dialog->setCanMove(canMove);
            m_dialog->setWidgetResizable(resizable);
            QVERIFY(passes(QEvent::MouseMove, Qt::NoButton, &BaseMoveDialog::mouseMoveEvent));
            QVERIFY(passes(QEvent::MouseButtonPress, Qt::LeftButton, &BaseMoveDialog::mousePressEvent));
            QVERIFY(passes(QEvent::MouseMove, Qt::LeftButton, &BaseMoveDialog::mouseMoveEvent));
            QVERIFY(passes(QEvent::MouseMove, Qt::RightButton, &BaseMoveDialog::mouseMoveEvent));
            QVERIFY(passes(QEvent::MouseButtonRelease, Qt::NoButton, &BaseMoveDialog::mouseReleaseEvent));
            QVERIFY(
                passes(QEvent::MouseButtonDblClick, Qt::LeftButton, &BaseMoveDialog::mouseDoubleClickEvent));
        }
    }
}

void tst_BaseMoveDialog::paintsItsStyleSheet()
{
    m_dialog->setStyleSheet(QStringLiteral("BaseMoveDialog{background-color:#4B66EB;border:2px solid #1F1F22;"
                                           "border-radius:8px;}"));
    const QImage picture = renderWidget(m_dialog.get());
    QCOMPARE(picture.pixelColor(kMiddle), QColor(0x4B, 0x66, 0xEB));
    QCOMPARE(picture.pixelColor(0, 130), QColor(0x1F, 0x1F, 0x22));
    QCOMPARE(picture.pixelColor(298, 130), QColor(0x1F, 0x1F, 0x22));
    QCOMPARE(picture.pixelColor(0, 0).alpha(), 0);
    m_dialog->setStyleSheet(QString());
    QCOMPARE(renderWidget(m_dialog.get()).pixelColor(kMiddle).alpha(), 0);
}

void tst_BaseMoveDialog::isMappedWhenShown()
{
    m_dialog->setAttribute(Qt::WA_Mapped, false);
    QShowEvent event;
    QCoreApplication::sendEvent(m_dialog.get(), &event);
    QVERIFY(m_dialog->testAttribute(Qt::WA_Mapped));
}

void tst_BaseMoveDialog::survivesDestructionInItsSlots_data()
{
    QTest::addColumn<int>("signal");
    QTest::newRow("moved") << 0;
    QTest::newRow("move finished") << 1;
    QTest::newRow("resize finished") << 2;
    QTest::newRow("double click") << 3;
}

void tst_BaseMoveDialog::survivesDestructionInItsSlots()
{
    QFETCH(int, signal);
    m_dialog->setWidgetResizable(true);
    m_dialog->setRectOfCanDrag({0, 0, 300, 250});
    m_dialog->show();
    const auto strike = [this] {
        m_dialog.reset();
    };
    switch (signal) {
    case 0:
        connect(m_dialog.get(), &BaseMoveDialog::sig_windowMoved, this, strike);
        press(kTitle);
        moveTo(kTitle + QPoint(1, 1));
        break;
    case 1:
        connect(m_dialog.get(), &BaseMoveDialog::sig_windowMovefinished, this, strike);
        press({2, 130}); // a resize is due as well
        press(kMiddle);
        moveTo(kMiddle + QPoint(1, 1));
        release(kMiddle + QPoint(1, 1));
        break;
    case 2:
        connect(m_dialog.get(), &BaseMoveDialog::sig_windowResizefinished, this, strike);
        press({2, 130});
        release({20, 130});
        break;
    default:
        connect(m_dialog.get(), &BaseMoveDialog::sig_doubleclickCanDragRect, this, strike);
        MouseEvents::doubleClick(m_dialog.get(), at(kMiddle));
        break;
    }
    QVERIFY(!m_dialog);
}

void tst_BaseMoveDialog::keepsAnEventThatItDoesNotSurvive_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("move") << int(QEvent::MouseMove);
    QTest::newRow("release") << int(QEvent::MouseButtonRelease);
    QTest::newRow("double click") << int(QEvent::MouseButtonDblClick);
}

// Qt offers an event that is not accepted to the parent, which it asks the receiver for.
void tst_BaseMoveDialog::keepsAnEventThatItDoesNotSurvive()
{
    QFETCH(int, type);
    m_dialog->setRectOfCanDrag({0, 0, 300, 250});
    press(kMiddle);
    if (type == QEvent::MouseButtonRelease)
        moveTo(kMiddle + QPoint(1, 1));
    for (const auto signal :
         {&BaseMoveDialog::sig_windowMovefinished, &BaseMoveDialog::sig_doubleclickCanDragRect})
        connect(m_dialog.get(), signal, this, [this] { m_dialog.reset(); });
    connect(m_dialog.get(), &BaseMoveDialog::sig_windowMoved, this, [this] { m_dialog.reset(); });
    QMouseEvent event(QEvent::Type(type), kMiddle, at(kMiddle), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    event.ignore();
    QCoreApplication::sendEvent(m_dialog.get(), &event);
    QVERIFY(!m_dialog);
    QVERIFY(event.isAccepted());
}

void tst_BaseMoveDialog::survivesDestructionInTheMiddleOfAGesture()
{
    const LogCapture log;
    m_dialog->setWidgetResizable(true);
    m_dialog->setRectOfCanResize(true, 5, true);
    QRect rect(0, 0, 1000, 1000);
    m_dialog->setRectOfCanMove(&rect);
    m_dialog->setRectOfCanDrag(rect);
    press({2, 130});
    m_dialog.reset();
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget *window : windows)
        QVERIFY(!qobject_cast<const QRubberBand *>(window));
}

void tst_BaseMoveDialog::survivesTheLossOfItsHelper()
{
    delete helper();
    m_dialog->setCanMove(true);
    m_dialog->setWidgetResizable(true);
    m_dialog->setWidgetTitleHeight(20);
    m_dialog->setEnableRightBottomResizeArea(true);
    m_dialog->setRectOfCanResize(true, 9, true);
    const QSignalSpy moved(m_dialog.get(), &BaseMoveDialog::sig_windowMoved);
    press({2, 30});
    moveTo({4, 30});
    release({4, 30});
    QCOMPARE(moved.count(), 1);
    QCOMPARE(m_dialog->geometry(), kGeometry);
}

ORV_TEST_MAIN(tst_BaseMoveDialog)

#include "tst_basemovedialog.moc"
