#include "dialogbuttons.h"

#include "closebutton.h"
#include "looksheets.h"
#include "plainkey.h"

#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtGui/QShowEvent>
#include <QtWidgets/QPushButton>

namespace {

void pointWithoutFocus(QPushButton *button, const char *sheet)
{
    button->setFocusPolicy(Qt::NoFocus);
    button->setCursor(Qt::PointingHandCursor);
    LookSheets::apply(button, sheet);
}

} // namespace

QPushButton *DialogButtons::createCloseButton(QWidget *dialog, QSize size, const char *sheet)
{
    auto *button = new CloseButton(dialog);
    pointWithoutFocus(button, sheet);
    button->setFixedSize(size);
    return button;
}

QPushButton *DialogButtons::createActionButton(QWidget *dialog, const QString &text, const char *sheet)
{
    auto *button = new QPushButton(dialog);
    pointWithoutFocus(button, sheet);
    button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    button->setAttribute(Qt::WA_LayoutUsesWidgetRect);
    button->setText(text);
    return button;
}

bool DialogButtons::clickByKey(const QKeyEvent *event, QPushButton *closeButton, QPushButton *confirmButton)
{
    const int key = plainKey(event);
    if (key != Qt::Key_Escape && key != Qt::Key_Return)
        return false;
    QPushButton *button = key == Qt::Key_Escape ? closeButton : confirmButton;
    if (button && button->isVisibleTo(button->window()) && !event->isAutoRepeat())
        button->click();
    return true;
}

void DialogButtons::takeKeys(QWidget *dialog, const QShowEvent *event)
{
    if (event->spontaneous() || dialog->testAttribute(Qt::WA_ShowWithoutActivating))
        return;
    QTimer::singleShot(0, dialog, [dialog] {
        if (dialog->isVisible() && QGuiApplication::applicationState() == Qt::ApplicationActive)
            dialog->activateWindow();
    });
}
