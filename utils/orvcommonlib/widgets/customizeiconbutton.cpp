#include "customizeiconbutton.h"

#include "accessiblenotification.h"
#include "clickdetection.h"
#include "focusmark.h"
#include "lazilystyled.h"
#include "looksheets.h"
#include "plainkey.h"
#include "pressgesture.h"
#include "statesheet.h"
#include "stylesheetpainting.h"

#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

#include <utility>

namespace {

constexpr QSize kDefaultIconSize(24, 24);
constexpr int kDefaultSpacing = 8;

constexpr char kIconStyle[] = "QLabel{background:transparent; border:none; image:url(%1);}";

// An empty sheet leaves the look alone.
void applySheet(QWidget *widget, const QString &sheet)
{
    if (!sheet.isEmpty())
        applyStateSheet(widget, sheet);
}

} // namespace

CustomizeIconButton::CustomizeIconButton(QWidget *parent)
    : CustomizeIconButton(kDefaultIconSize, QString(), kDefaultSpacing, parent, true)
{
}

CustomizeIconButton::CustomizeIconButton(QSize iconSize, QString text, int spacing, QWidget *parent,
                                         bool isCenter)
    : QWidget(parent)
    , m_iconSize(iconSize)
    , m_text(std::move(text))
    , m_spacing(spacing)
    , m_press(std::make_unique<PressGesture>(this, [this] { updateUI(); }))
{
    initControls(isCenter);
    connect(this, &QObject::objectNameChanged, this, &CustomizeIconButton::updateUI); // sheets select on it
}

CustomizeIconButton::~CustomizeIconButton() = default;

void CustomizeIconButton::setIconImage(QString normal, QString hover, QString pressed, QString disabled)
{
    m_iconImages = {normal, hover, pressed, disabled};
    m_hasIcons = true;
    updateUI();
}

void CustomizeIconButton::setTextStyle(QString normal, QString hover, QString pressed, QString disabled)
{
    m_textSheets = {normal, hover, pressed, disabled};
    updateUI();
}

void CustomizeIconButton::setOveralStyle(QString normal, QString hover, QString pressed, QString disabled)
{
    m_overallSheets = {normal, hover, pressed, disabled};
    updateUI();
}

void CustomizeIconButton::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    m_textLabel->setText(text);
    AccessibleNotification::nameChanged(this);
}

void CustomizeIconButton::setIconSize(const QSize &size)
{
    if (size == m_iconSize)
        return;
    m_iconSize = size;
    m_iconLabel->setFixedSize(size);
    for (QSpacerItem *room : qAsConst(m_room))
        room->changeSize(1, size.height(), QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_row->invalidate();
    update();
}

void CustomizeIconButton::setSpacing(int spacing)
{
    if (spacing == m_spacing)
        return;
    m_spacing = spacing;
    m_row->setSpacing(spacing);
    update();
}

void CustomizeIconButton::setCentered(bool centered)
{
    if (centered == isCentered())
        return;
    if (centered)
        addRoom();
    else
        removeRoom();
    update();
}

void CustomizeIconButton::setButtonEnabled(bool enabled)
{
    if (enabled != m_enabled)
        setEnabled(enabled);
}

void CustomizeIconButton::setEnabled(bool enabled)
{
    if (enabled != m_enabled) {
        m_enabled = enabled;
        AccessibleNotification::disabledChanged(this);
    }
    updateUI();
}

void CustomizeIconButton::enterEvent(orvqt::EnterEvent *event)
{
    if (m_enabled) {
        m_hovered = true;
        updateUI();
    }
    QWidget::enterEvent(event);
}

void CustomizeIconButton::leaveEvent(QEvent *event)
{
    if (m_enabled) {
        m_hovered = false;
        updateUI();
    }
    QWidget::leaveEvent(event);
}

void CustomizeIconButton::mousePressEvent(QMouseEvent *event)
{
    if (m_enabled && event->button() == Qt::LeftButton) {
        m_press->begin();
        m_pressPos = event->pos();
        updateUI();
    }
    QWidget::mousePressEvent(event);
}

void CustomizeIconButton::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_enabled && event->button() == Qt::LeftButton) {
        const bool wasPressed = m_press->end();
        updateUI();
        if (wasPressed && isClick(m_pressPos, event->pos())) {
            const QPointer<CustomizeIconButton> guard(this);
            Q_EMIT clicked();
            if (!guard)
                return;
        }
    }
    QWidget::mouseReleaseEvent(event);
}

void CustomizeIconButton::keyPressEvent(QKeyEvent *event)
{
    const int key = plainKey(this, event);
    if (!m_enabled || (key != Qt::Key_Space && key != Qt::Key_Return))
        QWidget::keyPressEvent(event);
    else if (!event->isAutoRepeat())
        Q_EMIT clicked();
}

bool CustomizeIconButton::event(QEvent *event)
{
    FocusMark::follow(this, event);
    return QWidget::event(event);
}

void CustomizeIconButton::paintEvent(QPaintEvent *event)
{
    paintStyleSheet(this);
    QWidget::paintEvent(event);
}

void CustomizeIconButton::initControls(bool isCenter)
{
    m_row = new QHBoxLayout(this);
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(m_spacing);

    m_iconLabel = new LazilyStyled<QLabel>(this);
    m_iconLabel->setFixedSize(m_iconSize);
    m_iconLabel->setProperty("state", QStringLiteral("normal"));
    m_row->addWidget(m_iconLabel, 0, Qt::AlignCenter);

    m_textLabel = new LazilyStyled<QLabel>(this);
    m_textLabel->setAlignment(Qt::AlignCenter);
    m_textLabel->setText(m_text);
    m_row->addWidget(m_textLabel, 0, Qt::AlignCenter);

    if (isCenter)
        addRoom();
}

void CustomizeIconButton::addRoom()
{
    for (const int index : {0, -1}) {
        auto *room = new QSpacerItem(1, m_iconSize.height(), QSizePolicy::Expanding, QSizePolicy::Fixed);
        m_row->insertItem(index, room);
        m_room.append(room);
    }
}

void CustomizeIconButton::removeRoom()
{
    for (QSpacerItem *room : qAsConst(m_room)) {
        m_row->removeItem(room);
        delete room;
    }
    m_room.clear();
}

void CustomizeIconButton::updateUI()
{
    const State now = state();
    applySheet(this, m_overallSheets[now]);
    if (m_hasIcons)
        LookSheets::apply(m_iconLabel, kIconStyle, {m_iconImages[now]});
    applySheet(m_textLabel, m_textSheets[now]);
    update();
}

CustomizeIconButton::State CustomizeIconButton::state() const
{
    if (!m_enabled)
        return Disabled;
    if (m_press->isUnderWay())
        return Pressed;
    return m_hovered ? Hover : Normal;
}
