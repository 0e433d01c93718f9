#include "realpointer.h"
#include "xpointer.h"

void RealPointer::click(QPoint point)
{
    XPointer::click(point);
}

void RealPointer::drag(QPoint from, QPoint to)
{
    XPointer::drag(from, to);
}

void RealPointer::key(const QString &combination)
{
    QStringList keys = combination.split(QLatin1Char('+'));
    for (int modifier = 0; modifier < keys.size() - 1; ++modifier)
        keys[modifier] = keys[modifier].toLower();
    XPointer::key(keys.join(QLatin1Char('+')));
}
