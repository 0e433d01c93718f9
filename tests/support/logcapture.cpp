#include "logcapture.h"

#include <QtCore/QMutex>
#include <QtCore/QStringList>

namespace {

QMutex captureMutex;
LogCapture *innermostCapture = nullptr;

} // namespace

LogCapture::LogCapture()
{
    const QMutexLocker locker(&captureMutex);
    m_outer = innermostCapture;
    innermostCapture = this;
    m_previousHandler = qInstallMessageHandler(&LogCapture::handle);
}

LogCapture::~LogCapture()
{
    const QMutexLocker locker(&captureMutex);
    innermostCapture = m_outer;
    qInstallMessageHandler(m_previousHandler);
}

QVector<LogLine> LogCapture::lines() const
{
    const QMutexLocker locker(&captureMutex);
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
    const QMutexLocker locker(&captureMutex);
    m_lines.clear();
}

void LogCapture::handle(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const QMutexLocker locker(&captureMutex);
    if (!innermostCapture)
        return;
    LogLine line;
    line.type = type;
    line.category = QString::fromUtf8(context.category);
    line.text = text;
    line.file = QString::fromUtf8(context.file);
    line.function = QString::fromUtf8(context.function);
    line.line = context.line;
    innermostCapture->m_lines.append(line);
}
