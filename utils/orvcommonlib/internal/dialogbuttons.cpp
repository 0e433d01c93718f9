#include "dialogbuttons.h"

#include "looksheets.h"

#include <QtWidgets/QPushButton>

namespace {

QPushButton *createPointedButton(QWidget *dialog, const char *sheet)
{
    auto *button = new QPushButton(dialog);
    button->setFocusPolicy(Qt::NoFocus);
    button->setCursor(Qt::PointingHandCursor);
    LookSheets::apply(button, sheet);
    return button;
}

} // namespace

QPushButton *DialogButtons::createCloseButton(QWidget *dialog, QSize size, const char *sheet)
{
    QPushButton *button = createPointedButton(dialog, sheet);
    button->setFixedSize(size);
    return button;
}

QPushButton *DialogButtons::createActionButton(QWidget *dialog, const QString &text, const char *sheet)
{
    QPushButton *button = createPointedButton(dialog, sheet);
    button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    button->setAttribute(Qt::WA_LayoutUsesWidgetRect);
    button->setText(text);
    return button;
}
