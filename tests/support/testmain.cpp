#include "testmain.h"

#include "logcapture.h"

#include <QtCore/QMutex>
#include <QtCore/QVector>
#include <QtGui/QGuiApplication>
#include <QtTest/private/qtestlog_p.h>

#include <algorithm>
#include <atomic>
#include <thread>

namespace {

QtMessageHandler testlibHandler = nullptr;
std::thread::id testThread;
std::atomic<int> warningsElsewhere{0};

QMutex expectationsMutex;
QVector<const QRegularExpression *> expectations;

void handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const bool warning = LogLine(type, context, text).isQtWarning();
    if (warning && ExpectedWarnings::match(text))
        return;
    const int announced = QTestLog::unhandledIgnoreMessages();
    testlibHandler(type, context, text);
    if (warning && QTestLog::unhandledIgnoreMessages() == announced)
        TestMain::failForWarning(text);
}

} // namespace

ExpectedWarnings::ExpectedWarnings(const char *pattern)
    : m_pattern(QString::fromLatin1(pattern))
{
    const QMutexLocker locker(&expectationsMutex);
    expectations.append(&m_pattern);
}

ExpectedWarnings::~ExpectedWarnings()
{
    const QMutexLocker locker(&expectationsMutex);
    expectations.removeOne(&m_pattern);
}

bool ExpectedWarnings::match(const QString &text)
{
    const QMutexLocker locker(&expectationsMutex);
    return std::any_of(
        expectations.cbegin(), expectations.cend(),
        [&text](const QRegularExpression *pattern) { return pattern->match(text).hasMatch(); });
}

int TestMain::run(QObject *test, int argc, char **argv)
{
    testThread = std::this_thread::get_id();
    QTest::qInit(test, argc, argv);
    testlibHandler = qInstallMessageHandler(handle);
    const int failures = QTest::qRun();
    qInstallMessageHandler(testlibHandler);
    QTest::qCleanup();
    return std::min(failures + warningsElsewhere, 127); // statuses above tell of signals
}

bool TestMain::isOnWindows()
{
    return QGuiApplication::platformName() == QLatin1String("windows");
}

void TestMain::failForWarning(const QString &text)
{
    if (std::this_thread::get_id() == testThread)
        QTest::qFail(qPrintable(QStringLiteral("Unexpected warning: ") + text), nullptr, 0);
    else
        ++warningsElsewhere;
}
