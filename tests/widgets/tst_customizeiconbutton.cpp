#include "customizeiconbutton.h"
#include "pictures.h"
#include "testmain.h"

#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

namespace {

enum State { Normal, Hover, Pressed, Disabled };

QString sheet(const char *part, State state)
{
    return QStringLiteral("*{qproperty-%1:\"%2\"}").arg(QString::fromLatin1(part)).arg(int(state));
}

// Notes what reaches the base handlers' side: events that the parent gets because the base ignores them.
class Parent : public QWidget
{
public:
    int presses = 0;
    int releases = 0;

protected:
    void mousePressEvent(QMouseEvent *) override { ++presses; }
    void mouseReleaseEvent(QMouseEvent *) override { ++releases; }
};

void sendMouse(QWidget *widget, QEvent::Type type, QPoint pos, Qt::MouseButton button = Qt::LeftButton)
{
    QMouseEvent event(type, pos, widget->mapToGlobal(pos), button,
                      type == QEvent::MouseButtonRelease ? Qt::NoButton : button, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

void sendPlain(QWidget *widget, QEvent::Type type)
{
    QEvent event(type);
    QCoreApplication::sendEvent(widget, &event);
}

} // namespace

class tst_CustomizeIconButton : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void construction_data();
    void construction();
    void takesAnotherIconSize();
    void iconImagesBecomeSheets();
    void sheetsFollowTheState();
    void emptySheetsLeaveTheLookAlone();
    void statesApplyAnUnchangedSheet_data();
    void statesApplyAnUnchangedSheet();
    void lostPressIsNoClick();
    void settersApplyAnUnchangedSheet();
    void clickIsAPressAndItsRelease();
    void draggingIsNoClick();
    void otherButtonsDoNothing();
    void strayReleaseIsNoClick();
    void twoQuickClicksAreTwoClicks();
    void notEnabledDoesNothing();
    void ownFlagLeavesTheWidgetEnabled();
    void stateKeptWhileNotEnabled();
    void baseHandlersGetEveryEvent();
    void lookGoesBackBeforeTheSignal();
    void destroyedInItsOwnClick();
    void paintsItsStyleSheet();

private:
    QLabel *iconLabel() const { return m_button->findChildren<QLabel *>().at(0); }
    QLabel *textLabel() const { return m_button->findChildren<QLabel *>().at(1); }
    void setAllSheets();
    void compareSheets(State state);

    Parent *m_parent = nullptr;
    QPointer<CustomizeIconButton> m_button;
};

void tst_CustomizeIconButton::init()
{
    m_parent = new Parent;
    m_button = new CustomizeIconButton(QSize(20, 16), QStringLiteral("Text"), 6, m_parent, false);
    m_button->resize(100, 30);
    m_parent->resize(200, 100);
    m_parent->show();
}

void tst_CustomizeIconButton::cleanup()
{
    delete m_parent;
}

void tst_CustomizeIconButton::setAllSheets()
{
    m_button->setOveralStyle(sheet("accessibleName", Normal), sheet("accessibleName", Hover),
                             sheet("accessibleName", Pressed), sheet("accessibleName", Disabled));
    m_button->setTextStyle(sheet("toolTip", Normal), sheet("toolTip", Hover), sheet("toolTip", Pressed),
                           sheet("toolTip", Disabled));
    m_button->setIconImage(QStringLiteral("0.png"), QStringLiteral("1.png"), QStringLiteral("2.png"),
                           QStringLiteral("3.png"));
}

void tst_CustomizeIconButton::compareSheets(State state)
{
    QCOMPARE(m_button->styleSheet(), sheet("accessibleName", state));
    QCOMPARE(textLabel()->styleSheet(), sheet("toolTip", state));
    QCOMPARE(
        iconLabel()->styleSheet(),
        QStringLiteral("QLabel{background:transparent; border:none; image:url(%1.png);}").arg(int(state)));
}

void tst_CustomizeIconButton::construction_data()
{
    QTest::addColumn<bool>("isCenter");
    QTest::newRow("left") << false;
    QTest::newRow("centred") << true;
}

void tst_CustomizeIconButton::construction()
{
    QFETCH(bool, isCenter);
    CustomizeIconButton button(QSize(20, 16), QStringLiteral("Text"), 6, nullptr, isCenter);
    auto *layout = qobject_cast<QHBoxLayout *>(button.layout());
    QVERIFY(layout);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->spacing(), 6);
    QCOMPARE(layout->count(), isCenter ? 4 : 2);
    const int first = isCenter ? 1 : 0;
    const QList<QLabel *> labels = button.findChildren<QLabel *>();
    QCOMPARE(layout->itemAt(first)->widget(), labels.at(0));
    QCOMPARE(layout->itemAt(first)->alignment(), Qt::Alignment(Qt::AlignCenter));
    QCOMPARE(labels.at(0)->minimumSize(), QSize(20, 16));
    QCOMPARE(labels.at(0)->maximumSize(), QSize(20, 16));
    QCOMPARE(labels.at(0)->property("state").toString(), QStringLiteral("normal"));
    QCOMPARE(layout->itemAt(first + 1)->widget(), labels.at(1));
    QCOMPARE(layout->itemAt(first + 1)->alignment(), Qt::Alignment(Qt::AlignCenter));
    QCOMPARE(labels.at(1)->alignment(), Qt::Alignment(Qt::AlignCenter));
    QCOMPARE(labels.at(1)->text(), QStringLiteral("Text"));
    if (isCenter) {
        for (const int index : {0, 3}) {
            QSpacerItem *spacer = layout->itemAt(index)->spacerItem();
            QVERIFY(spacer);
            QCOMPARE(spacer->sizeHint(), QSize(1, 16));
            QCOMPARE(spacer->sizePolicy(), QSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed));
        }
    }
}

