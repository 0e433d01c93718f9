#pragma once

#include <QtCore/QString>
#include <QtCore/QVector>

#include <QtCore/qlogging.h>

/// One line as it reached Qt's message handler.
struct LogLine
{
    QtMsgType type = QtDebugMsg;
    QString category;
    QString text;
    QString file;     ///< the call site's source file
    QString function; ///< the call site's full signature
    int line = 0;
};

/// Collects every log line of the process between its construction and its destruction, from any thread,
/// instead of printing it. Captures nest: the innermost one gets the lines.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();
    LogCapture(const LogCapture &) = delete;
    LogCapture &operator=(const LogCapture &) = delete;

    QVector<LogLine> lines() const;
    /// The texts alone, in order.
    QStringList texts() const;
    int count() const { return lines().size(); }
    void clear();

private:
    static void handle(QtMsgType type, const QMessageLogContext &context, const QString &text);

    QVector<LogLine> m_lines;
    LogCapture *m_outer = nullptr;
    QtMessageHandler m_previousHandler = nullptr;
};
