#include "lookpictures.h"

#include "looktable.h"

#include <QtCore/QFile>

namespace {

const QLatin1String kLightFolder(":/images/images/");
const QLatin1String kDarkFolder(":/orvcommonlib/dark/");
const QLatin1String kDarkMark("_dark");
const QLatin1String kUrl("url(");

QString darkPathOf(QString path)
{
    if (path.startsWith(kLightFolder))
        return path.replace(0, kLightFolder.size(), kDarkFolder);
    const int dot = path.lastIndexOf(QLatin1Char('.'));
    return dot > path.lastIndexOf(QLatin1Char('/')) ? path.insert(dot, kDarkMark) : QString();
}

} // namespace

QString LookPictures::path(const QString &lightPath)
{
    if (!LookTable::instance().isDark())
        return lightPath;
    const QString dark = darkPathOf(lightPath);
    return !dark.isEmpty() && QFile::exists(dark) ? dark : lightPath;
}

QString LookPictures::folder(const QString &lightFolder)
{
    if (!lightFolder.startsWith(kLightFolder) || !LookTable::instance().isDark())
        return lightFolder;
    const QString dark = darkPathOf(lightFolder);
    return QFile::exists(dark) ? dark : lightFolder;
}

QString LookPictures::inSheet(const QString &sheet)
{
    QString text = sheet;
    for (int at = text.indexOf(kUrl); at >= 0; at = text.indexOf(kUrl, at)) {
        at += kUrl.size();
        const int end = text.indexOf(QLatin1Char(')'), at);
        if (end < 0)
            break;
        text.replace(at, end - at, path(text.mid(at, end - at)));
    }
    return text;
}
