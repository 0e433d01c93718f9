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
    QTime time; ///< set by the log
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
    explicit ReportLog(QObject *parent = nullptr);
    ~ReportLog() override;

    /// Writes each line to standard output, too, at once, as "level<TAB>text".
    void setVerbose(bool verbose) { m_verbose = verbose; }
    /// Gives every line this time, so that pictures of the panel are the same tomorrow.
    void setFrozenTime(QTime time) { m_frozenTime = time; }

    /// May be called from any thread, also while nothing collects: the line is dropped then.
    static void append(const ReportLine &line);

Q_SIGNALS:
    /// Emitted in the GUI thread from the event loop, never inside the call that made the line.
    void arrived(const QVector<ReportLine> &lines);

private:
    static void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &text);
    void collect(ReportLine line);
    void deliver();

    QMutex m_mutex;
    QVector<ReportLine> m_pending;
    QtMessageHandler m_previousHandler = nullptr;
    bool m_verbose = false;
    QTime m_frozenTime; ///< invalid while time flows
};
