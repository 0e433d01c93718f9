#include "toolpanel.h"
#include "studiostyle.h"

#include <customtoolbutton.h>

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

ToolPanel::ToolPanel(CustomToolButton *button)
    : QFrame(button->window())
    , m_button(button)
{
    setObjectName("toolPanel");
    setAccessibleName(button->accessibleName());
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
    connect(button, &QToolButton::toggled, this, &ToolPanel::setOpen);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget *, const QWidget *now) {
        if (now && now != m_button && now != this && !isAncestorOf(now))
            m_button->setChecked(false);
    });
}

QPushButton *ToolPanel::addButton(const QString &text)
{
    QPushButton *button = StudioStyle::newButton("choice", text, this);
    layout()->addWidget(button);
    return button;
}

void ToolPanel::setOpen(bool open)
{
    setVisible(open);
    raise();
    if (open)
        focusNextChild(); // what is in it
}

void ToolPanel::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape)
        return QFrame::keyPressEvent(event);
    m_button->setFocus();
    m_button->setChecked(false);
}

void ToolPanel::mousePressEvent(QMouseEvent *) {} // the window would be dragged by it, and take the focus
