#include "logcapture.h"
#include "qhotkey.h"
#include "testmain.h"
#include "xclient.h"

#include <QtGui/QGuiApplication>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <xkbcommon/xkbcommon-keysyms.h>

#include <functional>
#include <memory>

using Use = std::function<bool(QHotkey *kept, QHotkey *another)>;

Q_DECLARE_METATYPE(Use)

namespace {

constexpr xcb_keycode_t kControlKeycode = 37;
const QVector<int> kAllFourLocks{0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2, XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};

int argumentCount = 1;
char programName[] = "test";
char *arguments[] = {programName, nullptr};

std::unique_ptr<QGuiApplication> newApplication()
{
    return std::make_unique<QGuiApplication>(argumentCount, arguments);
}

} // namespace

// Several application objects, one after the other: each has a connection to the server of its own.
class tst_qhotkey_x11_applications : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void hotkeyOfEveryApplicationFires();
    void keptHotkeyIsTakenOver_data();
    void keptHotkeyIsTakenOver();
};

void tst_qhotkey_x11_applications::hotkeyOfEveryApplicationFires()
{
    XClient other;
    const xcb_keycode_t key = other.keycode(XKB_KEY_F10);
    for (int round = 0; round < 3; ++round) {
        const std::unique_ptr<QGuiApplication> application = newApplication();
        QHotkey hotkey(Qt::Key_F10, Qt::ControlModifier, true);
        const QSignalSpy activated(&hotkey, &QHotkey::activated);
        QCOMPARE(other.heldByOthers(key, XCB_MOD_MASK_CONTROL), kAllFourLocks);
        other.pressKeys({kControlKeycode, key});
        QTRY_COMPARE(activated.count(), 1);
    }
}

void tst_qhotkey_x11_applications::keptHotkeyIsTakenOver_data()
{
    QTest::addColumn<Use>("use");
    const auto row = [](const char *name, const Use &use) {
        QTest::newRow(name) << use;
    };
    row("mapping",
        [](QHotkey *, QHotkey *another) { return another->setShortcut(Qt::Key_F11, Qt::ControlModifier); });
    row("registration", [](QHotkey *, QHotkey *another) {
        return another->setNativeShortcut(QHotkey::NativeShortcut(XKB_KEY_F11, XCB_MOD_MASK_CONTROL), true);
    });
    row("registration of the same", [](QHotkey *kept, QHotkey *another) {
        return another->setNativeShortcut(kept->currentNativeShortcut(), true);
    });
    row("removal", [](QHotkey *, QHotkey *another) { return another->setRegistered(false); });
}

void tst_qhotkey_x11_applications::keptHotkeyIsTakenOver()
{
    QFETCH(Use, use);
    XClient other;
    const xcb_keycode_t key = other.keycode(XKB_KEY_F10);
    const LogCapture log;
    std::unique_ptr<QGuiApplication> application = newApplication();
    QHotkey kept(Qt::Key_F10, Qt::ControlModifier, true);
    QHotkey another(Qt::Key_F9, Qt::ControlModifier, QByteArray(QTest::currentDataTag()) == "removal");
    application.reset();
    application = newApplication();
    QTRY_COMPARE(other.heldByOthers(key, XCB_MOD_MASK_CONTROL), QVector<int>());

    QVERIFY(use(&kept, &another));
    QCOMPARE(other.heldByOthers(key, XCB_MOD_MASK_CONTROL), kAllFourLocks);
    const QSignalSpy activated(&kept, &QHotkey::activated);
    other.pressKeys({kControlKeycode, key});
    QTRY_COMPARE(activated.count(), 1);
    QVERIFY(another.setRegistered(false));
    QVERIFY(kept.setRegistered(false));
    QCOMPARE(other.heldByOthers(key, XCB_MOD_MASK_CONTROL), QVector<int>());
    QCOMPARE(log.texts(), QStringList());
}

ORV_TEST_APPLESS_MAIN(tst_qhotkey_x11_applications)
#include "tst_qhotkey_x11_applications.moc"
