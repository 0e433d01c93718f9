#include "customshadowcombox.h"

#include "accessiblenotification.h"
#include "customcomboxheader.h"
#include "customcomboxitem.h"
#include "focusmark.h"
#include "orvcommonlib.h"
#include "plainkey.h"
#include "shadowpopupwidget.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDebug>
#include <QtCore/QPointer>
#include <QtGui/QCursor>
#include <QtGui/QKeyEvent>
#include <QtGui/QScreen>
#include <QtGui/QWindow>
#include <QtWidgets/QDialog>
#include <QtWidgets/QHBoxLayout>

#include <utility>

namespace {

constexpr qint32 kRowHeight = 48;
constexpr qint32 kSmallRowHeight = 28;
constexpr int kListMargin = 4;
// The transparent shadow on each side of the list, by which it is wider than the header.
constexpr int kShadowWidth = 4;

} // namespace

CustomShadowCombox::CustomShadowCombox(QWidget *parent)
    : QWidget(parent)
    , m_rowHeight(kRowHeight)
{
    init();
}

CustomShadowCombox::CustomShadowCombox(bool isSmallStyle, QWidget *parent)
    : CustomShadowCombox(isSmallStyle, kSmallRowHeight, parent)
{
}

CustomShadowCombox::CustomShadowCombox(bool isSmallStyle, int itemHeight, QWidget *parent)
    : QWidget(parent)
    , m_smallStyle(isSmallStyle)
    , m_rowHeight(itemHeight)
{
    init();
}

CustomShadowCombox::~CustomShadowCombox()
{
    if (!m_popup)
        return;
    closePopup();
    // While Qt delivers an event, which may be the list's own, it goes on to use the list.
    if (m_eventDepth > 0)
        m_popup->setParent(nullptr, m_popup->windowFlags());
    m_popup->deleteLater();
}

void CustomShadowCombox::addItem(QString text)
{
    if (!m_popup)
        return;
    qInfo() << "--- begin new CustomComboxItem ---,text =" << text;
    auto *row = new CustomComboxItem(text, m_popup->rowParent());
    qInfo() << "--- new CustomComboxItem success ---";
    qInfo() << "--- begin add item to the ShadowPopupWidget ---";
    m_popup->addItem(row);
    qInfo() << "--- add item to the ShadowPopupWidget success ---";
}

void CustomShadowCombox::addItem(QString text, bool isGray, bool isChinese)
{
    if (m_popup)
        m_popup->addItem(new CustomComboxItem(std::move(text), m_popup->rowParent(), isGray, isChinese));
}

void CustomShadowCombox::addItem(QString text, int fontSize)
{
    if (m_popup)
        m_popup->addItem(new CustomComboxItem(std::move(text), fontSize, m_popup->rowParent()));
}

void CustomShadowCombox::addItem(QString text, int itemHeight, int fontSize, int iconSize)
{
    if (m_popup)
        m_popup->addItem(new CustomComboxItem(true, std::move(text), itemHeight, fontSize, iconSize,
                                              m_popup->rowParent()));
}

void CustomShadowCombox::addSmallStyleItem(QString text)
{
    if (m_popup)
        m_popup->addItem(new CustomComboxItem(true, std::move(text), m_popup->rowParent()));
}

void CustomShadowCombox::insertItem(int index, const QString &text)
{
    if (!m_popup)
        return;
    const QRect before = m_popup->geometry();
    m_popup->insertItem(qBound(0, index, count()), text);
    keepListAtHeader(before);
}

void CustomShadowCombox::removeItem(int index)
{
    if (!m_popup)
        return;
    const QRect before = m_popup->geometry();
    const bool isCurrent = m_popup->isCurrentRow(index);
    m_popup->removeItem(index);
    if (isCurrent)
        showText(QString());
    keepListAtHeader(before);
}

void CustomShadowCombox::reset()
{
    if (!m_popup)
        return;
    const QRect before = m_popup->geometry();
    m_indexForItems = -1;
    m_popup->reset();
    showText(QString());
    keepListAtHeader(before);
}

QStringList CustomShadowCombox::items() const
{
    QStringList texts;
    for (int row = 0; row < count(); ++row)
        texts.append(itemText(row));
    return texts;
}

