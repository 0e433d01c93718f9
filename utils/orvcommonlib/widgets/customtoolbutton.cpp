#include "customtoolbutton.h"

#include "looksheets.h"
#include "pressgesture.h"

#include <QtCore/QDebug>
#include <QtCore/QEvent>
#include <QtCore/QTimer>
#include <QtGui/QCursor>
#include <QtGui/QMouseEvent>

namespace {

constexpr qint64 kLongPressMs = 1001;
constexpr int kHoverHideDelayMs = 200;
constexpr double kSideGap = 14.0;
constexpr int kTopGap = 25;
constexpr int kWindowMargin = 14;

constexpr char kImageStyle[] =
    "QToolButton{background: transparent;padding:0px;margin:0px;border-radius: 4px; image:url(%1);}"
    "QToolButton:hover{image:url(%2);background: @toolHover;}"
    "QToolButton:disabled{image:url(%3);}"
    "QToolButton:checked{background: @toolHover;image:url(%4);}"
    "QToolButton:checked:hover{background: @toolHover;image:url(%5);}"
    "QToolButton:checked:disabled{image:url(%6);}"
    "QToolButton[current=true]{background: @toolHover; border-radius: 4px;}"
    "QToolButton[current=true]:checked{background: @toolHover;border-radius: 4px;image:url(%7);}";

// A slot or handler of the application may destroy the panel on the way, here and below.
void focusPanel(const QPointer<QWidget> panel, bool activate, bool takeFocus)
{
    if (panel && activate)
        panel->activateWindow();
    if (panel && takeFocus)
        panel->setFocus();
}

// Showing a panel places it with the size it has; only then does it get the size it wants.
void openPanel(const QPointer<QWidget> panel, bool activate, bool takeFocus)
{
    for (void (QWidget::*step)() : {&QWidget::show, &QWidget::adjustSize, &QWidget::raise}) {
        if (panel)
            (panel->*step)();
    }
    focusPanel(panel, activate, takeFocus);
}

} // namespace

CustomToolButton::CustomToolButton(QWidget *parent)
    : CustomToolButton(false, parent, Bottom)
{
}

CustomToolButton::CustomToolButton(bool uncheckOnHide, QWidget *parent, SettingWidgetDirection direction)
    : QToolButton(parent)
    , m_uncheckOnHide(uncheckOnHide)
    , m_press(std::make_unique<PressGesture>(this))
    , m_direction(direction)
{
    installEventFilter(this);
}

CustomToolButton::~CustomToolButton() = default;

void CustomToolButton::setClickWidget(QWidget *panel, bool takeFocus)
{
    attach(&m_clickPanel, panel, takeFocus);
}

void CustomToolButton::setRightClickWidget(QWidget *panel, bool takeFocus)
{
    attach(&m_rightClickPanel, panel, takeFocus);
}

void CustomToolButton::setHoverWidget(QWidget *panel, bool takeFocus)
{
    attach(&m_hoverPanel, panel, takeFocus);
    delete m_hoverTimer;
    m_hoverTimer = new QTimer(this);
    m_hoverTimer->setSingleShot(true);
    m_hoverTimer->setInterval(kHoverHideDelayMs);
    if (panel)
        connect(m_hoverTimer, &QTimer::timeout, panel, &QWidget::hide);
}

void CustomToolButton::showRightClickWidget()
{
    openPanel(m_rightClickPanel.widget, m_rightClickPanel.takesFocus, m_rightClickPanel.takesFocus);
}

void CustomToolButton::adjustWidgetPosition()
{
    const QPointer<CustomToolButton> guard(this);
    for (const AttachedPanel &panel : {m_rightClickPanel, m_clickPanel, m_hoverPanel}) {
        if (guard && panel.widget)
            adjustWidget(panel.widget);
    }
}

void CustomToolButton::updateImage(const QString &normal, const QString &checked, const QString &hover,
                                   const QString &disabled)
{
    LookSheets::apply(this, kImageStyle, {normal, hover, disabled, checked, checked, disabled, checked});
}

bool CustomToolButton::event(QEvent *event)
{
    if (event->type() == QEvent::Shortcut && isChecked()) {
        event->ignore();
        return true;
    }
    return QToolButton::event(event);
}

bool CustomToolButton::eventFilter(QObject *watched, QEvent *event)
{
    // A handler of the application may destroy the button or the panel while a panel opens or hides. Nothing
    // is ever consumed; but what is gone cannot get its event any more.
    const QPointer<QObject> receiver(watched);
    const QPointer<CustomToolButton> guard(this);
    if (watched == this && event->type() == QEvent::MouseButtonRelease) {
        // Before anything opens: a panel that is a popup would take the press its end.
        m_longPress = m_press->duration() >= kLongPressMs;
        m_press->end();
    }
    if (processClickWidget(watched, event) && guard && processRightClickWidget(watched, event) && guard)
        processHoverWidget(watched, event);
    if (!receiver)
        event->accept();
    if (!guard || !receiver)
        return !receiver;
    return QObject::eventFilter(watched, event);
}

bool CustomToolButton::processClickWidget(QObject *watched, QEvent *event)
{
    const AttachedPanel &panel = m_clickPanel;
    if (!panel.widget)
        return true;
    if (watched == this && !isEnabled())
        return false;
    if (watched == this && event->type() == QEvent::MouseButtonRelease) {
        openPanel(panel.widget, panel.takesFocus, panel.takesFocus);
    } else if (watched == panel.widget && event->type() == QEvent::FocusOut && panel.takesFocus) {
        const bool hide = !rect().contains(mapFromGlobal(QCursor::pos()));
        qDebug() << "==isHideClickWidget==" << hide;
        if (hide)
            closeClickPanel();
    } else if (watched == panel.widget && event->type() != QEvent::Hide) {
        processPanel({panel.widget, !m_uncheckOnHide}, event->type());
    }
    return true;
}

