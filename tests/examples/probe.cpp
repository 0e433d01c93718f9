#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QMetaProperty>
#include <QtCore/QTimer>
#include <QtGui/QAccessible>
#include <QtGui/QGenericPlugin>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <cstdio>

/// A plugin that Qt loads into a client when its environment asks for it, so that a test sees what a user sees and the
/// client has nothing in it for tests. Four times a second it writes a line of JSON to standard output: of each visible
/// widget that has a name for screen readers, as "class/name", where it is and what it shows. With
/// ORV_PROBE_QUIT it ends the client as soon as a window has been seen.
class Probe : public QObject
{
    Q_OBJECT

public:
    Probe()
    {
        connect(&m_timer, &QTimer::timeout, this, &Probe::tell);
        m_timer.start(kIntervalMs);
    }

private:
    static constexpr int kIntervalMs = 250;

    static QJsonObject look(QWidget *widget, QAccessibleInterface *told)
    {
        const QRect place(widget->mapToGlobal(QPoint()), widget->size());
        QJsonObject seen{{QStringLiteral("x"), place.x()},
                         {QStringLiteral("y"), place.y()},
                         {QStringLiteral("width"), place.width()},
                         {QStringLiteral("height"), place.height()},
                         {QStringLiteral("enabled"), !told->state().disabled},
                         {QStringLiteral("focus"), widget->hasFocus()},
                         {QStringLiteral("checked"), bool(told->state().checked)}};
        const QString value = told->text(QAccessible::Value);
        if (QAccessibleValueInterface *number = told->valueInterface())
            seen.insert(QStringLiteral("value"), number->currentValue().toString());
        else if (!value.isEmpty())
            seen.insert(QStringLiteral("value"), value);
        else
            seen.insert(QStringLiteral("value"),
                        widget->metaObject()->userProperty().read(widget).toString());
        return seen;
    }

    void tell()
    {
        QJsonObject all;
        const QWidgetList widgets = QApplication::allWidgets();
        for (QWidget *widget : widgets) {
            QAccessibleInterface *told =
                widget->isVisible() ? QAccessible::queryAccessibleInterface(widget) : nullptr;
            const QString name = told ? told->text(QAccessible::Name) : QString();
            if (!name.isEmpty())
                all.insert(QLatin1String(widget->metaObject()->className()) + QLatin1Char('/') + name,
                           look(widget, told));
        }
        if (all.isEmpty())
            return;
        std::fputs(QJsonDocument(all).toJson(QJsonDocument::Compact).append('\n').constData(), stdout);
        std::fflush(stdout);
        if (qEnvironmentVariableIsSet("ORV_PROBE_QUIT"))
            QCoreApplication::quit();
    }

    QTimer m_timer;
};

class ProbePlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "probe.json")

public:
    QObject *create(const QString &, const QString &) override { return new Probe; }
};

#include "probe.moc"