void CustomShadowCombox::setItems(const QStringList &texts)
{
    if (!m_popup)
        return;
    const QRect before = m_popup->geometry();
    const bool isAwaited = count() == 0 && !texts.isEmpty() && m_indexForItems >= 0;
    const int index = isAwaited ? std::exchange(m_indexForItems, -1) : currentIndex();
    m_popup->reset();
    for (const QString &text : texts)
        m_popup->insertItem(count(), text);
    m_popup->setCurrentIndex(index);
    showText(m_popup->currentText());
    keepListAtHeader(before);
}

void CustomShadowCombox::clear()
{
    if (m_popup)
        m_popup->clear();
}

int CustomShadowCombox::count() const
{
    return m_popup ? m_popup->count() : 0;
}

int CustomShadowCombox::currentIndex()
{
    return m_popup ? m_popup->currentIndex() : -1;
}

void CustomShadowCombox::setCurrentIndex(int index)
{
    qInfo() << "AAAAA--setCurrentIndex--" << index;
    if (!m_header || !m_popup)
        return;
    qInfo() << "AAAAA--setCurrentIndex-------" << index << "--END";
    m_popup->setCurrentIndex(index);
    showText(m_popup->currentText());
}

void CustomShadowCombox::writeCurrentIndex(int index)
{
    if (count() > 0)
        setCurrentIndex(index);
    else
        m_indexForItems = index;
}

QString CustomShadowCombox::currentText() const
{
    return m_header ? m_header->text() : QString();
}

QString CustomShadowCombox::itemText(int index) const
{
    return m_popup ? m_popup->itemText(index) : QString();
}

void CustomShadowCombox::setItemText(int index, const QString &text)
{
    if (!m_popup)
        return;
    m_popup->setItemText(index, text);
    if (m_popup->isCurrentRow(index))
        showText(text);
}

int CustomShadowCombox::findText(const QString &text) const
{
    for (int row = 0; row < count(); ++row) {
        if (m_popup->itemText(row) == text)
            return row;
    }
    return -1;
}

int CustomShadowCombox::findData(const QVariant &value) const
{
    for (int row = 0; row < count(); ++row) {
        if (m_popup->itemData(row) == value)
            return row;
    }
    return -1;
}

QVariant CustomShadowCombox::itemData(int index)
{
    return m_popup ? m_popup->itemData(index) : QVariant();
}

void CustomShadowCombox::setItemData(int index, const QVariant &value)
{
    if (m_popup)
        m_popup->setItemData(index, value);
}

void CustomShadowCombox::setItemGrayState(QVector<bool> &states)
{
    if (m_popup)
        m_popup->setItemGrayState(states);
}

void CustomShadowCombox::setHeaderStyle(QString styleTemplate)
{
    if (m_header)
        m_header->setCustomStyle(std::move(styleTemplate));
}

void CustomShadowCombox::setHeaderTextStyle(QString style)
{
    if (m_header)
        m_header->setCustomTextStyle(std::move(style));
}

bool CustomShadowCombox::isActive()
{
    return isPopupOpen() || isActiveWindow();
}

void CustomShadowCombox::hidePopup()
{
    if (m_popup)
        closePopupAndReport();
}

void CustomShadowCombox::slotHeaderClicked()
{
    if (!m_popup)
        return;
    if (isPopupOpen())
        closePopup();
    else if (m_popup->hasItems())
        showPopup();
}

void CustomShadowCombox::slotCurrentIndexChanged(int index)
{
    if (!m_popup || !m_header)
        return;
    if (index != currentIndex()) {
        setCurrentIndex(index);
        const QPointer<CustomShadowCombox> guard(this);
        Q_EMIT currentIndexChanged(index);
        if (!guard)
            return;
    }
    closePopup();
}

void CustomShadowCombox::slotCurrentGrayIndexChanged(int index)
{
    if (!m_popup || !m_header)
        return;
    const QPointer<CustomShadowCombox> guard(this);
    closePopup();
    if (guard)
        Q_EMIT currentGrayIndexChanged(index);
}

void CustomShadowCombox::slotAddOneLiveOption()
{
    Q_EMIT signalAddOneLiveOption();
}

void CustomShadowCombox::slotDeleteOneLiveOption(int index)
{
    Q_EMIT signalDeleteOneLiveOption(index);
}