void tst_CustomizeIconButton::takesAnotherIconSize()
{
    const QString text = QStringLiteral("Text");
    CustomizeIconButton button(QSize(60, 50), text, 6, nullptr, true);
    button.setIconSize(QSize(20, 16));
    const CustomizeIconButton made(QSize(20, 16), text, 6, nullptr, true);
    QCOMPARE(button.sizeHint(), made.sizeHint());
    QCOMPARE(button.minimumSizeHint(), made.minimumSizeHint());
}

void tst_CustomizeIconButton::iconImagesBecomeSheets()
{
    m_button->setIconImage(QStringLiteral(":/a.png"), QString(), QString(), QString());
    QCOMPARE(iconLabel()->styleSheet(),
             QStringLiteral("QLabel{background:transparent; border:none; image:url(:/a.png);}"));
}

void tst_CustomizeIconButton::sheetsFollowTheState()
{
    setAllSheets();
    compareSheets(Normal);
    sendPlain(m_button, QEvent::Enter);
    compareSheets(Hover);
    sendMouse(m_button, QEvent::MouseButtonPress, QPoint(5, 5));
    compareSheets(Pressed);
    sendMouse(m_button, QEvent::MouseButtonRelease, QPoint(5, 5));
    compareSheets(Hover);
    sendPlain(m_button, QEvent::Leave);
    compareSheets(Normal);
    m_button->setEnabled(false);
    compareSheets(Disabled);
    m_button->setEnabled(true);
    compareSheets(Normal);
    QCOMPARE(iconLabel()->property("state").toString(), QStringLiteral("normal"));
}

void tst_CustomizeIconButton::emptySheetsLeaveTheLookAlone()
{
    m_button->setOveralStyle(sheet("accessibleName", Normal), sheet("accessibleName", Hover), QString(),
                             QString());
    sendPlain(m_button, QEvent::Enter);
    sendMouse(m_button, QEvent::MouseButtonPress, QPoint(5, 5));
    QCOMPARE(m_button->styleSheet(), sheet("accessibleName", Hover));
    m_button->setEnabled(false);
    QCOMPARE(m_button->styleSheet(), sheet("accessibleName", Hover));
}

