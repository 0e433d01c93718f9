#pragma once

#include <QtCore/QString>
#include <QtCore/QVector>

#include <QtCore/qlogging.h>

/// One line as it reached Qt's message handler.
struct LogLine
{
    LogLine() = default;
    LogLine(QtMsgType lineType, const QMessageLogContext &context, const QString &lineText);

    /// Whether Qt itself complains: our own code tells its file. What the platform cannot do or lacks does not count.
    bool isQtWarning() const;

    QtMsgType type = QtDebugMsg;
    QString category;
    QString text;
    QString file;     ///< the call site's source file
    QString function; ///< the call site's full signature
    int line = 0;
};

/// Collects every log line of the process between its construction and its destruction, from any thread,
/// instead of printing it. Captures nest: the innermost one gets the lines. A warning of Qt that is forgotten before
/// anybody has read it was not expected, and fails the test (see testmain.h).
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
    mutable int m_readLines = 0;
    LogCapture *m_outer = nullptr;
    QtMessageHandler m_previousHandler = nullptr;
};
