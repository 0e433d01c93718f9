#include "client.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QJsonDocument>

#include <algorithm>

namespace {

// Beside the tests' own programs.
QString beside(const QString &path)
{
    return QDir::toNativeSeparators(
        QDir::cleanPath(QCoreApplication::applicationDirPath() + QLatin1Char('/') + path));
}

} // namespace

Client::Client(const QString &name)
    : m_program(beside(QStringLiteral("../consumers/package_example_%1/%1").arg(name)))
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        environment.insert(QLatin1String(folder), m_home.path());
    // On Windows a program finds its DLLs there.
    environment.insert(QStringLiteral("PATH"), beside(QStringLiteral("../install-test/bin")) +
                                                   QDir::listSeparator() +
                                                   environment.value(QStringLiteral("PATH")));
    const QStringList plugins{beside(QStringLiteral("../lib/plugins")),
                              environment.value(QStringLiteral("QT_PLUGIN_PATH"))};
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), plugins.join(QDir::listSeparator()));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("orvprobe"));
    environment.insert(QStringLiteral("QT_LOGGING_RULES"),
                       QStringLiteral("default.info=false;default.debug=false"));
    environment.insert(QStringLiteral("QT_SCALE_FACTOR_ROUNDING_POLICY"), QStringLiteral("Round"));
    environment.remove(QStringLiteral("QT_SCALE_FACTOR"));
    m_process.setProcessEnvironment(environment);
    QObject::connect(&m_process, &QProcess::readyReadStandardOutput, &m_process, [this] { read(); });
    QObject::connect(&m_process, &QProcess::readyReadStandardError, &m_process,
                     [this] { m_errors += m_process.readAllStandardError(); });
}

Client::~Client()
{
    m_process.kill();
    m_process.waitForFinished();
}

void Client::start(Ending ending)
{
    m_seen = {};
    m_errors.clear();
    QProcessEnvironment environment = m_process.processEnvironment();
    if (ending == QuitSoon)
        environment.insert(QStringLiteral("ORV_PROBE_QUIT"), QStringLiteral("1"));
    m_process.setProcessEnvironment(environment);
    m_process.start(m_program, QStringList());
}

QString Client::warnings() const
{
    QStringList lines = QString::fromLocal8Bit(m_errors).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    lines.removeAll(QStringLiteral("This plugin does not support propagateSizeHints()"));
    // The window manager may take a window's frame away while Qt asks where the window stands in it, and how large it is.
    const QString error = QStringLiteral("qt.qpa.xcb: QXcbConnection: XCB error: ");
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                               [&error](const QString &line) {
                                   return line.startsWith(error + QStringLiteral("3 (BadWindow)")) ||
                                          line.startsWith(error + QStringLiteral("9 (BadDrawable)"));
                               }),
                lines.end());
    return lines.join(QLatin1Char('\n'));
}

QRect Client::place(const QString &widget) const
{
    return {part(widget, "x").toInt(), part(widget, "y").toInt(), part(widget, "width").toInt(),
            part(widget, "height").toInt()};
}

void Client::read()
{
    while (m_process.canReadLine())
        m_seen = QJsonDocument::fromJson(m_process.readLine()).object();
}

QJsonValue Client::part(const QString &widget, const char *name) const
{
    return m_seen.value(widget).toObject().value(QLatin1String(name));
}