void tst_CustomizeIconButton::statesApplyAnUnchangedSheet_data()
{
    QTest::addColumn<QEvent::Type>("change");
    QTest::newRow("enter") << QEvent::Enter;
    QTest::newRow("leave") << QEvent::Leave;
    QTest::newRow("press") << QEvent::MouseButtonPress;
    QTest::newRow("release") << QEvent::MouseButtonRelease;
}

void tst_CustomizeIconButton::statesApplyAnUnchangedSheet()
{
    // What the sheet selects on may have changed since.
    QFETCH(QEvent::Type, change);
    const QString same = QStringLiteral("QWidget[current=true]{background:#123456;}");
    m_button->setOveralStyle(same, same, same, same);
    m_button->setProperty("current", true);
    QVERIFY(renderWidget(m_button).pixelColor(1, 1) != QColor(0x12, 0x34, 0x56));
    if (change == QEvent::Enter || change == QEvent::Leave)
        sendPlain(m_button, change);
    else
        sendMouse(m_button, change, QPoint(5, 5));
    QCOMPARE(renderWidget(m_button).pixelColor(1, 1), QColor(0x12, 0x34, 0x56));
}

// A modal window, say, takes the release away: the look goes back, and the next click is one.
void tst_CustomizeIconButton::lostPressIsNoClick()
{
    setAllSheets();
    const QSignalSpy clicked(m_button.data(), &CustomizeIconButton::clicked);
    sendMouse(m_button, QEvent::MouseButtonPress, QPoint(5, 5));
    compareSheets(Pressed);
    sendPlain(m_button, QEvent::WindowBlocked);
    compareSheets(Normal);
    sendMouse(m_button, QEvent::MouseButtonRelease, QPoint(5, 5));
    QCOMPARE(clicked.count(), 0);
    sendMouse(m_button, QEvent::MouseButtonPress, QPoint(5, 5));
    sendMouse(m_button, QEvent::MouseButtonRelease, QPoint(5, 5));
    QCOMPARE(clicked.count(), 1);
}

void tst_CustomizeIconButton::settersApplyAnUnchangedSheet()
{
    // What the sheet selects on may have changed since.
    const QString sheetOfProperty = QStringLiteral("QWidget[current=true]{background:#123456;}");
    m_button->setOveralStyle(sheetOfProperty, QString(), QString(), QString());
    QVERIFY(renderWidget(m_button).pixelColor(1, 1) != QColor(0x12, 0x34, 0x56));
    m_button->setProperty("current", true);
    m_button->setOveralStyle(sheetOfProperty, QString(), QString(), QString());
    QCOMPARE(renderWidget(m_button).pixelColor(1, 1), QColor(0x12, 0x34, 0x56));
}

void tst_CustomizeIconButton::clickIsAPressAndItsRelease()
{
    const QSignalSpy clicked(m_button.data(), &CustomizeIconButton::clicked);
    sendMouse(m_button, QEvent::MouseButtonPress, QPoint(5, 5));
    QCOMPARE(clicked.count(), 0);
    sendMouse(m_button, QEvent::MouseButtonRelease, QPoint(5 + QApplication::startDragDistance() - 1, 5));
    QCOMPARE(clicked.count(), 1);
}

void tst_CustomizeIconButton::draggingIsNoClick()
{
    setAllSheets();
    const QSignalSpy clicked(m_button.data(), &CustomizeIconButton::clicked);
    sendMouse(m_button, QEvent::MouseButtonPress, QPoint(5, 5));
    sendMouse(m_button, QEvent::MouseButtonRelease, QPoint(5 + QApplication::startDragDistance(), 5));
    QCOMPARE(clicked.count(), 0);
    compareSheets(Normal);
}

void tst_CustomizeIconButton::otherButtonsDoNothing()
{
    setAllSheets();
    const QSignalSpy clicked(m_button.data(), &CustomizeIconButton::clicked);
    sendMouse(m_button, QEvent::MouseButtonPress, QPoint(5, 5), Qt::RightButton);
    compareSheets(Normal);
    sendMouse(m_button, QEvent::MouseButtonRelease, QPoint(5, 5), Qt::RightButton);
    QCOMPARE(clicked.count(), 0);
}

