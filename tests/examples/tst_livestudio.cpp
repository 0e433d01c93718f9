#include "client.h"
#include "realpointer.h"
#include "testmain.h"

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

namespace {

constexpr int kTimeoutMs = 30000;
constexpr int kGrip = 14;

const QString kTipsButton = QStringLiteral("QPushButton/Got it");
const QString kEnough = QStringLiteral("QCheckBox/Do not show again");
const QString kCamera = QStringLiteral("CustomShadowCombox/Camera");
const QString kBrightness = QStringLiteral("NewHorizontalSlider/Brightness");
const QString kZoom = QStringLiteral("CustomSliderBarWidget/Zoom");
const QString kMessageButton = QStringLiteral("QPushButton/OK");
const QString kDark = QStringLiteral("QToolButton/Dark look");
const QString kClose = QStringLiteral("QToolButton/Close");
const QString kLeave = QStringLiteral("QPushButton/Leave");
const QString kSnapshot = QStringLiteral("QPushButton/Snapshot");
const QString kHotkeyTool = QStringLiteral("CustomToolButton/Snapshot hotkey");
const QString kHotkey = QStringLiteral("CustomKeySequenceEdit/Snapshot hotkey");

QString named(const char *widget)
{
    return QString::fromLatin1(widget);
}

} // namespace

#define SEES(widget)                                                                                         \
    QTRY_VERIFY2_WITH_TIMEOUT(                                                                               \
        m_studio.sees(widget),                                                                               \
        qPrintable((widget) + QLatin1String(" in ") + m_studio.all().join(QLatin1Char(','))), kTimeoutMs)
#define SEES_NO(widget) QTRY_VERIFY_WITH_TIMEOUT(!m_studio.sees(widget), kTimeoutMs)
#define CLICK(widget)                                                                                        \
    do {                                                                                                     \
        SEES(widget);                                                                                        \
        RealPointer::click(m_studio.place(widget).center());                                                 \
    } while (false)

/// The live studio from start to quit, by its user's own hands: the tests follow one another in one run of it.
class tst_LiveStudio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theTipsAreReadOnce();
    void theWindowIsDragged();
    void camerasComeAndGo();
    void takenCameraIsExplained();
    void slidersFollowPointerAndKeys();
    void effectIsChosenInAPanel();
    void hotkeyIsChosenAndTakesSnapshots();
    void snapshotsAreExported();
    void theHelpShowsItsDialogs();
    void theLookIsSwitched();
    void theWindowIsMaximisedAndRestored();
    void quittingIsConfirmed();
    void everythingIsKept();

private:
    Client m_studio{QStringLiteral("livestudio")};
};

void tst_LiveStudio::theTipsAreReadOnce()
{
    m_studio.start();
    CLICK(kEnough);
    QTRY_VERIFY_WITH_TIMEOUT(m_studio.isChecked(kEnough), kTimeoutMs);
    CLICK(kTipsButton);
    SEES_NO(kTipsButton);
}

void tst_LiveStudio::theWindowIsDragged()
{
    const QRect before = m_studio.place(kClose);
    const QPoint title = before.center() - QPoint(400, 0);
    RealPointer::drag(title, title + QPoint(-48, 36));
    // A window manager may take it where the pointer has moved a little already.
    QTRY_VERIFY_WITH_TIMEOUT(
        (m_studio.place(kClose).topLeft() - before.topLeft() - QPoint(-48, 36)).manhattanLength() <= kGrip,
        kTimeoutMs);
}

void tst_LiveStudio::camerasComeAndGo()
{
    CLICK(kCamera);
    CLICK(named("CustomComboxItem/Desk camera"));
    QTRY_COMPARE_WITH_TIMEOUT(m_studio.value(kCamera), QStringLiteral("Desk camera"), kTimeoutMs);
    QVERIFY(!m_studio.isEnabled(named("QPushButton/Unplug")));

    CLICK(named("QPushButton/Plug in"));
    QTRY_COMPARE_WITH_TIMEOUT(m_studio.value(kCamera), QStringLiteral("USB camera 1"), kTimeoutMs);
    CLICK(named("QPushButton/Unplug"));
    QTRY_COMPARE_WITH_TIMEOUT(m_studio.value(kCamera), QStringLiteral("Front camera"), kTimeoutMs);

    CLICK(kCamera);
    SEES(named("CustomComboxItem/Desk camera"));
    QVERIFY(!m_studio.sees(named("CustomComboxItem/USB camera 1")));
    CLICK(named("CustomComboxItem/Desk camera"));
    SEES_NO(named("CustomComboxItem/Desk camera"));
}

void tst_LiveStudio::takenCameraIsExplained()
{
    CLICK(kCamera);
    CLICK(named("CustomComboxItem/Capture card"));
    SEES(kMessageButton);
    RealPointer::key(QStringLiteral("Return"));
    SEES_NO(kMessageButton);
    QCOMPARE(m_studio.value(kCamera), QStringLiteral("Desk camera"));
}

void tst_LiveStudio::slidersFollowPointerAndKeys()
{
    const QRect slider = m_studio.place(kBrightness);
    RealPointer::drag(slider.center(), slider.center() + QPoint(slider.width() / 4, 0));
    QTRY_VERIFY_WITH_TIMEOUT(qAbs(m_studio.value(kBrightness).toInt() - 26) <= 2, kTimeoutMs);
    const int dragged = m_studio.value(kBrightness).toInt();
    RealPointer::key(QStringLiteral("Right"));
    QTRY_COMPARE_WITH_TIMEOUT(m_studio.value(kBrightness).toInt(), dragged + 1, kTimeoutMs);
    QVERIFY(m_studio.hasFocus(kBrightness));

    const QRect steps = m_studio.place(kZoom);
    RealPointer::click(steps.center() - QPoint(steps.width() / 6, 0));
    QTRY_COMPARE_WITH_TIMEOUT(m_studio.value(kZoom), QStringLiteral("1"), kTimeoutMs);
    SEES(named("QLabel/Zoom 1.5 x"));
}