void CustomShadowCombox::showPopup()
{
    if (!m_popup || !m_header)
        return;
    const int popupHeight = m_popup->height();
    QPoint pos = m_header->mapToGlobal(QPoint(0, m_header->height()));
    const QScreen *screen = totalcommon::getScreen(pos, nullptr);
    const QRect available = screen ? screen->availableGeometry() : QRect();
    const bool above = screen && pos.y() + popupHeight > available.top() + available.height();
    if (above) {
        pos = m_header->mapToGlobal(QPoint(0, 0));
        pos.ry() -= popupHeight;
    }
    pos.rx() -= kShadowWidth;
    m_header->setIconState(above);

    // A handler of the application may destroy the combo box on the way.
    const QPointer<QWidget> popup(m_popup);
    popup->move(pos);
    if (popup)
        popup->show();
    if (popup)
        popup->activateWindow();
    if (popup)
        popup->raise();
}

void CustomShadowCombox::resizeEvent(QResizeEvent *event)
{
    if (m_header)
        m_header->setFixedSize(size());
    if (m_popup)
        m_popup->setFixedWidth(width() + 2 * kShadowWidth);
    QWidget::resizeEvent(event);
}

// A key that has closed the list on its way here has done its work.
void CustomShadowCombox::keyPressEvent(QKeyEvent *event)
{
    const bool hasClosed = std::exchange(m_closingKey, nullptr) == event;
    if (focusPolicy() == Qt::NoFocus || !(hasClosed || answerKey(event)))
        QWidget::keyPressEvent(event);
}

bool CustomShadowCombox::answerKey(const QKeyEvent *event)
{
    if ((event->modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier && event->key() == Qt::Key_Down) {
        openByKey(event);
        return true;
    }
    switch (plainKey(this, event)) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_F4:
        openByKey(event);
        return true;
    case Qt::Key_Up:
        chooseFrom(currentIndex() - 1, -1);
        return true;
    case Qt::Key_Down:
        chooseFrom(currentIndex() + 1, 1);
        return true;
    case Qt::Key_Home:
        chooseFrom(0, 1);
        return true;
    case Qt::Key_End:
        chooseFrom(count() - 1, -1);
        return true;
    default:
        return false;
    }
}

// A key that is held down opens the list once.
void CustomShadowCombox::openByKey(const QKeyEvent *event)
{
    if (event->isAutoRepeat() || isPopupOpen() || count() == 0)
        return;
    m_openingKey = event->key();
    slotHeaderClicked();
}

// As a click on the first row from `row` on that is not gray.
void CustomShadowCombox::chooseFrom(int row, int step)
{
    const int choice = m_popup ? m_popup->findChoosable(row, step) : -1;
    if (choice >= 0)
        slotCurrentIndexChanged(choice);
}

bool CustomShadowCombox::event(QEvent *event)
{
    FocusMark::follow(this, event);
    return QWidget::event(event);
}

// Runs for every event of the application, the list's own included: what does not concern an open list must leave
// at once, above all before the pointer is asked for, which is a round trip to the server on some platforms.
bool CustomShadowCombox::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        if (watched->isWindowType()) // where every new key comes in
            m_closingKey = nullptr;
        Q_FALLTHROUGH();
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::WindowDeactivate:
        if (isPopupOpen() && !m_closing) {
            const QPointer<QObject> receiver(watched);
            const QPointer<CustomShadowCombox> guard(this);
            ++m_eventDepth;
            handleWhileOpen(watched, event);
            if (guard)
                --m_eventDepth;
            // Nothing is ever consumed; but what a slot has destroyed cannot get its event any more.
            return !receiver;
        }
        break;
    case QEvent::HideToParent: // the last event of a hide(): the widgets that it has hidden are free again
        if (m_reportIsDue && watched->isWidgetType() && isHiddenWith(static_cast<QWidget *>(watched))) {
            const QPointer<QObject> receiver(watched);
            reportHiding();
            return !receiver;
        }
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

// A list does not outlive what it belongs to. Qt goes on using the widgets that it is hiding, which a slot may
// destroy: what is to be told about it is told when hide() is done with them, or at the latest by the event loop.
void CustomShadowCombox::hideEvent(QHideEvent *event)
{
    if (isPopupOpen() && !m_closing) {
        closePopup();
        m_reportIsDue = true;
        QMetaObject::invokeMethod(this, &CustomShadowCombox::reportHiding, Qt::QueuedConnection);
    }
    QWidget::hideEvent(event);
}

