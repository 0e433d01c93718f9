#include "customcombox.h"

#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionComboBox>

namespace {

constexpr int kGuardMs = 100;

} // namespace

customcombox::customcombox(QWidget *parent)
    : QComboBox(parent)
    , m_guardTimer(new QTimer(this))
{
    m_guardTimer->setSingleShot(true);
    m_guardTimer->setInterval(kGuardMs);

    setEditable(true);
    lineEdit()->setReadOnly(true);
    lineEdit()->installEventFilter(this);
    view()->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    lineEdit()->setContextMenuPolicy(Qt::NoContextMenu);
}

customcombox::~customcombox() = default;

void customcombox::setVisableCount(int count)
{
    setMaxVisibleItems(count);
}

void customcombox::setLineEditWidth(int width)
{
    if (lineEdit())
        lineEdit()->setFixedWidth(width);
}

void customcombox::setSpacingBetweenComboxAndPopupWidget(int spacing)
{
    m_popupSpacing = spacing;
}

void customcombox::showPopup()
{
    QComboBox::showPopup();
    m_guardTimer->start();
}

void customcombox::hidePopup()
{
    m_guardTimer->start();
    QComboBox::hidePopup();
}

bool customcombox::eventFilter(QObject *watched, QEvent *event)
{
    // Keeps the start of a long text in view, whatever has just happened to it.
    if (lineEdit())
        lineEdit()->setCursorPosition(0);

    switch (event->type()) {
    case QEvent::MouseButtonPress: {
        auto *mouseEvent = static_cast<QMouseEvent *>(event);
        if (mouseEvent->button() != Qt::LeftButton)
            return true;
        if (watched == lineEdit() && !m_guardTimer->isActive() && isEnabled())
            pressArrow(mouseEvent);
        break;
    }
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent *>(event)->button() != Qt::LeftButton)
            return true;
        break;
    case QEvent::ContextMenu:
        // A context menu event carries no button, so it never is a left click.
        return true;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void customcombox::pressArrow(QMouseEvent *event)
{
    // The line edit gets the event afterwards with the moved position, as subclasses have come to know it.
    event->setLocalPos(arrowCenter());
    mousePressEvent(event);
}

QPoint customcombox::arrowCenter() const
{
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.editable = isEditable();
    option.frame = true;
    if (hasFocus() && !option.editable)
        option.state |= QStyle::State_Selected;
    option.subControls = QStyle::SC_All;
    option.activeSubControls = QStyle::SC_ComboBoxArrow;
    option.currentText = currentText();
    const QRect arrow =
        style()->proxy()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this);
    return {arrow.x() + arrow.width() / 2, arrow.y() + arrow.height() / 2};
}
