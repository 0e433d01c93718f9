#include "customcomboxitem.h"

#include "accessiblenotification.h"
#include "clickdetection.h"
#include "looksheets.h"
#include "stylesheetpainting.h"

#include <QtGui/QMouseEvent>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

#include <utility>

namespace {

constexpr int kItemHeight = 48;
constexpr int kFontSize = 16;
constexpr int kIconSize = 20;
constexpr int kSmallItemHeight = 28;
constexpr int kSmallFontSize = 12;
constexpr int kSmallIconSize = 12;
constexpr int kRadius = 8;
constexpr int kSmallRadius = 3;
constexpr QSize kBadgeSize(56, 18);
constexpr QSize kChineseBadgeSize(67, 18);

// The two blanks in the second one are deliberate: clients compare and replace these texts.
constexpr char kHoveredRowStyle[] = "QWidget#%1{border-radius:%2px; background-color:@rowHover; }";
constexpr char kPlainRowStyle[] = "QWidget#%1{border-radius:%2px;  background-color:@rowGround; }";
// A gray text has 16 pixels whatever the row's font size: deliberate.
constexpr char kGrayTextStyle[] =
    "QLabel{ background:transparent; color: @grayText; font-size:16px; font-weight:Medium; }";
constexpr char kCheckedTextStyle[] =
    "QLabel{ background:transparent; color: @chosenText; font-size:%1px; font-weight:Medium; }";
constexpr char kPlainTextStyle[] =
    "QLabel{ background:transparent; color: @rowText; font-size:%1px; font-weight:Normal; }";
constexpr char kCheckMarkStyle[] = "QLabel{border-image:url(:/images/images/combox/checked.png);}";
constexpr char kBadgeStyle[] = "QLabel{border-image:url(:/images/images/combox/novip.png);}";
constexpr char kChineseBadgeStyle[] = "QLabel{border-image:url(:/images/images/combox/novip_zh.png);}";

// The text of a row takes what room there is: what it would like to have need not be measured.
class ElidedLabel : public LazilyStyled<QLabel>
{
public:
    using LazilyStyled::LazilyStyled;
    QSize sizeHint() const override { return {0, 0}; }
    QSize minimumSizeHint() const override { return {0, 0}; }
};

} // namespace

CustomComboxItem::CustomComboxItem(QString text, QWidget *parent)
    : CustomComboxItem(std::move(text), kFontSize, parent)
{
}

CustomComboxItem::CustomComboxItem(QString text, int fontSize, QWidget *parent)
    : CustomComboxItem(false, std::move(text), kItemHeight, fontSize, kIconSize, parent)
{
}

CustomComboxItem::CustomComboxItem(bool isSmall, QString text, QWidget *parent)
    : CustomComboxItem(isSmall, std::move(text), kSmallItemHeight, kSmallFontSize, kSmallIconSize, parent)
{
}

CustomComboxItem::CustomComboxItem(QString text, QWidget *parent, bool isGray, bool isChinese)
    : CustomComboxItem(std::move(text), parent)
{
    if (!isGray)
        return;
    m_badgeLabel = newImageLabel(isChinese ? kChineseBadgeSize : kBadgeSize);
    LookSheets::apply(m_badgeLabel, isChinese ? kChineseBadgeStyle : kBadgeStyle);
    setGrayState(true);
}

CustomComboxItem::CustomComboxItem(bool isSmall, QString text, int itemHeight, int fontSize, int iconSize,
                                   QWidget *parent)
    : LazilyStyled(parent)
    , m_small(isSmall)
    , m_text(std::move(text))
    , m_itemHeight(itemHeight)
    , m_fontSize(fontSize)
    , m_iconSize(iconSize)
{
    initUI();
}

CustomComboxItem *CustomComboxItem::newSmallRow(QString text, int itemHeight, QWidget *parent)
{
    return new CustomComboxItem(true, std::move(text), itemHeight, kSmallFontSize, kSmallIconSize, parent);
}

void CustomComboxItem::setText(const QString &text)
{
    if (text == m_text)
        return;
    m_text = text;
    m_textLabel->setText(m_text);
    elideText();
    AccessibleNotification::nameChanged(this);
}

bool CustomComboxItem::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_textLabel && event->type() == QEvent::Resize)
        elideText();
    return QWidget::eventFilter(watched, event);
}

void CustomComboxItem::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    m_press.begin();
    m_pressPos = event->pos();
}

void CustomComboxItem::click()
{
    if (m_gray)
        Q_EMIT signalClickGrayItem(m_index);
    else
        Q_EMIT signalClickItem(m_index);
}

void CustomComboxItem::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !m_press.end())
        return;
    m_releasePos = event->pos();
    if (!isClick(m_pressPos, m_releasePos))
        return;
    // Nothing may follow: a slot that clears the list destroys this row.
    click();
}

void CustomComboxItem::enterEvent(orvqt::EnterEvent *event)
{
    setHovered(true);
    QWidget::enterEvent(event);
}

void CustomComboxItem::leaveEvent(QEvent *event)
{
    setHovered(false);
    QWidget::leaveEvent(event);
}

void CustomComboxItem::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    updateStyle();
}

void CustomComboxItem::paintEvent(QPaintEvent *event)
{
    paintStyleSheet(this);
    QWidget::paintEvent(event);
}

void CustomComboxItem::initUI()
{
    setCursor(Qt::PointingHandCursor);
    setFixedHeight(m_itemHeight);
    setObjectName(QStringLiteral("CustomComboxItem"));

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 0, 6, 0);
    layout->setSpacing(0);

    m_textLabel = new ElidedLabel;
    m_textLabel->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_textLabel->setText(m_text);
    m_textLabel->installEventFilter(this);
    layout->addWidget(m_textLabel);

    layout->addItem(new QSpacerItem(6, 6, QSizePolicy::Fixed, QSizePolicy::Fixed));

    m_checkLabel = newImageLabel(QSize(m_iconSize, m_iconSize));
    LookSheets::apply(m_checkLabel, kCheckMarkStyle);
    updateStyle();
}

QLabel *CustomComboxItem::newImageLabel(QSize size)
{
    auto *label = new LazilyStyled<QLabel>;
    label->setFixedSize(size);
    layout()->addWidget(label);
    return label;
}

void CustomComboxItem::change(bool *flag, bool value)
{
    *flag = value;
    updateStyle();
}

void CustomComboxItem::updateStyle()
{
    applyRowStyle();
    applyTextStyle();
    updateLabels();
    elideText();
}

void CustomComboxItem::updateLabels()
{
    // The check mark of a gray row stays as it was.
    if (!m_gray)
        m_checkLabel->setVisible(m_checked);
    if (m_badgeLabel)
        m_badgeLabel->setVisible(m_gray);
}

void CustomComboxItem::elideText()
{
    if (!m_textLabel->testAttribute(Qt::WA_Resized)) // it has no width yet that its layout gave it
        return;
    m_textLabel->setText(m_textLabel->fontMetrics().elidedText(m_text, Qt::ElideRight, m_textLabel->width()));
}

void CustomComboxItem::applyRowStyle()
{
    LookSheets::apply(this, m_hovered ? kHoveredRowStyle : kPlainRowStyle,
                      {objectName(), QString::number(m_small ? kSmallRadius : kRadius)});
}

void CustomComboxItem::applyTextStyle()
{
    if (m_gray)
        LookSheets::apply(m_textLabel, kGrayTextStyle);
    else
        LookSheets::apply(m_textLabel, m_checked ? kCheckedTextStyle : kPlainTextStyle,
                          {QString::number(m_fontSize)});
}
