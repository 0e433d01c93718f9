#include "report.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtGui/QGuiApplication>

namespace Pictures {

Report::Report(const QString &folder)
    : m_folder(folder)
{
    QDir(folder).removeRecursively();
}

void Report::add(const QString &widget, const Sheet &expected, const Sheet &actual)
{
    QDir().mkpath(m_folder);
    const QStringList names = differingNames(expected, actual);
    m_rows += QStringLiteral("<tr><th colspan=4><h2>%1</h2></th></tr>\n").arg(widget);
    for (const QString &name : names) {
        const QImage wanted = expected.picture(name);
        const QImage painted = actual.picture(name);
        const QString file =
            QString(widget + QLatin1Char('-') + name).replace(QLatin1Char(' '), QLatin1Char('-'));
        m_rows += QStringLiteral("<tr><td>%1<br><em>%2</em></td>").arg(name, difference(wanted, painted)) +
                  imageTag(file + QLatin1String("-expected"), wanted) +
                  imageTag(file + QLatin1String("-actual"), painted) +
                  imageTag(file + QLatin1String("-difference"), differencePicture(wanted, painted)) +
                  QStringLiteral("</tr>\n");
    }
    QFile page(this->page());
    if (!page.open(QIODevice::WriteOnly))
        return;
    page.write(QStringLiteral(R"(<!DOCTYPE html>
<html lang="en"><head><meta charset="utf-8"><title>Pictures that differ</title><style>
body { font-family: sans-serif; background: #808080; color: white }
img { image-rendering: pixelated }
td { vertical-align: top; padding: 4px 8px }
th { text-align: left }
</style></head><body>
<h1>Pictures that differ, at device pixel ratio %1</h1>
<p>To accept what was painted: <code>%2</code></p>
<table><tr><th>State</th><th>Expected</th><th>Actual</th><th>Difference</th></tr>
%3</table></body></html>
)")
                   .arg(QString::number(qGuiApp->devicePixelRatio()), acceptingCommand(), m_rows)
                   .toUtf8());
}

QString Report::page() const
{
    return m_folder + QLatin1String("/index.html");
}

QString Report::imageTag(const QString &name, const QImage &image) const
{
    if (image.isNull())
        return QStringLiteral("<td></td>");
    image.save(m_folder + QLatin1Char('/') + name + QLatin1String(".png"), "PNG");
    return QStringLiteral("<td><img src=\"%1.png\"></td>").arg(name);
}

QString acceptingCommand()
{
    return QStringLiteral("./dev pictures " ORV_PICTURES_COMMAND "--accept");
}

} // namespace Pictures