void tst_LiveStudio::effectIsChosenInAPanel()
{
    const QString tool = named("CustomToolButton/Effects");
    const QString warm = named("QPushButton/Warm");
    CLICK(tool);
    CLICK(warm);
    QTRY_VERIFY_WITH_TIMEOUT(m_studio.isChecked(warm), kTimeoutMs);
    CLICK(named("Preview/Live picture"));
    SEES_NO(warm);

    CLICK(tool);
    SEES(warm);
    CLICK(tool);
    SEES_NO(warm);

    RealPointer::key(QStringLiteral("space"));
    SEES(warm);
    RealPointer::key(QStringLiteral("Escape"));
    SEES_NO(warm);
    QTRY_VERIFY_WITH_TIMEOUT(m_studio.hasFocus(tool), kTimeoutMs);
}

void tst_LiveStudio::hotkeyIsChosenAndTakesSnapshots()
{
    CLICK(kHotkeyTool);
    SEES(kHotkey);
    RealPointer::key(QStringLiteral("Escape")); // typed into the editor, which refuses it
    SEES(named("QLabel/Add Ctrl or Alt to it: the hotkey is taken from all programs."));
    QCOMPARE(m_studio.value(kHotkey), QStringLiteral("Ctrl+Shift+F9"));
    RealPointer::key(QStringLiteral("Ctrl+Shift+F7"));
    QTRY_COMPARE_WITH_TIMEOUT(m_studio.value(kHotkey), QStringLiteral("Ctrl+Shift+F7"), kTimeoutMs);
    SEES(named("QLabel/Works while any program has the focus."));
    CLICK(named("Preview/Live picture"));
    SEES_NO(kHotkey);

    RealPointer::key(QStringLiteral("Ctrl+Shift+F7"));
    SEES(named("QPushButton/Snapshots (1)"));
    CLICK(kSnapshot);
    SEES(named("QPushButton/Snapshots (2)"));
}

void tst_LiveStudio::snapshotsAreExported()
{
    CLICK(named("QPushButton/Snapshots (2)"));
    CLICK(named("QPushButton/Export"));
    CLICK(kMessageButton);
    SEES_NO(kMessageButton);
    CLICK(named("QPushButton/Picture"));
    SEES(kBrightness);
}

void tst_LiveStudio::theHelpShowsItsDialogs()
{
    const QString tool = named("CustomToolButton/Help");
    CLICK(tool);
    CLICK(named("QPushButton/Tips"));
    CLICK(kTipsButton);
    SEES_NO(kTipsButton);

    CLICK(tool);
    CLICK(named("QPushButton/What is new"));
    SEES(named("PopupDlgWithMask/What is new"));
    CLICK(kMessageButton);
    SEES_NO(named("PopupDlgWithMask/What is new"));

    CLICK(tool);
    CLICK(named("QPushButton/Look for updates"));
    CLICK(named("QPushButton/Update"));
    CLICK(kMessageButton);
    SEES_NO(kMessageButton);
}

void tst_LiveStudio::theLookIsSwitched()
{
    CLICK(kDark);
    QTRY_VERIFY_WITH_TIMEOUT(m_studio.isChecked(kDark), kTimeoutMs);
}

void tst_LiveStudio::theWindowIsMaximisedAndRestored()
{
    const QRect before = m_studio.place(kClose);
    CLICK(named("QToolButton/Maximise"));
    SEES(named("QToolButton/Restore"));
    QTRY_VERIFY_WITH_TIMEOUT(m_studio.place(kClose) != before, kTimeoutMs);
    CLICK(named("QToolButton/Restore"));
    SEES(named("QToolButton/Maximise"));
    QTRY_COMPARE_WITH_TIMEOUT(m_studio.place(kClose), before, kTimeoutMs);
}

void tst_LiveStudio::quittingIsConfirmed()
{
    CLICK(kClose);
    CLICK(named("QPushButton/Close"));
    SEES_NO(kLeave);
    CLICK(kClose);
    CLICK(kLeave);
    QTRY_VERIFY_WITH_TIMEOUT(m_studio.hasEnded(), kTimeoutMs);
    QCOMPARE(m_studio.exitCode(), 0);
    QCOMPARE(m_studio.warnings(), QString());
}

void tst_LiveStudio::everythingIsKept()
{
    m_studio.start();
    SEES(kBrightness);
    QVERIFY(!m_studio.sees(kTipsButton));
    QVERIFY(m_studio.isChecked(kDark));
    QVERIFY(m_studio.sees(named("QPushButton/Snapshots (2)")));
    QVERIFY(m_studio.value(kBrightness).toInt() > 20);
    QCOMPARE(m_studio.value(kCamera), QStringLiteral("Desk camera"));
    QCOMPARE(m_studio.value(kZoom), QStringLiteral("1"));
    CLICK(kHotkeyTool);
    SEES(kHotkey);
    QCOMPARE(m_studio.value(kHotkey), QStringLiteral("Ctrl+Shift+F7"));
    CLICK(kClose);
    CLICK(kLeave);
    QTRY_VERIFY_WITH_TIMEOUT(m_studio.hasEnded(), kTimeoutMs);
    QCOMPARE(m_studio.warnings(), QString());
}

ORV_TEST_MAIN(tst_LiveStudio)
#include "tst_livestudio.moc"
