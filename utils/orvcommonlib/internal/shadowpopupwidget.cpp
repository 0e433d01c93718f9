#include "shadowpopupwidget.h"

#include "accessiblenotification.h"
#include "customcomboxitem.h"
#include "looksheets.h"

#include <QtCore/QTimer>
#include <QtGui/QHideEvent>
#include <QtGui/QScreen>
#include <QtGui/QShowEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <memory>
#include <utility>

namespace {

constexpr int kContentMargin = 4;
constexpr int kNormalPadding = 16;

constexpr char kScrollAreaStyle[] = "QScrollArea{background:@listGround; border:none; border-radius:4px; }";
constexpr char kContentStyle[] = "QWidget{background: transparent; border:none; border-radius:4px; }";
constexpr char kSmallScrollAreaStyle[] =
    "QScrollArea#%1{background:@listGround; border:none; border-radius:%2px; }";
constexpr char kSmallContentStyle[] =
    "QWidget#%1{background: transparent; border:none; border-radius:%2px; }";
constexpr char kScrollBarStyle[] =
    "QScrollBar:vertical{border: none;background: transparent;width: 6px;margin: 0px 0 0px 0;}"
    "QScrollBar::handle:vertical{background: @listHandle;min-height: 30px;border-radius: 3px;border: none;}"
    "QScrollBar::add-line:vertical{border: 0px solid;background: none;height: 0px;"
    "subcontrol-position: bottom;subcontrol-origin: margin;}"
    "QScrollBar::sub-line:vertical{border: 0px solid;background: none;height: 0px;"
    "subcontrol-position: top;subcontrol-origin: margin;}"
    "QScrollBar::add-page:vertical, QScrollBar::sub-page:vertical{background: none;width: 0px;height: "
    "0px;}";

// The scroll area shows and hides what contains the bar; a bar that was hidden by itself stays so until it is
// shown by itself.
void hideUntilNeeded(QScrollBar *bar)
{
    LookSheets::apply(bar, kScrollBarStyle);
    bar->hide();
    QObject::connect(bar, &QScrollBar::rangeChanged, bar, [bar](int minimum, int maximum) {
        if (minimum < maximum)
            bar->show();
    });
}

void hideKeepingItsPlace(QWidget *row)
{
    QSizePolicy policy = row->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    row->setSizePolicy(policy);
    row->hide();
}

} // namespace

ShadowPopupWidget::ShadowPopupWidget(QString backgroundImage, int left, int top, int right, int bottom,
                                     int shadow, QWidget *parent)
    : BaseMoveDialogWithBackImage(std::move(backgroundImage), left + shadow, top + shadow, right + shadow,
                                  bottom + shadow, false, true, parent)
    , m_left(left)
    , m_top(top)
    , m_right(right)
    , m_bottom(bottom)
{
    setWindowFlags(windowFlags() | Qt::Tool);
    initUI();
}

ShadowPopupWidget::ShadowPopupWidget(QString backgroundImage, int margin, int rowHeight, QWidget *parent)
    : BaseMoveDialogWithBackImage(std::move(backgroundImage), 2 * margin, 2 * margin, 2 * margin, 2 * margin,
                                  false, true, parent)
    , m_left(margin)
    , m_top(margin)
    , m_right(margin)
    , m_bottom(margin)
    , m_rowHeight(rowHeight)
    , m_small(true)
{
    setWindowFlags(windowFlags() | Qt::Tool);
    initUI();
}

ShadowPopupWidget::~ShadowPopupWidget() = default;

void ShadowPopupWidget::addItem(CustomComboxItem *row)
{
    if (m_contentLayout && row)
        place(row, count());
}

void ShadowPopupWidget::insertItem(int index, const QString &text)
{
    const bool isBeforeCurrent = index <= m_currentIndex && isCurrentRow(m_currentIndex);
    place(m_small ? CustomComboxItem::newSmallRow(text, m_rowHeight, m_content)
                  : new CustomComboxItem(text, m_content),
          index);
    if (isBeforeCurrent)
        ++m_currentIndex;
}

void ShadowPopupWidget::removeItem(int index)
{
    if (!hasRow(index))
        return;
    const std::unique_ptr<CustomComboxItem> row(m_rows.at(index));
    forget(index, isCurrentRow(index));
    m_contentLayout->removeWidget(row.get());
}

void ShadowPopupWidget::forget(int index, bool isCurrent)
{
    if (isCurrent)
        m_currentIndex = -1;
    else if (index < m_currentIndex && isCurrentRow(m_currentIndex))
        --m_currentIndex;
    m_rows.removeAt(index);
    renumberFrom(index);
    updateHeight();
    showRowsThatFit();
    showRowsInViewSoon();
}