void CustomShadowCombox::init()
{
    setMouseTracking(true);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_header = new CustomComboxHeader(m_smallStyle, this);
    connect(m_header, &CustomComboxHeader::signalClicked, this, &CustomShadowCombox::slotHeaderClicked);
    layout->addWidget(m_header);

    if (m_smallStyle)
        m_popup = new ShadowPopupWidget(QStringLiteral(":/images/images/combox/popup_small.png"), kListMargin,
                                        m_rowHeight, this);
    else
        m_popup = new ShadowPopupWidget(QStringLiteral(":/images/images/combox/popup_bg.png"), kListMargin,
                                        kListMargin, kListMargin, kListMargin, kShadowWidth, this);
    connect(m_popup, &ShadowPopupWidget::currentIndexChanged, this,
            &CustomShadowCombox::slotCurrentIndexChanged);
    connect(m_popup, &ShadowPopupWidget::currentGrayIndexChanged, this,
            &CustomShadowCombox::slotCurrentGrayIndexChanged);
    connect(m_popup, &ShadowPopupWidget::screenChanged, this, &CustomShadowCombox::hidePopup);
    m_popup->hide();
    if (QCoreApplication *application = QCoreApplication::instance())
        application->installEventFilter(this);
}

void CustomShadowCombox::showText(const QString &text)
{
    if (!m_header || text == m_header->text())
        return;
    m_header->setText(text);
    AccessibleNotification::valueChanged(this, text);
}

// An open list that stands above the header grows and shrinks at its upper end.
void CustomShadowCombox::keepListAtHeader(const QRect &before)
{
    if (!m_header || !isPopupOpen())
        return;
    const int lowerEnd = before.y() + before.height();
    if (lowerEnd <= m_header->mapToGlobal(QPoint(0, 0)).y())
        m_popup->move(before.x(), lowerEnd - m_popup->height());
}

bool CustomShadowCombox::isPopupOpen() const
{
    return m_popup && m_popup->isVisible();
}

// The header toggles the list by itself, and the rest of the combo box belongs to it: neither is outside.
bool CustomShadowCombox::isOutside(QPoint globalPos) const
{
    const QPoint pos = mapFromGlobal(globalPos);
    if (m_header && m_header->geometry().contains(pos))
        return false;
    return !rect().contains(pos) && !m_popup->geometry().contains(globalPos);
}

// A window that hides because it is being destroyed takes the combo box along, and nobody is told: it has left
// the focus chain by then.
bool CustomShadowCombox::isHiddenWith(const QWidget *hidden) const
{
    return (hidden == this || hidden->isAncestorOf(this)) && hidden->nextInFocusChain() &&
           !qobject_cast<const QDialog *>(hidden); // which goes on with itself
}

void CustomShadowCombox::reportHiding()
{
    if (std::exchange(m_reportIsDue, false))
        Q_EMIT signalPopWidHideWhenClickOtherPos();
}

void CustomShadowCombox::handleWhileOpen(const QObject *watched, const QEvent *event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::KeyPress) {
        closeByKey(watched, static_cast<const QKeyEvent *>(event));
        return;
    }
    if (type == QEvent::WindowDeactivate && watched != m_popup)
        return;
    const QPoint pos = QCursor::pos();
    if (type == QEvent::MouseMove) {
        if (!m_popup->geometry().contains(pos))
            Q_EMIT signalMouseMoveLeavePopup(pos);
    } else if (isOutside(pos)) {
        closePopupAndReport();
    }
}

// The key that has opened the list may still be held down. The one that closes it may be on its way to the combo box,
// where its list is not activated by the window manager.
void CustomShadowCombox::closeByKey(const QObject *watched, const QKeyEvent *event)
{
    if (event->isAutoRepeat() && m_openingKey != 0 && event->key() == m_openingKey)
        return;
    if (watched == this || watched == m_header || watched == static_cast<QObject *>(window()->windowHandle()))
        m_closingKey = event;
    const QPointer<CustomShadowCombox> guard(this);
    const bool isOpenedByKey = m_openingKey != 0;
    closePopup();
    if (guard && isOpenedByKey) // not every platform gives the focus back by itself
        window()->activateWindow();
    if (guard)
        Q_EMIT signalPopWidHideWhenClickOtherPos();
}

// Hiding an active window deactivates it on the way, while it still counts as visible: that belongs to this
// closing and is not reported once more.
void CustomShadowCombox::closePopup()
{
    if (!m_popup)
        return;
    const QPointer<CustomShadowCombox> guard(this);
    m_closing = true;
    m_openingKey = 0;
    m_popup->hide();
    if (guard)
        m_closing = false;
}

void CustomShadowCombox::closePopupAndReport()
{
    const QPointer<CustomShadowCombox> guard(this);
    closePopup();
    if (guard)
        Q_EMIT signalPopWidHideWhenClickOtherPos();
}
