#include "toolpanel.h"

#include <customtoolbutton.h>

#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

ToolPanel::ToolPanel(const QString &title, CustomToolButton *button)
    : QFrame(button->window())
    , m_column(new QVBoxLayout(this))
    , m_button(button)
{
    setObjectName("toolPanel");
    setAccessibleName(title);
    hide();
    auto *heading = new QLabel(title, this);
    heading->setObjectName("heading");
    m_column->setContentsMargins(16, 12, 16, 16);
    m_column->setSpacing(10);
    m_column->addWidget(heading);

    // The library shows it at the release of the mouse, in the size that it has; keys and focus are the client's part.
    button->setClickWidget(this, false);
    connect(button, &QToolButton::pressed, this, &QWidget::adjustSize);
    connect(button, &QToolButton::toggled, this, &ToolPanel::setOpen);
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget *, const QWidget *now) {
        if (now && now != m_button && now != this && !isAncestorOf(now))
            m_button->setChecked(false);
    });
}

void ToolPanel::setOpen(bool open)
{
    setVisible(open);
    raise();
    const QList<QWidget *> children = findChildren<QWidget *>();
    for (QWidget *child : children) {
        if (open && child->focusPolicy() & Qt::TabFocus)
            return child->setFocus();
    }
}

void ToolPanel::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape)
        return QFrame::keyPressEvent(event);
    m_button->setFocus();
    m_button->setChecked(false);
}

void ToolPanel::mousePressEvent(QMouseEvent *) {} // the window would be dragged by it, and take the focus
