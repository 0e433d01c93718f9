#include "orvcommonlib.h"
#include "testmain.h"

#include <QtCore/QProcess>
#include <QtCore/QTextStream>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <cstdio>
#include <cstring>

namespace {

constexpr int kTimeoutMs = 20000;
constexpr char kReport[] = "--report";

/// What a program on this display is told: each screen's size, and where a window lands in its middle.
int report()
{
    QTextStream output(stdout);
    for (int i = 0; i < QGuiApplication::screens().size(); ++i) {
        const QRect geometry = totalcommon::getScreen(i)->geometry();
        QWidget window;
        window.resize(101, 101);
        totalcommon::moveToScreenCenter(&window, i);
        output << geometry.x() << ' ' << geometry.y() << ' ' << geometry.width() << ' ' << geometry.height()
               << ' ' << window.x() << ' ' << window.y() << '\n';
    }
    return 0;
}

/// A second X server for as long as it lives.
class Server
{
public:
    explicit Server(const QStringList &arguments)
    {
        // It writes its number when it is ready.
        m_process.start(QStringLiteral("Xvfb"),
                        QStringList{QStringLiteral("-displayfd"), QStringLiteral("1"),
                                    QStringLiteral("-nolisten"), QStringLiteral("tcp")} +
                            arguments);
        while (!m_process.canReadLine() && m_process.waitForReadyRead(kTimeoutMs)) {
        }
        m_display = QLatin1Char(':') + QString::fromLatin1(m_process.readLine()).trimmed();
    }

    ~Server()
    {
        m_process.terminate();
        m_process.waitForFinished(kTimeoutMs);
    }

    QString display() const { return m_display; }

private:
    QProcess m_process;
    QString m_display;
};

} // namespace

class tst_screens_x11 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ownScreen();
    void screensWithOneOrigin();
};

void tst_screens_x11::ownScreen()
{
    QCOMPARE(totalcommon::getScreen(0), QGuiApplication::primaryScreen());
    bool found = false;
    const QRect geometry = QGuiApplication::primaryScreen()->geometry();
    QCOMPARE(totalcommon::getScreen(geometry.bottomRight(), &found), QGuiApplication::primaryScreen());
    QVERIFY(found);
    QCOMPARE(totalcommon::getScreen(geometry.bottomRight() + QPoint(1, 1), &found),
             QGuiApplication::primaryScreen());
    QVERIFY(!found);
}

void tst_screens_x11::screensWithOneOrigin()
{
    const Server server({QStringLiteral("-screen"), QStringLiteral("0"), QStringLiteral("800x600x24"),
                         QStringLiteral("-screen"), QStringLiteral("1"), QStringLiteral("640x480x24"),
                         QStringLiteral("-screen"), QStringLiteral("2"), QStringLiteral("320x240x24")});
    QVERIFY(server.display().size() > 1);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), server.display());
    QProcess program;
    program.setProcessEnvironment(environment);
    program.start(QCoreApplication::applicationFilePath(), {QLatin1String(kReport)});
    QVERIFY(program.waitForFinished(kTimeoutMs));
    QCOMPARE(program.exitCode(), 0);
    // The one that Qt lists last counts first.
    QCOMPARE(
        QString::fromLatin1(program.readAllStandardOutput()).split(QLatin1Char('\n'), Qt::SkipEmptyParts),
        (QStringList{QStringLiteral("0 0 320 240 109 69"), QStringLiteral("0 0 640 480 269 189"),
                     QStringLiteral("0 0 800 600 349 249")}));
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc > 1 && std::strcmp(argv[1], kReport) == 0)
        return report();
    tst_screens_x11 test;
    return TestMain::run(&test, argc, argv);
}

#include "tst_screens_x11.moc"
