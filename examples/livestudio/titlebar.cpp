#include "titlebar.h"

#include <orvlook.h>

#include <QtCore/QVariant>
#include <QtGui/QIcon>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QToolButton>

TitleBar::TitleBar(QWidget *window)
    : QWidget(window)
{
    setObjectName("titleBar");
    setAttribute(Qt::WA_StyledBackground);
    setFixedHeight(kHeight);
    auto *logo = new QLabel(this);
    logo->setPixmap(window->windowIcon().pixmap(24, 24));
    auto *name = new QLabel(tr("Live Studio"), this);
    name->setObjectName("titleName");
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(16, 0, 8, 0);
    row->setSpacing(4);
    row->addWidget(logo);
    row->addSpacing(6);
    row->addWidget(name);
    row->addStretch();

    QToolButton *dark = addButton("look", tr("Dark look"));
    dark->setCheckable(true);
    dark->setChecked(OrvLook::isDark());
    connect(dark, &QToolButton::toggled, this, &OrvLook::setDark);
    connect(addButton("minimise", tr("Minimise")), &QToolButton::clicked, window, &QWidget::showMinimized);
    m_maximise = addButton("maximise", tr("Maximise"));
    connect(m_maximise, &QToolButton::clicked, this, &TitleBar::toggleMaximised);
    connect(addButton("close", tr("Close")), &QToolButton::clicked, window, &QWidget::close);
}

void TitleBar::toggleMaximised()
{
    if (window()->isMaximized())
        window()->showNormal();
    else
        window()->showMaximized();
}

void TitleBar::followWindowState()
{
    const bool maximised = window()->isMaximized();
    const QString name = maximised ? tr("Restore") : tr("Maximise");
    m_maximise->setAccessibleName(name);
    m_maximise->setToolTip(name);
    m_maximise->setProperty("picture", maximised ? "restore" : "maximise"); // for the style sheet
    m_maximise->setStyleSheet(m_maximise->styleSheet());
}

QToolButton *TitleBar::addButton(const char *picture, const QString &name)
{
    auto *button = new QToolButton(this);
    button->setProperty("picture", picture);
    button->setAccessibleName(name);
    button->setToolTip(name);
    button->setFixedSize(36, 32);
    layout()->addWidget(button);
    return button;
}
