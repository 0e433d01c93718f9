#include <QtCore/QByteArray>
#include <QtCore/QLoggingCategory>
#include <QtCore/QString>

namespace logging_snippets {

void silenceEverything()
{
    //! [rules]
    QLoggingCategory::setFilterRules(QStringLiteral("default.info=false\ndefault.debug=false"));
    //! [rules]
}

//! [handler]
static QtMessageHandler previous;

static void withoutTheLibrarysInfo(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    const bool chatter = type == QtInfoMsg || type == QtDebugMsg;
    if (!chatter || !QByteArray(context.file).startsWith("utils/orvcommonlib/"))
        previous(type, context, text);
}

//! [handler]

void installHandler()
{
    //! [installed]
    previous = qInstallMessageHandler(withoutTheLibrarysInfo);
    //! [installed]
}

} // namespace logging_snippets
