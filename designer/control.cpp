#include "control.h"

#include <QtGui/QIcon>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>
#include <QtSvg/QSvgRenderer>

namespace {

constexpr int kGrid =
    24; // the icons are drawn on whole pixels of this square, with nothing in the outermost ones

// Without the outermost pixels where there is no room for them: no size that Designer shows is scaled.
QPixmap rendered(const QString &file, int side, int ratio)
{
    const int margin = (kGrid - side) / 2;
    QSvgRenderer renderer(file);
    renderer.setViewBox(QRect(margin, margin, side, side));
    QPixmap pixmap(QSize(side, side) * ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter);
    return pixmap;
}

} // namespace

Control::Control(const ControlDescription &description, QObject *parent)
    : QObject(parent)
    , m_description(description)
{
}

QString Control::name() const
{
    return QString::fromLatin1(m_description.className);
}

QIcon Control::icon() const
{
    const QString file = QStringLiteral(":/orvcommonlibdesigner/icons/%1.svg").arg(name().toLower());
    QIcon icon;
    for (const int ratio : {1, 2, 3}) {
        for (const int side : {22, 24})
            icon.addPixmap(rendered(file, side, ratio));
    }
    return icon;
}

QString Control::domXml() const
{
    return QStringLiteral("<ui language=\"c++\">"
                          "<widget class=\"%1\" name=\"%2\">"
                          "<property name=\"geometry\"><rect><x>0</x><y>0</y>"
                          "<width>%3</width><height>%4</height></rect></property>%5"
                          "</widget>"
                          "<customwidgets><customwidget><class>%1</class><extends>%6</extends>"
                          "<header>%7</header></customwidget></customwidgets>"
                          "</ui>")
        .arg(name(), QLatin1String(m_description.objectName))
        .arg(m_description.size.width())
        .arg(m_description.size.height())
        .arg(QLatin1String(m_description.properties), QLatin1String(m_description.baseName), includeFile());
}
