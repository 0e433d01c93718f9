#include "logcapture.h"
#include "testmain.h"

#include <QtCore/QProcess>
#include <QtCore/QThread>
#include <QtGui/QPainter>
#include <QtTest/QTest>

#include <functional>
#include <memory>

namespace {

const char kChild[] = "child";

void makeQtWarn()
{
    QPainter().setOpacity(0.5);
}

const char kWarning[] = "QPainter::setOpacity: Painter not active";

void warnInThread()
{
    const std::unique_ptr<QThread> thread(QThread::create(makeQtWarn));
    thread->start();
    thread->wait();
}

void captureWithoutReading()
{
    const LogCapture log;
    makeQtWarn();
}

void captureAndClear()
{
    LogCapture log;
    makeQtWarn();
    log.clear();
    QCOMPARE(log.count(), 0);
}

void captureTwoAndReadOne()
{
    const LogCapture log;
    makeQtWarn();
    QCOMPARE(log.texts(), QStringList{QLatin1String(kWarning)});
    makeQtWarn();
}

void captureAndRead()
{
    const LogCapture log;
    makeQtWarn();
    QCOMPARE(log.texts(), QStringList{QLatin1String(kWarning)});
}

void announce()
{
    QTest::ignoreMessage(QtWarningMsg, kWarning);
    makeQtWarn();
}

void announceOnce()
{
    announce();
    makeQtWarn();
}

void expect()
{
    const ExpectedWarnings inactive("setOpacity: .* not active$");
    makeQtWarn();
    makeQtWarn();
    const LogCapture log;
    makeQtWarn();
}

void expectAnother()
{
    const ExpectedWarnings inactive("setPen: .* not active$");
    makeQtWarn();
}

void expectEarlier()
{
    expect();
    makeQtWarn();
}

void warnOurselves()
{
    qWarning("a warning of our own");
}

void warnAsThePlatform()
{
    QMessageLogger().warning("This plugin does not support anything");
    QMessageLogger(nullptr, 0, nullptr, "qt.qpa.xcb").warning("an answer came late");
}

struct Case
{
    const char *name;
    std::function<void()> run;
    bool passes;
};

const QVector<Case> &cases()
{
    static const QVector<Case> all{{"a warning", makeQtWarn, false},
                                   {"in another thread", warnInThread, false},
                                   {"captured, never read", captureWithoutReading, false},
                                   {"captured, cleared", captureAndClear, false},
                                   {"captured, one read", captureTwoAndReadOne, false},
                                   {"captured, read", captureAndRead, true},
                                   {"announced", announce, true},
                                   {"announced once", announceOnce, false},
                                   {"expected", expect, true},
                                   {"another expected", expectAnother, false},
                                   {"no longer expected", expectEarlier, false},
                                   {"our own", warnOurselves, true},
                                   {"the platform's", warnAsThePlatform, true}};
    return all;
}

} // namespace

/// What a program does with a warning of Qt is seen from outside: the program runs itself with each of the cases.
class tst_testmain : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void warnings_data();
    void warnings();
};

/// The test function of the program that is watched.
class WarningTest : public QObject
{
    Q_OBJECT

public:
    explicit WarningTest(const std::function<void()> &run)
        : m_run(run)
    {
    }

private Q_SLOTS:
    void warn() { m_run(); }

private:
    std::function<void()> m_run;
};

void tst_testmain::warnings_data()
{
    QTest::addColumn<int>("index");
    for (int index = 0; index < cases().size(); ++index)
        QTest::newRow(cases().at(index).name) << index;
}

void tst_testmain::warnings()
{
    QFETCH(int, index);
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QLatin1String(kChild), QString::number(index)});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode() == 0, cases().at(index).passes);
}

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    if (argc > 2 && QByteArray(argv[1]) == kChild) {
        WarningTest test(cases().at(QByteArray(argv[2]).toInt()).run);
        return TestMain::run(&test, 1, argv);
    }
    tst_testmain test;
    return TestMain::run(&test, argc, argv);
}

#include "tst_testmain.moc"
