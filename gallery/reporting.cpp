#include "reporting.h"
#include "reportlog.h"

namespace {

void append(ReportLevel level, const QString &text)
{
    ReportLine line;
    line.level = level;
    line.text = text;
    ReportLog::append(line);
}

} // namespace

void report(const QString &text)
{
    append(ReportLevel::Result, text);
}

void report(const char *text)
{
    report(QString::fromUtf8(text));
}

void reporting::signalEmitted(const QObject *sender, const QString &name, const QStringList &arguments)
{
    append(ReportLevel::Signal, QStringLiteral("%1::%2(%3)")
                                    .arg(QString::fromLatin1(sender->metaObject()->className()), name,
                                         arguments.join(QLatin1String(", "))));
}
