#include "qhotkey.h"
#include "testmain.h"
#include "xclient.h"

#include <QtCore/QProcess>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

#include <xkbcommon/xkbcommon-keysyms.h>

#include <cstdio>

namespace {

constexpr char kHoldHotkey[] = "--hold-a-hotkey";
constexpr xcb_keycode_t kControlKeycode = 37;
const QVector<int> kAllFourLocks{0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2, XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};

// A program that runs until the object is destroyed, and what it prints.
class OtherProgram
{
public:
    OtherProgram(const QString &program, const QStringList &arguments, const QByteArray &display)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("DISPLAY"), QString::fromLatin1(display));
        m_process.setProcessEnvironment(environment);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(program, arguments);
    }
    ~OtherProgram()
    {
        m_process.terminate();
        m_process.waitForFinished();
    }
    Q_DISABLE_COPY(OtherProgram)

    QByteArray nextLine()
    {
        while (!m_process.canReadLine() && m_process.waitForReadyRead()) {
        }
        return m_process.readLine().trimmed();
    }

private:
    QProcess m_process;
};

} // namespace

// A server with several screens, each of which has a root window of its own.
class tst_qhotkey_screens : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void firesOnEveryScreen();
};

void tst_qhotkey_screens::firesOnEveryScreen()
{
    OtherProgram server(QStringLiteral("Xvfb"),
                        {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"),
                         QStringLiteral("0"), QStringLiteral("640x480x24"), QStringLiteral("-screen"),
                         QStringLiteral("1"), QStringLiteral("640x480x24"), QStringLiteral("-nolisten"),
                         QStringLiteral("tcp"), QStringLiteral("-noreset")},
                        QByteArray());
    const QByteArray display = ':' + server.nextLine();
    OtherProgram holder(QCoreApplication::applicationFilePath(), {QString::fromLatin1(kHoldHotkey)}, display);
    QCOMPARE(holder.nextLine(), QByteArray("held"));
    for (const int screen : {0, 1}) {
        XClient client(display, screen);
        client.focusWindow(); // the keys go to this screen
        const xcb_keycode_t key = client.keycode(XKB_KEY_F10);
        QCOMPARE(client.heldByOthers(key, XCB_MOD_MASK_CONTROL), kAllFourLocks);
        client.pressKeys({kControlKeycode, key});
        QCOMPARE(holder.nextLine(), QByteArray("activated"));
        QVERIFY(!client.pressedKeycodes().contains(key));
    }
}

// The child process.
static int holdHotkey(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    const auto say = [](const char *text) {
        std::puts(text);
        std::fflush(stdout);
    };
    const QHotkey hotkey(Qt::Key_F10, Qt::ControlModifier, true);
    QObject::connect(&hotkey, &QHotkey::activated, &application, [&] { say("activated"); });
    say(hotkey.isRegistered() ? "held" : "refused");
    return QGuiApplication::exec();
}

int main(int argc, char **argv)
{
    if (argc > 1 && QByteArray(argv[1]) == kHoldHotkey)
        return holdHotkey(argc, argv);
    QCoreApplication application(argc, argv);
    tst_qhotkey_screens test;
    return TestMain::run(&test, argc, argv);
}

#include "tst_qhotkey_screens.moc"