bool CustomToolButton::processRightClickWidget(QObject *watched, QEvent *event)
{
    const AttachedPanel &panel = m_rightClickPanel;
    if (!panel.widget)
        return true;
    if (watched == this && !isEnabled())
        return false;
    if (watched == this && event->type() == QEvent::MouseButtonPress) {
        m_press->begin();
    } else if (watched == this && event->type() == QEvent::MouseButtonRelease) {
        if (m_longPress || static_cast<QMouseEvent *>(event)->button() == Qt::RightButton)
            showRightClickWidget();
    } else if (watched == panel.widget) {
        processPanel(panel, event->type());
    }
    return true;
}

bool CustomToolButton::processHoverWidget(QObject *watched, QEvent *event)
{
    const AttachedPanel &panel = m_hoverPanel;
    if (!panel.widget)
        return true;
    if (watched == this && !isEnabled())
        return false;
    if (watched == this && event->type() == QEvent::HoverEnter) {
        m_hoverTimer->stop();
        openPanel(panel.widget, false, panel.takesFocus);
    } else if (watched == this && event->type() == QEvent::HoverLeave) {
        m_hoverTimer->start();
    } else if (watched == panel.widget) {
        if (event->type() == QEvent::Enter)
            m_hoverTimer->stop();
        else if (event->type() == QEvent::Leave)
            m_hoverTimer->start();
        processPanel(panel, event->type());
    }
    return true;
}

/// What all panels have in common.
void CustomToolButton::processPanel(const AttachedPanel &panel, QEvent::Type type)
{
    if (type == QEvent::Enter)
        focusPanel(panel.widget, true, panel.takesFocus);
    else if (type == QEvent::Show)
        adjustWidget(panel.widget);
    else if (type == QEvent::Hide)
        uncheckAfterHide();
}

void CustomToolButton::closeClickPanel()
{
    const QPointer<CustomToolButton> guard(this);
    m_clickPanel.widget->hide();
    if (guard)
        uncheckAfterHide();
}

void CustomToolButton::uncheckAfterHide()
{
    if (m_uncheckOnHide)
        setChecked(false);
}

void CustomToolButton::attach(AttachedPanel *place, QWidget *panel, bool takeFocus)
{
    QWidget *const former = place->widget;
    *place = {panel, takeFocus};
    const QList<QWidget *> watched{this, m_clickPanel.widget, m_rightClickPanel.widget, m_hoverPanel.widget};
    if (former && !watched.contains(former))
        former->removeEventFilter(this);
    if (panel)
        panel->installEventFilter(this);
}

void CustomToolButton::adjustWidget(QWidget *panel)
{
    const QPoint center = toPanelParent(panel, rect().center());
    QRect geometry = panel->geometry();
    switch (m_direction) {
    case Bottom:
        geometry.moveCenter(
            QPoint(center.x(), int(center.y() + (height() + geometry.height()) / 2.0 + m_offset)));
        break;
    case Left:
        geometry.moveCenter(
            QPoint(int(center.x() - (geometry.width() + width()) / 2.0 - kSideGap), center.y()));
        break;
    case Right:
        // Minus the gap on this side too: the panel overlaps the button, which clients have laid out for.
        geometry.moveCenter(
            QPoint(int(center.x() + (geometry.width() + width()) / 2.0 - kSideGap), center.y()));
        break;
    case Top: {
        const QPoint topCenter = toPanelParent(panel, QPoint(rect().center().x(), rect().top()));
        geometry.moveTopLeft(
            QPoint(int(topCenter.x() - panel->width() / 2.0), topCenter.y() - panel->height() - kTopGap));
        qInfo() << geometry;
        geometry = keptInsideWindow(panel, geometry);
        break;
    }
    default:
        return;
    }
    qInfo() << geometry;
    panel->setGeometry(geometry);
}

QPoint CustomToolButton::toPanelParent(const QWidget *panel, QPoint ownPos) const
{
    const QPoint globalPos = mapToGlobal(ownPos);
    const QWidget *parent = panel->parentWidget();
    return parent ? parent->mapFromGlobal(globalPos) : globalPos;
}

QRect CustomToolButton::keptInsideWindow(const QWidget *panel, QRect geometry) const
{
    const QWidget *parent = panel->parentWidget();
    if (!parent)
        return geometry;

    const QWidget *topLevel = window();
    const auto inWindow = [&](QPoint pos) {
        return topLevel->mapFromGlobal(parent->mapToGlobal(pos));
    };
    const auto inParent = [&](QPoint pos) {
        return parent->mapFromGlobal(topLevel->mapToGlobal(pos));
    };
    const QPoint topRight = inWindow(geometry.topRight());
    if (topRight.x() > topLevel->width())
        geometry.moveTopRight(inParent(QPoint(topLevel->width() - kWindowMargin, topRight.y())));
    const QPoint topLeft = inWindow(geometry.topLeft());
    if (topLeft.x() < 0)
        geometry.moveTopLeft(inParent(QPoint(kWindowMargin, topLeft.y())));
    // Setting the left edge, not moving it, narrows the panel: deliberate.
    if (geometry.left() < 0)
        geometry.setLeft(kWindowMargin);
    return geometry;
}