void tst_CustomizeIconButton::strayReleaseIsNoClick()
{
    const QSignalSpy clicked(m_button.data(), &CustomizeIconButton::clicked);
    sendMouse(m_button, QEvent::MouseButtonRelease, QPoint(0, 0));
    QCOMPARE(clicked.count(), 0);
}

void tst_CustomizeIconButton::twoQuickClicksAreTwoClicks()
{
    const QSignalSpy clicked(m_button.data(), &CustomizeIconButton::clicked);
    sendMouse(m_button, QEvent::MouseButtonPress, QPoint(5, 5));
    sendMouse(m_button, QEvent::MouseButtonRelease, QPoint(5, 5));
    sendMouse(m_button, QEvent::MouseButtonDblClick, QPoint(5, 5));
    sendMouse(m_button, QEvent::MouseButtonRelease, QPoint(5, 5));
    QCOMPARE(clicked.count(), 2);
}

void tst_CustomizeIconButton::notEnabledDoesNothing()
{
    setAllSheets();
    const QSignalSpy clicked(m_button.data(), &CustomizeIconButton::clicked);
    m_button->setEnabled(false);
    sendPlain(m_button, QEvent::Enter);
    sendMouse(m_button, QEvent::MouseButtonPress, QPoint(5, 5));
    sendMouse(m_button, QEvent::MouseButtonRelease, QPoint(5, 5));
    compareSheets(Disabled);
    QCOMPARE(clicked.count(), 0);
    m_button->setEnabled(true);
    compareSheets(Normal);
}

void tst_CustomizeIconButton::ownFlagLeavesTheWidgetEnabled()
{
    m_button->setEnabled(false);
    QVERIFY(m_button->isEnabled());
}

void tst_CustomizeIconButton::stateKeptWhileNotEnabled()
{
    // What happens while the button is not enabled is not noticed, so the old state shows again afterwards.
    setAllSheets();
    sendPlain(m_button, QEvent::Enter);
    m_button->setEnabled(false);
    sendPlain(m_button, QEvent::Leave);
    m_button->setEnabled(true);
    compareSheets(Hover);
}

void tst_CustomizeIconButton::baseHandlersGetEveryEvent()
{
    // QWidget's handlers ignore presses and releases, so they come to the parent, enabled or not.
    for (const bool enabled : {true, false}) {
        m_button->setEnabled(enabled);
        QTest::mouseClick(m_button, Qt::LeftButton);
        QTest::mouseClick(m_button, Qt::RightButton);
    }
    QCOMPARE(m_parent->presses, 4);
    QCOMPARE(m_parent->releases, 4);
}

void tst_CustomizeIconButton::lookGoesBackBeforeTheSignal()
{
    setAllSheets();
    connect(m_button, &CustomizeIconButton::clicked, m_button,
            [this] { m_button->setProperty("seen", m_button->styleSheet()); });
    sendMouse(m_button, QEvent::MouseButtonPress, QPoint(5, 5));
    sendMouse(m_button, QEvent::MouseButtonRelease, QPoint(5, 5));
    QCOMPARE(m_button->property("seen").toString(), sheet("accessibleName", Normal));
}

void tst_CustomizeIconButton::destroyedInItsOwnClick()
{
    connect(m_button, &CustomizeIconButton::clicked, this, [&] { delete m_button; });
    QTest::mouseClick(m_button, Qt::LeftButton);
    QVERIFY(!m_button);
}

void tst_CustomizeIconButton::paintsItsStyleSheet()
{
    m_button->setObjectName(QStringLiteral("iconButton"));
    m_button->setOveralStyle(QStringLiteral("QWidget#iconButton{background:#123456;}"), QString(), QString(),
                             QString());
    QCOMPARE(renderWidget(m_button).pixelColor(1, 1), QColor(0x12, 0x34, 0x56));
}

ORV_TEST_MAIN(tst_CustomizeIconButton)

#include "tst_customizeiconbutton.moc"
