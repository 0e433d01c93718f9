#include "customtoolbutton.h"

#include <QtCore/QDateTime>
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

QString imageStyle()
{
    return QStringLiteral(
        "QToolButton{background: transparent;padding:0px;margin:0px;border-radius: 4px; image:url(%1);}"
        "QToolButton:hover{image:url(%2);background: #F5F6F7;}"
        "QToolButton:disabled{image:url(%3);}"
        "QToolButton:checked{background: #F5F6F7;image:url(%4);}"
        "QToolButton:checked:hover{background: #F5F6F7;image:url(%5);}"
        "QToolButton:checked:disabled{image:url(%6);}"
        "QToolButton[current=true]{background: #F5F6F7; border-radius: 4px;}"
        "QToolButton[current=true]:checked{background: #F5F6F7;border-radius: 4px;image:url(%7);}");
}

enum class Activation { Leave, Activate };

// Opens a panel. Showing it places it with the size it has; only then does it get the size it wants. A slot
// or handler of the application may destroy the panel on the way.
void openPanel(QPointer<QWidget> panel, Activation activation, bool takeFocus)
{
    if (panel)
        panel->show();
    if (panel)
        panel->adjustSize();
    if (panel)
        panel->raise();
    if (panel && takeFocus && activation == Activation::Activate)
        panel->activateWindow();
    if (panel && takeFocus)
        panel->setFocus();
}

void activatePanel(QPointer<QWidget> panel, bool takeFocus)
{
    if (panel)
        panel->activateWindow();
    if (panel && takeFocus)
        panel->setFocus();
}

} // namespace

CustomToolButton::CustomToolButton(bool uncheckOnHide, QWidget *parent, SettingWidgetDirection direction)
    : QToolButton(parent)
    , m_uncheckOnHide(uncheckOnHide)
    , m_direction(direction)
{
    installEventFilter(this);
}

CustomToolButton::~CustomToolButton() = default;

void CustomToolButton::setClickWidget(QWidget *panel, bool takeFocus)
{
    m_clickPanel = panel;
    m_clickTakesFocus = takeFocus;
    if (panel)
        panel->installEventFilter(this);
}

void CustomToolButton::setRightClickWidget(QWidget *panel, bool takeFocus)
{
    m_rightClickPanel = panel;
    m_rightClickTakesFocus = takeFocus;
    if (panel)
        panel->installEventFilter(this);
}

void CustomToolButton::setHoverWidget(QWidget *panel, bool takeFocus)
{
    m_hoverTimer = new QTimer(this);
    m_hoverTimer->setSingleShot(true);
    m_hoverTimer->setInterval(kHoverHideDelayMs);
    connect(m_hoverTimer, &QTimer::timeout, this, [this] {
        if (m_hoverPanel)
            m_hoverPanel->hide();
    });
    m_hoverPanel = panel;
    m_hoverTakesFocus = takeFocus;
    if (panel)
        panel->installEventFilter(this);
}

void CustomToolButton::showRightClickWidget()
{
    openPanel(m_rightClickPanel, Activation::Activate, m_rightClickTakesFocus);
}

void CustomToolButton::setSettingWidgetOffset(int offset)
{
    m_offset = offset;
}

void CustomToolButton::adjustWidgetPosition()
{
    const QPointer<CustomToolButton> guard(this);
    for (const QPointer<QWidget> &panel : {m_rightClickPanel, m_clickPanel, m_hoverPanel}) {
        if (guard && panel)
            adjustWidget(panel);
    }
}

void CustomToolButton::updateImage(const QString &normal, const QString &checked, const QString &hover,
                                   const QString &disabled)
{
    setStyleSheet(imageStyle().arg(normal, hover, disabled, checked, checked, disabled, checked));
}

qint64 CustomToolButton::currentMSecs() const
{
    return QDateTime::currentMSecsSinceEpoch();
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
    if (processClickWidget(watched, event) && guard && processRightClickWidget(watched, event) && guard)
        processHoverWidget(watched, event);
    if (!guard || !receiver)
        return !receiver;
    return QObject::eventFilter(watched, event);
}

bool CustomToolButton::processClickWidget(QObject *watched, QEvent *event)
{
    if (!m_clickPanel)
        return true;
    if (watched == this) {
        if (!isEnabled())
            return false;
        if (event->type() == QEvent::MouseButtonRelease)
            openPanel(m_clickPanel, Activation::Activate, m_clickTakesFocus);
    } else if (watched == m_clickPanel) {
        switch (event->type()) {
        case QEvent::FocusOut:
            if (m_clickTakesFocus) {
                const bool hide = !rect().contains(mapFromGlobal(QCursor::pos()));
                qDebug() << "==isHideClickWidget==" << hide;
                if (hide)
                    closeClickPanel();
            }
            break;
        case QEvent::Enter:
            activatePanel(m_clickPanel, !m_uncheckOnHide);
            break;
        case QEvent::Show:
            adjustWidget(m_clickPanel);
            break;
        default:
            break;
        }
    }
    return true;
}

bool CustomToolButton::processRightClickWidget(QObject *watched, QEvent *event)
{
    if (!m_rightClickPanel)
        return true;
    if (watched == this) {
        if (!isEnabled())
            return false;
        if (event->type() == QEvent::MouseButtonPress)
            m_pressTime = currentMSecs();
        else if (event->type() == QEvent::MouseButtonRelease)
            openOnRelease(static_cast<QMouseEvent *>(event)->button());
    } else if (watched == m_rightClickPanel) {
        switch (event->type()) {
        case QEvent::Enter:
            activatePanel(m_rightClickPanel, m_rightClickTakesFocus);
            break;
        case QEvent::Show:
            adjustWidget(m_rightClickPanel);
            break;
        case QEvent::Hide:
            uncheckAfterHide();
            break;
        default:
            break;
        }
    }
    return true;
}

bool CustomToolButton::processHoverWidget(QObject *watched, QEvent *event)
{
    if (!m_hoverPanel)
        return true;
    if (watched == this) {
        if (!isEnabled())
            return false;
        if (event->type() == QEvent::HoverEnter) {
            stopHoverTimer();
            openPanel(m_hoverPanel, Activation::Leave, m_hoverTakesFocus);
        } else if (event->type() == QEvent::HoverLeave) {
            m_hoverTimer->start();
        }
    } else if (watched == m_hoverPanel) {
        switch (event->type()) {
        case QEvent::Enter:
            stopHoverTimer();
            activatePanel(m_hoverPanel, m_hoverTakesFocus);
            break;
        case QEvent::Leave:
            m_hoverTimer->start();
            break;
        case QEvent::Show:
            adjustWidget(m_hoverPanel);
            break;
        case QEvent::Hide:
            uncheckAfterHide();
            break;
        default:
            break;
        }
    }
    return true;
}

void CustomToolButton::openOnRelease(Qt::MouseButton button)
{
    // No press is pending at the second release of a double click: that is no long press.
    const bool longPress = m_pressTime != 0 && currentMSecs() - m_pressTime >= kLongPressMs;
    m_pressTime = 0;
    if (longPress || button == Qt::RightButton)
        showRightClickWidget();
}

void CustomToolButton::closeClickPanel()
{
    const QPointer<CustomToolButton> guard(this);
    m_clickPanel->hide();
    if (guard)
        uncheckAfterHide();
}

void CustomToolButton::uncheckAfterHide()
{
    if (m_uncheckOnHide)
        setChecked(false);
}

void CustomToolButton::stopHoverTimer()
{
    if (m_hoverTimer->isActive())
        m_hoverTimer->stop();
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
