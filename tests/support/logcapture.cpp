#include "logcapture.h"

#include "testmain.h"

#include <QtCore/QMutex>
#include <QtCore/QStringList>

namespace {

QMutex captureMutex;
LogCapture *innermostCapture = nullptr;

} // namespace

LogLine::LogLine(QtMsgType lineType, const QMessageLogContext &context, const QString &lineText)
    : type(lineType)
    , category(QString::fromUtf8(context.category))
    , text(lineText)
    , file(QString::fromUtf8(context.file))
    , function(QString::fromUtf8(context.function))
    , line(context.line)
{
}

// The platform plugin of Windows tells what is no fault of anybody: that the system has destroyed an open list together
// with the window that owns it, and that a window resized itself while it was being placed.
bool LogLine::isQtWarning() const
{
    return (type == QtWarningMsg || type == QtCriticalMsg) && file.isEmpty() &&
           !category.startsWith(QLatin1String("qt.qpa")) &&
           !text.startsWith(QLatin1String("External WM_DESTROY received for")) &&
           !text.startsWith(QLatin1String("setGeometry: Unable to set geometry")) &&
           !text.startsWith(QLatin1String("This plugin does not support")) &&
           !text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR"));
}

LogCapture::LogCapture()
{
    const QMutexLocker locker(&captureMutex);
    m_outer = innermostCapture;
    innermostCapture = this;
    m_previousHandler = qInstallMessageHandler(&LogCapture::handle);
}

LogCapture::~LogCapture()
{
    {
        const QMutexLocker locker(&captureMutex);
        innermostCapture = m_outer;
        qInstallMessageHandler(m_previousHandler);
    }
    clear();
}

QVector<LogLine> LogCapture::lines() const
{
    const QMutexLocker locker(&captureMutex);
    m_readLines = m_lines.size();
    return m_lines;
}

QStringList LogCapture::texts() const
{
    QStringList result;
    const QVector<LogLine> all = lines();
    for (const LogLine &line : all)
        result << line.text;
    return result;
}

void LogCapture::clear()
{
    QVector<LogLine> unread;
    {
        const QMutexLocker locker(&captureMutex);
        unread = m_lines.mid(m_readLines);
        m_lines.clear();
        m_readLines = 0;
    }
    for (const LogLine &line : qAsConst(unread)) {
        if (line.isQtWarning() && !ExpectedWarnings::match(line.text))
            TestMain::failForWarning(line.text);
    }
}

void LogCapture::handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const QMutexLocker locker(&captureMutex);
    if (innermostCapture)
        innermostCapture->m_lines.append(LogLine(type, context, text));
}
