#include "closebutton.h"

#include <QtCore/QFile>
#include <QtCore/QStringList>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QStylePainter>

namespace {

// The pictures that a style sheet names, in its order.
QStringList picturesIn(const QString &sheet)
{
    QStringList pictures;
    const QString mark = QStringLiteral("url(");
    for (int at = sheet.indexOf(mark); at >= 0; at = sheet.indexOf(mark, at)) {
        at += mark.size();
        pictures.append(sheet.mid(at, sheet.indexOf(QLatin1Char(')'), at) - at));
    }
    return pictures;
}

} // namespace

CloseButton::CloseButton(QWidget *dialog)
    : QPushButton(dialog)
{
}

CloseButton::~CloseButton() = default;

void CloseButton::paintEvent(QPaintEvent *event)
{
    if (!hasNothingToDraw()) {
        QPushButton::paintEvent(event);
        return;
    }
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    painter.drawControl(QStyle::CE_PushButtonLabel, option); // a client may have given it a text
}

bool CloseButton::hasNothingToDraw() const
{
    if (palette().button().color().alpha() > 0)
        return false;
    return styleSheet().isEmpty() ? !isThemed() : isPictureMissing();
}

// Of two pictures the last one is that of the hovered button.
bool CloseButton::isPictureMissing() const
{
    const QStringList pictures = picturesIn(styleSheet());
    if (pictures.isEmpty())
        return false;
    return !QFile::exists(underMouse() ? pictures.constLast() : pictures.constFirst());
}

bool CloseButton::isThemed() const
{
    for (const QWidget *widget = this; widget; widget = widget->parentWidget()) {
        if (widget->styleSheet().contains(objectName()))
            return true;
    }
    return qApp->styleSheet().contains(objectName());
}
