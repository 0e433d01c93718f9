#include "logcapture.h"
#include "shadowcombotesting.h"
#include "testmain.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>

#include <memory>

using namespace ShadowComboTesting;

namespace {

void sendKey(QObject *receiver, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
             bool repeats = false)
{
    QKeyEvent event(QEvent::KeyPress, key, modifiers, QString(), repeats);
    QCoreApplication::sendEvent(receiver, &event);
}

QVector<bool> grayOf(const QString &rows)
{
    QVector<bool> gray;
    for (const QChar row : rows)
        gray << (row == QLatin1Char('g'));
    return gray;
}

} // namespace

/// The shadow combo box and the keyboard.
class tst_CustomShadowComboxKeys : public Fixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { deleteWindow(); }

    void keysOpen_data();
    void keysOpen();
    void nothingOpensWithoutRows();
    void aHeldKeyOpensOnce();
    void anyKeyClosesAndDoesNothingElse_data();
    void anyKeyClosesAndDoesNothingElse();
    void closesWhereTheListIsNotActive();
    void keysOfOthersCloseAndArrive();
    void choosesLikeAClick();
    void choosesRowsThatAreNotGray_data();
    void choosesRowsThatAreNotGray();
    void afterClear();
};

void tst_CustomShadowComboxKeys::init()
{
    makeWindow();
    m_combo->setFocusPolicy(Qt::StrongFocus);
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_combo->setFocus(Qt::TabFocusReason);
}

void tst_CustomShadowComboxKeys::keysOpen_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::newRow("Space") << int(Qt::Key_Space) << int(Qt::NoModifier);
    QTest::newRow("Return") << int(Qt::Key_Return) << int(Qt::NoModifier);
    QTest::newRow("Enter") << int(Qt::Key_Enter) << int(Qt::KeypadModifier);
    QTest::newRow("Alt+Down") << int(Qt::Key_Down) << int(Qt::AltModifier);
    QTest::newRow("Alt+Down of the keypad") << int(Qt::Key_Down) << int(Qt::AltModifier | Qt::KeypadModifier);
    QTest::newRow("F4") << int(Qt::Key_F4) << int(Qt::NoModifier);
}

void tst_CustomShadowComboxKeys::keysOpen()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);

    m_combo->add(3);
    SignalLog log(m_combo);
    for (int round = 0; round < 3; ++round) {
        QTest::keyClick(m_combo, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QVERIFY(m_combo->isOpen());
        QCOMPARE(log.take(), QStringList());
        QTest::keyClick(m_combo->popup()->windowHandle(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));
        QVERIFY(!m_combo->isOpen());
        QCOMPARE(log.take(), kHiddenOnce);
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        QTRY_VERIFY(m_combo->hasFocus());
    }
}

void tst_CustomShadowComboxKeys::nothingOpensWithoutRows()
{
    SignalLog log(m_combo);
    for (const int key : {Qt::Key_Space, Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End})
        sendKey(m_combo, key);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
    // Held on, a key that has opened nothing closes as any other does.
    sendKey(m_combo, Qt::Key_Space);
    open();
    sendKey(m_combo->popup()->windowHandle(), Qt::Key_Space, Qt::NoModifier, true);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), kHiddenOnce);
}

void tst_CustomShadowComboxKeys::aHeldKeyOpensOnce()
{
    m_combo->add(3);
    SignalLog log(m_combo);
    sendKey(m_combo, Qt::Key_Space, Qt::NoModifier, true); // held since before the combo box had the focus
    QVERIFY(!m_combo->isOpen());
    sendKey(m_combo, Qt::Key_Space);
    for (int repeat = 0; repeat < 3; ++repeat)
        sendKey(m_combo->popup()->windowHandle(), Qt::Key_Space, Qt::NoModifier, true);
    sendKey(m_combo, Qt::Key_Space, Qt::NoModifier, true);
    QVERIFY(m_combo->isOpen());
    QCOMPARE(log.take(), QStringList());
    // Another key that is held closes, and so does this one when it is pressed again.
    sendKey(m_combo->popup()->windowHandle(), Qt::Key_Down, Qt::NoModifier, true);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), kHiddenOnce);
}

void tst_CustomShadowComboxKeys::anyKeyClosesAndDoesNothingElse_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Escape") << int(Qt::Key_Escape);
    QTest::newRow("Space") << int(Qt::Key_Space);
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Down") << int(Qt::Key_Down);
    QTest::newRow("End") << int(Qt::Key_End);
    QTest::newRow("letter") << int(Qt::Key_A);
}

void tst_CustomShadowComboxKeys::anyKeyClosesAndDoesNothingElse()
{
    QFETCH(int, key);

    open();
    SignalLog log(m_combo);
    sendKey(m_combo->popup()->windowHandle(), key);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(log.take(), kHiddenOnce);
    QCOMPARE(m_combo->currentIndex(), -1);
}

