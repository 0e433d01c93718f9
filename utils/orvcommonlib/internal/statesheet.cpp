#include "statesheet.h"

#include <QtCore/QString>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

namespace {

bool selectsOnProperties(const QString &sheet)
{
    return sheet.contains(QLatin1Char('['));
}

// All sheets above select among what lies below them, too.
bool mayHaveAnotherEffect(const QWidget *widget)
{
    const QString own = widget->styleSheet();
    if (own.contains(QLatin1String("url(")) || own.contains(QLatin1String("qproperty-")) ||
        selectsOnProperties(qApp->styleSheet()))
        return true;
    for (; widget; widget = widget->parentWidget()) {
        if (selectsOnProperties(widget->styleSheet()))
            return true;
    }
    return false;
}

} // namespace

void applyStateSheet(QWidget *widget, const QString &sheet)
{
    if (widget->styleSheet() != sheet || mayHaveAnotherEffect(widget))
        widget->setStyleSheet(sheet);
}
