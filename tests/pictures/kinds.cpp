#include "kinds.h"

#include "events.h"
#include "pictures.h"

#include <QtGui/QPainter>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace Pictures {

State asMade()
{
    return {QStringLiteral("default"), [](QWidget *) {}, {}};
}

State hovered()
{
    return {QStringLiteral("hover"), &Events::hover, {}};
}

State pressed()
{
    return {QStringLiteral("pressed"), &Events::press, {}};
}

State disabled()
{
    return {QStringLiteral("disabled"), [](QWidget *widget) { widget->setEnabled(false); }, {}};
}

State focused()
{
    return {QStringLiteral("keyboard focus"), &Events::tabTo, {}};
}

State rightToLeft()
{
    return {QStringLiteral("right to left"),
            [](QWidget *) { QApplication::setLayoutDirection(Qt::RightToLeft); },
            {},
            true};
}

QVector<NamedText> peculiarTexts()
{
    return {
        {"empty", QString()},
        {"long text",
         QStringLiteral("The recording of Camera 12, Gate North, has been stopped for want of room")},
        {"CJK", QStringLiteral("\u6444\u50CF\u5934 12\uFF0C\u5317\u95E8")},
        {"Arabic", QStringLiteral("\u0643\u0627\u0645\u064A\u0631\u0627 12 \u0628\u0648\u0627\u0628\u0629")},
    };
}

QVector<State> texts(QWidget *(*make)(const QString &))
{
    QVector<State> states;
    const QVector<NamedText> all = peculiarTexts();
    for (const NamedText &named : all)
        states << State{QLatin1String(named.name), [](QWidget *) {}, [=] { return make(named.text); }, true};
    return states;
}

QString swatch(const char *color, int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.fillRect(image.rect().adjusted(1, 1, -1, -1), QColor(QLatin1String(color)));
    painter.end();
    return savedImage(image, QStringLiteral("%1-%2.png").arg(QLatin1String(color).mid(1)).arg(side));
}

} // namespace Pictures