void ShadowPopupWidget::clear()
{
    qDeleteAll(std::exchange(m_rows, {}));
    updateHeight();
}

void ShadowPopupWidget::reset()
{
    clear();
    m_currentIndex = -1;
}

void ShadowPopupWidget::setCurrentIndex(int index)
{
    if (!hasRow(index))
        return;
    if (hasRow(m_currentIndex))
        m_rows.at(m_currentIndex)->setChecked(false);
    m_rows.at(index)->setChecked(true);
    m_currentIndex = index;
}

QString ShadowPopupWidget::currentText() const
{
    return hasRow(m_currentIndex) ? m_rows.at(m_currentIndex)->text() : QString();
}

int ShadowPopupWidget::findChoosable(int row, int step) const
{
    if (step < 0)
        row = qMin(row, count() - 1);
    while (hasRow(row) && m_rows.at(row)->isGray())
        row += step;
    return hasRow(row) ? row : -1;
}

bool ShadowPopupWidget::isCurrentRow(int index) const
{
    return index == m_currentIndex && hasRow(index) && m_rows.at(index)->isChecked();
}

QString ShadowPopupWidget::itemText(int index) const
{
    return hasRow(index) ? m_rows.at(index)->text() : QString();
}

void ShadowPopupWidget::setItemText(int index, const QString &text)
{
    if (hasRow(index))
        m_rows.at(index)->setText(text);
}

QVariant ShadowPopupWidget::itemData(int index) const
{
    return hasRow(index) ? m_rows.at(index)->data() : QVariant();
}

void ShadowPopupWidget::setItemData(int index, const QVariant &value)
{
    if (hasRow(index))
        m_rows.at(index)->setData(value);
}

void ShadowPopupWidget::setItemGrayState(QVector<bool> &states)
{
    if (count() < 1 || count() != states.size())
        return;
    for (int index = 0; index < count(); ++index) {
        m_rows.at(index)->setGrayState(states.at(index));
        m_rows.at(index)->update();
    }
}

void ShadowPopupWidget::updateHeight()
{
    const int padding = m_small ? 2 * m_left : kNormalPadding;
    const int listHeight = padding + qMin(count(), m_maxVisibleRows) * m_rowHeight;
    m_scrollArea->setFixedHeight(listHeight);
    setFixedHeight(listHeight + m_top + m_bottom);
}

// A row that goes away by itself is not asked any more: it may be half destroyed.
bool ShadowPopupWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_content && event->type() == QEvent::ChildRemoved) {
        const QObject *child = static_cast<QChildEvent *>(event)->child();
        const auto isChild = [child](const CustomComboxItem *row) {
            return row == child;
        };
        const auto row = std::find_if(m_rows.cbegin(), m_rows.cend(), isChild);
        if (row != m_rows.cend()) {
            const int index = int(row - m_rows.cbegin());
            disconnect(child, nullptr, this, nullptr);
            forget(index, index == m_currentIndex);
        }
    }
    return BaseMoveDialogWithBackImage::eventFilter(watched, event);
}

void ShadowPopupWidget::showEvent(QShowEvent *event)
{
    BaseMoveDialogWithBackImage::showEvent(event);
    if (!event->spontaneous()) {
        watchScreen();
        tellOpenOrClosed();
    }
    showRowsInViewSoon();
}

void ShadowPopupWidget::resizeEvent(QResizeEvent *event)
{
    if (m_scrollArea && m_content) {
        m_scrollArea->setFixedWidth(width() - m_left - m_right);
        m_content->setFixedWidth(m_scrollArea->width());
        for (int row = 0; row < count(); ++row)
            fixWidth(m_rows.at(row));
    }
    BaseMoveDialogWithBackImage::resizeEvent(event);
}

void ShadowPopupWidget::hideEvent(QHideEvent *event)
{
    BaseMoveDialogWithBackImage::hideEvent(event);
    // The pointer is gone without a leave event: no row stays highlighted for the next opening.
    for (CustomComboxItem *row : qAsConst(m_rows)) {
        if (row->isHovered())
            row->setHovered(false);
    }
    if (!event->spontaneous()) {
        m_screenWatch.reset();
        tellOpenOrClosed();
    }
}

void ShadowPopupWidget::tellOpenOrClosed()
{
    if (QWidget *combo = parentWidget())
        AccessibleNotification::expandedChanged(combo);
}

