#include "reportlog.h"

#include <QtCore/QMutexLocker>

#include <atomic>
#include <cstdio>

namespace {

std::atomic<ReportLog *> currentLog = nullptr; // lines come from any thread

/// What the platform plugin says of itself and of its server; that is no page's doing.
bool isPlatformsOwn(const QMessageLogContext &context, const QString &text)
{
    return QLatin1String(context.category).startsWith(QLatin1String("qt.qpa.")) ||
           text.startsWith(QLatin1String("This plugin does not support "));
}

ReportLevel levelOf(QtMsgType type)
{
    switch (type) {
    case QtDebugMsg:
        return ReportLevel::Debug;
    case QtInfoMsg:
        return ReportLevel::Info;
    case QtWarningMsg:
        return ReportLevel::Warning;
    case QtCriticalMsg:
    case QtFatalMsg:
        break;
    }
    return ReportLevel::Critical;
}

} // namespace

QString levelName(ReportLevel level)
{
    switch (level) {
    case ReportLevel::Result:
        return QStringLiteral("result");
    case ReportLevel::Signal:
        return QStringLiteral("signal");
    case ReportLevel::Debug:
        return QStringLiteral("debug");
    case ReportLevel::Info:
        return QStringLiteral("info");
    case ReportLevel::Warning:
        return QStringLiteral("warning");
    case ReportLevel::Critical:
        return QStringLiteral("critical");
    }
    return {};
}

ReportLog::ReportLog(QObject *parent)
    : QObject(parent)
{
    currentLog = this;
    m_previousHandler = qInstallMessageHandler(&ReportLog::handleMessage);
}

ReportLog::~ReportLog()
{
    qInstallMessageHandler(m_previousHandler);
    currentLog = nullptr;
}

void ReportLog::append(const ReportLine &line)
{
    ReportLog *log = currentLog;
    if (log != nullptr)
        log->collect(line);
}

void ReportLog::handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    ReportLog *log = currentLog;
    if (log == nullptr || isPlatformsOwn(context, text))
        return;
    ReportLine line;
    line.level = levelOf(type);
    line.text = text;
    line.function = QString::fromUtf8(context.function);
    if (context.file != nullptr)
        line.place = QStringLiteral("%1:%2").arg(QString::fromUtf8(context.file)).arg(context.line);
    log->collect(line);
    if (log->m_previousHandler != nullptr)
        log->m_previousHandler(type, context, text);
}

void ReportLog::collect(ReportLine line)
{
    line.time = m_frozenTime.isValid() ? m_frozenTime : QTime::currentTime();
    if (m_verbose) {
        const QByteArray text = QStringLiteral("%1\t%2\n").arg(levelName(line.level), line.text).toUtf8();
        std::fwrite(text.constData(), 1, static_cast<size_t>(text.size()), stdout);
        std::fflush(stdout);
    }
    const QMutexLocker locker(&m_mutex);
    m_pending.append(line);
    // One delivery takes everything that has gathered by then, so that a burst costs one call.
    if (m_pending.size() == 1)
        QMetaObject::invokeMethod(this, &ReportLog::deliver, Qt::QueuedConnection);
}

void ReportLog::deliver()
{
    QVector<ReportLine> lines;
    {
        const QMutexLocker locker(&m_mutex);
        lines.swap(m_pending);
    }
    if (!lines.isEmpty())
        Q_EMIT arrived(lines);
}
