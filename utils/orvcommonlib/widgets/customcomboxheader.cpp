#include "customcomboxheader.h"

#include "accessiblenotification.h"
#include "clickdetection.h"
#include "headertext.h"
#include "looksheets.h"
#include "pressgesture.h"
#include "stylesheetpainting.h"

#include <QtCore/QMargins>
#include <QtCore/QPointer>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

namespace {

constexpr QSize kHeaderSize(260, 48);
constexpr QMargins kMargins(16, 0, 14, 0);
constexpr QMargins kSmallMargins(8, 4, 4, 4);
constexpr QSize kIconSize(20, 20);
constexpr QSize kSmallIconSize(16, 16);

constexpr char kNormalTextStyle[] =
    "QLabel{background:transparent; color: @headerText; font-size:16px; font-weight:Normal;}";
constexpr char kSmallTextStyle[] =
    "QLabel{background:transparent; color: @headerText; font-size:14px; font-weight:Normal;}";
constexpr char kUpArrowStyle[] = "QLabel{border-image:url(:/images/images/combox/up.png);}";
constexpr char kNormalDownArrowStyle[] = "QLabel{border-image:url(:/images/images/combox/down.png);}";
constexpr char kSmallDownArrowStyle[] =
    "QLabel{background:transparent; image:url(:/graffiti/resources/graffiti/fontbox/downarrow.svg);}";

} // namespace

CustomComboxHeader::CustomComboxHeader(QWidget *parent)
    : CustomComboxHeader(false, parent)
{
}

CustomComboxHeader::CustomComboxHeader(bool isSmallStyle, QWidget *parent)
    : QWidget(parent)
    , m_smallStyle(isSmallStyle)
    , m_press(std::make_unique<PressGesture>(this))
{
    initUI();
}

CustomComboxHeader::~CustomComboxHeader() = default;

QString CustomComboxHeader::text() const
{
    return m_textLabel ? m_textLabel->fullText() : QString();
}

void CustomComboxHeader::setText(QString text)
{
    if (!m_textLabel)
        return;
    const bool isAnother = text != m_textLabel->fullText();
    m_textLabel->setFullText(text);
    if (isAnother)
        AccessibleNotification::nameChanged(this);
}

void CustomComboxHeader::setIconState(bool isUp)
{
    if (m_iconLabel)
        LookSheets::apply(m_iconLabel, isUp ? kUpArrowStyle : downArrowStyle());
}

void CustomComboxHeader::setCustomStyle(QString styleTemplate)
{
    setStyleSheet(styleTemplate.arg(objectName()));
    update();
}

void CustomComboxHeader::setCustomTextStyle(QString style)
{
    if (!m_textLabel)
        return;
    LookSheets::forget(m_textLabel);
    m_textLabel->setStyleSheet(style);
}

void CustomComboxHeader::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && !m_press->isUnderWay()) {
        m_press->begin();
        m_pressPos = event->pos();
    }
    QWidget::mousePressEvent(event);
}

void CustomComboxHeader::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_press->end()) {
        m_releasePos = event->pos();
        if (isClick(m_pressPos, m_releasePos)) {
            const QPointer<CustomComboxHeader> guard(this);
            Q_EMIT signalClicked();
            if (!guard)
                return;
        }
    }
    QWidget::mouseReleaseEvent(event);
}

void CustomComboxHeader::enterEvent(orvqt::EnterEvent *event)
{
    setCursor(Qt::PointingHandCursor);
    QWidget::enterEvent(event);
}

void CustomComboxHeader::leaveEvent(QEvent *event)
{
    setCursor(Qt::ArrowCursor);
    QWidget::leaveEvent(event);
}

void CustomComboxHeader::paintEvent(QPaintEvent *event)
{
    paintStyleSheet(this);
    QWidget::paintEvent(event);
}

void CustomComboxHeader::initUI()
{
    setObjectName(QStringLiteral("CustomComboxHeader"));
    if (!m_smallStyle)
        setFixedSize(kHeaderSize);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(m_smallStyle ? kSmallMargins : kMargins);
    layout->setSpacing(m_smallStyle ? 4 : 16);

    m_textLabel = new HeaderText(this);
    m_textLabel->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    LookSheets::apply(m_textLabel, m_smallStyle ? kSmallTextStyle : kNormalTextStyle);
    layout->addWidget(m_textLabel);

    layout->addItem(new QSpacerItem(1, 1, QSizePolicy::Expanding, QSizePolicy::Fixed));

    m_iconLabel = new QLabel(this);
    m_iconLabel->setFixedSize(m_smallStyle ? kSmallIconSize : kIconSize);
    LookSheets::apply(m_iconLabel, downArrowStyle());
    layout->addWidget(m_iconLabel);
}

const char *CustomComboxHeader::downArrowStyle() const
{
    return m_smallStyle ? kSmallDownArrowStyle : kNormalDownArrowStyle;
}