// Told later: a slot may destroy windows, which Qt is going through while it unplugs a screen.
void ShadowPopupWidget::watchScreen()
{
    const QWindow *window = parentWidget() ? parentWidget()->window()->windowHandle() : nullptr;
    if (!window)
        return;
    m_screenWatch = std::make_unique<QTimer>();
    m_screenWatch->setSingleShot(true);
    connect(m_screenWatch.get(), &QTimer::timeout, this, &ShadowPopupWidget::screenChanged);
    const auto start = qOverload<>(&QTimer::start);
    connect(window, &QWindow::screenChanged, m_screenWatch.get(), start);
    connect(window->screen(), &QScreen::geometryChanged, m_screenWatch.get(), start);
    connect(window->screen(), &QScreen::logicalDotsPerInchChanged, m_screenWatch.get(), start);
}

void ShadowPopupWidget::place(CustomComboxItem *row, int index)
{
    connect(row, &CustomComboxItem::signalClickItem, this, &ShadowPopupWidget::currentIndexChanged);
    connect(row, &CustomComboxItem::signalClickGrayItem, this, &ShadowPopupWidget::currentGrayIndexChanged);
    if (index > m_maxVisibleRows)
        hideKeepingItsPlace(row);
    m_contentLayout->insertWidget(index, row);
    m_rows.insert(index, row);
    renumberFrom(index);
    fixWidth(row);
    updateHeight();
    showRowsInViewSoon();
}

void ShadowPopupWidget::renumberFrom(int index)
{
    for (int row = index; row < count(); ++row)
        m_rows.at(row)->setIndex(row);
}

// Rows that were far down when they came may be among the first ones now.
void ShadowPopupWidget::showRowsThatFit()
{
    for (int row = 0; row < qMin(count(), m_maxVisibleRows + 1); ++row) {
        if (m_rows.at(row)->isHidden())
            m_rows.at(row)->show();
    }
}

// All rows are laid out anew whenever one of them changes its looks, unless that one's size is fixed.
void ShadowPopupWidget::fixWidth(CustomComboxItem *row) const
{
    const QMargins margins = m_contentLayout->contentsMargins();
    row->setFixedWidth(qMax(0, m_content->width() - margins.left() - margins.right()));
}

// Rows that nobody has scrolled to yet stay hidden: showing a row makes Qt parse its style sheets.
void ShadowPopupWidget::showRowsInView()
{
    if (!isVisible())
        return;
    const QRect view = m_scrollArea->viewport()->rect().translated(-m_content->pos());
    const auto isAbove = [](const CustomComboxItem *row, int y) {
        return row->geometry().bottom() < y;
    };
    const auto first = std::lower_bound(m_rows.cbegin(), m_rows.cend(), view.top(), isAbove);
    for (int row = int(first - m_rows.cbegin()); row < count() && m_rows.at(row)->y() <= view.bottom(); ++row)
        m_rows.at(row)->show();
}

// Soon: when the rows have been laid out.
void ShadowPopupWidget::showRowsInViewSoon()
{
    if (count() > m_maxVisibleRows && isVisible())
        QMetaObject::invokeMethod(this, &ShadowPopupWidget::showRowsInView, Qt::QueuedConnection);
}

void ShadowPopupWidget::initUI()
{
    buildList(m_small ? m_left : kContentMargin);
    if (!m_small) {
        LookSheets::apply(m_scrollArea, kScrollAreaStyle);
        LookSheets::apply(m_content, kContentStyle);
        return;
    }
    const QString radius = QString::number(m_left);
    m_scrollArea->setObjectName(QStringLiteral("ScrollArea"));
    LookSheets::apply(m_scrollArea, kSmallScrollAreaStyle, {m_scrollArea->objectName(), radius});
    m_content->setObjectName(QStringLiteral("ScrollContentWidget"));
    LookSheets::apply(m_content, kSmallContentStyle, {m_content->objectName(), radius});
}

void ShadowPopupWidget::buildList(int contentMargin)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(m_left, m_top, m_right, m_bottom);
    layout->setSpacing(0);

    m_scrollArea = new QScrollArea(this);
    m_scrollArea->setWidgetResizable(true);
    m_scrollArea->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scrollArea->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    hideUntilNeeded(m_scrollArea->verticalScrollBar());
    m_scrollArea->setFocusPolicy(Qt::NoFocus);
    connect(m_scrollArea->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &ShadowPopupWidget::showRowsInView);

    m_content = new QWidget;
    m_content->installEventFilter(this);
    m_contentLayout = new QVBoxLayout(m_content);
    m_contentLayout->setContentsMargins(contentMargin, contentMargin, contentMargin, contentMargin);
    m_contentLayout->setSpacing(0);

    m_scrollArea->setWidget(m_content);
    layout->addWidget(m_scrollArea);
}