// A window manager may leave the combo box's window active: then the key comes to the combo box itself.
void tst_CustomShadowComboxKeys::closesWhereTheListIsNotActive()
{
    SignalLog log(m_combo);
    for (QObject *receiver : {static_cast<QObject *>(m_window->windowHandle()),
                              static_cast<QObject *>(m_combo), static_cast<QObject *>(m_combo->header())}) {
        for (const int key : {Qt::Key_Space, Qt::Key_Down}) {
            open();
            m_window->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
            log.take();
            if (!m_combo->isOpen()) // the pointer is outside, so that the change of window has closed it
                m_combo->showPopup();
            m_combo->setFocus();
            sendKey(receiver, key);
            QVERIFY(!m_combo->isOpen());
            QCOMPARE(log.take(), kHiddenOnce);
            QCOMPARE(m_combo->currentIndex(), -1);
        }
    }
    // That is over with the key that has closed.
    sendKey(m_combo, Qt::Key_Down);
    QCOMPARE(m_combo->currentIndex(), 0);
}

void tst_CustomShadowComboxKeys::keysOfOthersCloseAndArrive()
{
    QLineEdit edit(m_window.get());
    edit.show();
    open();
    QTest::keyClick(&edit, Qt::Key_X);
    QVERIFY(!m_combo->isOpen());
    QCOMPARE(edit.text(), QStringLiteral("x"));
    QTest::keyClick(m_combo, Qt::Key_Down);
    QCOMPARE(m_combo->currentIndex(), 0);
}

void tst_CustomShadowComboxKeys::choosesLikeAClick()
{
    m_combo->add(3);
    SignalLog log(m_combo);

    open();
    LogCapture clickLog;
    m_combo->clickRow(1);
    const QStringList clicked = log.take();
    const QStringList clickLines = clickLog.texts();
    QCOMPARE(clicked, QStringList{QStringLiteral("current(1) open")});

    m_combo->setCurrentIndex(0);
    LogCapture keyLog;
    sendKey(m_combo, Qt::Key_Down);
    QCOMPARE(log.take(), QStringList{QStringLiteral("current(1) closed")});
    QCOMPARE(keyLog.texts(), clickLines);
    QCOMPARE(m_combo->headerText(), QStringLiteral("Row 1"));
}

// One letter for each row, g for a gray one.
void tst_CustomShadowComboxKeys::choosesRowsThatAreNotGray_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("expected");
    const auto row = [](const char *name, const char *rows, int current, Qt::Key key, int expected) {
        QTest::newRow(name) << QString::fromLatin1(rows) << current << int(key) << expected;
    };
    row("down", "ooo", 0, Qt::Key_Down, 1);
    row("up", "ooo", 2, Qt::Key_Up, 1);
    row("home", "ooo", 2, Qt::Key_Home, 0);
    row("end", "ooo", 0, Qt::Key_End, 2);
    row("down over gray rows", "oggo", 0, Qt::Key_Down, 3);
    row("up over gray rows", "oggo", 3, Qt::Key_Up, 0);
    row("home over gray rows", "ggoo", 3, Qt::Key_Home, 2);
    row("end over gray rows", "oogg", 0, Qt::Key_End, 1);
    row("down over a gray row", "ogo", 0, Qt::Key_Down, 2);
    row("up over a gray row", "ogo", 2, Qt::Key_Up, 0);
    row("home over a gray row", "goo", 2, Qt::Key_Home, 1);
    row("end over a gray row", "oog", 0, Qt::Key_End, 1);
    row("down at the end", "ooo", 2, Qt::Key_Down, 2);
    row("up at the beginning", "ooo", 0, Qt::Key_Up, 0);
    row("home at home", "ooo", 0, Qt::Key_Home, 0);
    row("down where all below is gray", "oogg", 1, Qt::Key_Down, 1);
    row("up where all above is gray", "ggoo", 2, Qt::Key_Up, 2);
    row("all gray", "ggg", 1, Qt::Key_End, 1);
    row("from a gray row", "ogo", 1, Qt::Key_Down, 2);
    row("down from none", "goo", -1, Qt::Key_Down, 1);
    row("up from none", "ooo", -1, Qt::Key_Up, -1);
    row("end from none", "ooo", -1, Qt::Key_End, 2);
}

void tst_CustomShadowComboxKeys::choosesRowsThatAreNotGray()
{
    QFETCH(QString, rows);
    QFETCH(int, current);
    QFETCH(int, key);
    QFETCH(int, expected);

    m_combo->add(rows.size());
    QVector<bool> gray = grayOf(rows);
    m_combo->setItemGrayState(gray);
    m_combo->setCurrentIndex(current);
    SignalLog log(m_combo);
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(m_combo, &event);
    QVERIFY(event.isAccepted());
    QCOMPARE(m_combo->currentIndex(), expected);
    const QString told = QStringLiteral("current(%1) closed").arg(expected);
    QCOMPARE(log.take(), expected == current ? QStringList() : QStringList{told});
}

void tst_CustomShadowComboxKeys::afterClear()
{
    m_combo->add(9);
    m_combo->setCurrentIndex(8);
    m_combo->clear();
    SignalLog log(m_combo);
    sendKey(m_combo, Qt::Key_Up);
    m_combo->add(3);
    sendKey(m_combo, Qt::Key_Down);
    QCOMPARE(m_combo->currentIndex(), 8);
    QCOMPARE(log.take(), QStringList());
    sendKey(m_combo, Qt::Key_Up);
    QCOMPARE(log.take(), QStringList{QStringLiteral("current(2) closed")});
}

ORV_TEST_MAIN(tst_CustomShadowComboxKeys)
#include "tst_customshadowcombox_keys.moc"
