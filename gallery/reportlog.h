#pragma once

#include <QtCore/QMutex>
#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QTime>
#include <QtCore/QVector>

#include <QtCore/qlogging.h>

enum class ReportLevel { Result, Signal, Debug, Info, Warning, Critical };

/// The level's name as the panel and --verbose print it.
QString levelName(ReportLevel level);

/// One line of the panel.
struct ReportLine
{
    QTime time = QTime::currentTime();
    ReportLevel level = ReportLevel::Result;
    QString text;
    QString function; ///< full signature of the call site; empty for what is no log line
    QString place;    ///< file and line of the call site
};

/// Where signals, log lines and the pages' own results come together, in the order in which they happen.
/// There is one while the application runs; it is Qt's message handler for that time, and hands every line on
/// to the handler before.
class ReportLog : public QObject
{
    Q_OBJECT

public:
    /// `verbose`: each line is also written to standard output at once, as "level<TAB>text".
    explicit ReportLog(bool verbose, QObject *parent = nullptr);
    ~ReportLog() override;

    /// May be called from any thread, also while nothing collects: the line is dropped then.
    static void append(const ReportLine &line);

Q_SIGNALS:
    /// Emitted in the GUI thread from the event loop, never inside the call that made the line.
    void arrived(const QVector<ReportLine> &lines);

private:
    static void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text);
    void collect(const ReportLine &line);
    void deliver();

    QMutex m_mutex;
    QVector<ReportLine> m_pending;
    QtMessageHandler m_previousHandler = nullptr;
    bool m_verbose;
};
