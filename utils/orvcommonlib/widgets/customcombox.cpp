#include "customcombox.h"

#include "orvqtcompat.h"

#include <QtCore/QPointer>
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

int customcombox::lineEditWidth() const
{
    return lineEdit() ? lineEdit()->width() : 0;
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
    // Keeps the start of a long text in view, whatever has just happened to it. A line edit that is replaced
    // goes while it is still the combo box's own, and sends its last events as a plain widget.
    QLineEdit *edit = lineEdit();
    if (edit == watched)
        edit = qobject_cast<QLineEdit *>(watched);
    if (edit)
        edit->setCursorPosition(0);

    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: { // the second of two quick presses
        auto *mouseEvent = static_cast<QMouseEvent *>(event);
        if (mouseEvent->button() != Qt::LeftButton)
            return true;
        if (edit && edit == watched && !m_guardTimer->isActive() && isEnabled()) {
            const QPointer<QObject> receiver(watched);
            pressArrow(mouseEvent);
            return !receiver; // what a slot has destroyed cannot get its event any more
        }
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
    orvqt::setPosition(event, arrowCenter());
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
