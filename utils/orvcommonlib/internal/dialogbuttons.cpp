#include "dialogbuttons.h"

#include <QtWidgets/QPushButton>

namespace {

QPushButton *createPointedButton(QWidget *dialog, QLatin1String styleSheet)
{
    auto *button = new QPushButton(dialog);
    button->setFocusPolicy(Qt::NoFocus);
    button->setCursor(Qt::PointingHandCursor);
    button->setStyleSheet(styleSheet);
    return button;
}

} // namespace

QPushButton *DialogButtons::createCloseButton(QWidget *dialog, QSize size, QLatin1String styleSheet)
{
    QPushButton *button = createPointedButton(dialog, styleSheet);
    button->setFixedSize(size);
    return button;
}

QPushButton *DialogButtons::createActionButton(QWidget *dialog, const QString &text, QLatin1String styleSheet)
{
    QPushButton *button = createPointedButton(dialog, styleSheet);
    button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    button->setAttribute(Qt::WA_LayoutUsesWidgetRect);
    button->setText(text);
    return button;
}
