#include "toolpanel.h"

#include <customtoolbutton.h>

ToolPanel::ToolPanel(CustomToolButton *button)
    : QFrame(button->window())
{
    setAccessibleName(button->accessibleName());
    setFocusPolicy(Qt::ClickFocus); // a press beside its controls leaves it open
    hide();
    auto *heading = new QLabel(button->accessibleName(), this);
    heading->setObjectName("heading");
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(16, 12, 16, 16);
    column->setSpacing(10);
    column->addWidget(heading);

    // The library shows it at the release of the mouse, in the size that it has; keys and focus are the client's part.
    button->setClickWidget(this, false);
    connect(button, &QToolButton::pressed, this, &QWidget::adjustSize);
    connect(button, &QToolButton::toggled, this, [this](bool open) {
        setVisible(open);
        raise();
        if (open)
            focusNextChild(); // what is in it
    });
    connect(qApp, &QApplication::focusChanged, this, [=](const QWidget *, const QWidget *now) {
        if (now && now != button && now != this && !isAncestorOf(now))
            button->setChecked(false);
    });
    auto *escape = new QShortcut(Qt::Key_Escape, this);
    escape->setContext(Qt::WidgetWithChildrenShortcut);
    connect(escape, &QShortcut::activated, button, [=] {
        button->setFocus();
        button->setChecked(false);
    });
}
