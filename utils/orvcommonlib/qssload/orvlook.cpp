#include "orvlook.h"

#include "looksheets.h"
#include "looktable.h"
#include "orvresloader.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDebug>
#include <QtCore/QFile>
#include <QtCore/QMutex>
#include <QtCore/QPointer>
#include <QtCore/QThread>

namespace {

const char *const kDarkTheme = ":/orvcommonlib/themes/dark.ini";

bool isGuiThread(const char *call)
{
    const QCoreApplication *application = QCoreApplication::instance();
    if (!application || application->thread() == QThread::currentThread())
        return true;
    qWarning("OrvLook::%s: only the GUI thread may call this", call);
    return false;
}

void putInForce(const LookTable::Values &values)
{
    if (!LookTable::instance().setValues(values))
        return;
    LookSheets::follow();
    if (OrvLook *look = OrvLook::instance())
        Q_EMIT look->changed();
}

} // namespace

OrvLook::OrvLook() = default;
OrvLook::~OrvLook() = default;

// It goes with the application object, or with the library if that is unloaded before.
OrvLook *OrvLook::instance()
{
    struct Owner
    {
        ~Owner() { delete look; }
        QMutex mutex;
        QPointer<OrvLook> look;
    };
    static Owner owner;
    QCoreApplication *const application = QCoreApplication::instance();
    const QMutexLocker locker(&owner.mutex);
    if (!owner.look && application) {
        owner.look = new OrvLook;
        owner.look->moveToThread(application->thread());
        connect(
            application, &QObject::destroyed, owner.look, [] { delete owner.look; }, Qt::DirectConnection);
    }
    return owner.look;
}

bool OrvLook::setTheme(const QString &iniFile)
{
    if (!isGuiThread("setTheme"))
        return false;
    QFile file(iniFile);
    if (iniFile.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        qWarning().noquote() << QLatin1String("theme [") + iniFile + QLatin1String("] cannot be opened:")
                             << file.errorString();
        return false;
    }
    OrvResourceLoader loader;
    loader.loadThemeFile(iniFile);
    putInForce(loader.m_themeValues);
    return true;
}

void OrvLook::setDark(bool dark)
{
    if (!isGuiThread("setDark"))
        return;
    if (dark)
        setTheme(QLatin1String(kDarkTheme));
    else
        putInForce({});
}

bool OrvLook::isDark()
{
    return isGuiThread("isDark") && LookTable::instance().isDark();
}

QColor OrvLook::color(const QString &name)
{
    return isGuiThread("color") ? LookTable::instance().color(name) : QColor();
}

QStringList OrvLook::names()
{
    return isGuiThread("names") ? LookTable::instance().names() : QStringList();
}
