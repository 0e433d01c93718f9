#include "flowlayout.h"

#include <algorithm>

FlowLayout::FlowLayout(int horizontalGap, int verticalGap, QWidget *parent)
    : QLayout(parent)
    , m_horizontalGap(horizontalGap)
    , m_verticalGap(verticalGap)
{
}

FlowLayout::~FlowLayout()
{
    qDeleteAll(m_items);
}

void FlowLayout::addItem(QLayoutItem *item)
{
    m_items.append(item);
}

int FlowLayout::count() const
{
    return m_items.size();
}

QLayoutItem *FlowLayout::itemAt(int index) const
{
    return m_items.value(index);
}

QLayoutItem *FlowLayout::takeAt(int index)
{
    return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
}

Qt::Orientations FlowLayout::expandingDirections() const
{
    return {};
}

bool FlowLayout::hasHeightForWidth() const
{
    return true;
}

int FlowLayout::heightForWidth(int width) const
{
    return arrange(QRect(0, 0, width, 0), false);
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const QLayoutItem *item : m_items)
        size = size.expandedTo(item->minimumSize());
    const QMargins margins = contentsMargins();
    return size + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

QSize FlowLayout::sizeHint() const
{
    return minimumSize();
}

void FlowLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    arrange(rect, true);
}

int FlowLayout::arrange(const QRect &rect, bool place) const
{
    const QRect area = rect.marginsRemoved(contentsMargins());
    QVector<QLayoutItem *> row;
    int x = area.x();
    int y = area.y();
    for (QLayoutItem *item : m_items) {
        if (item->isEmpty())
            continue;
        const int width = item->sizeHint().width();
        if (!row.isEmpty() && x + width > area.x() + area.width()) {
            y += placeRow(row, QPoint(area.x(), y), place) + m_verticalGap;
            row.clear();
            x = area.x();
        }
        row.append(item);
        x += width + m_horizontalGap;
    }
    y += placeRow(row, QPoint(area.x(), y), place);
    return y - rect.y() + contentsMargins().bottom();
}

int FlowLayout::placeRow(const QVector<QLayoutItem *> &row, QPoint topLeft, bool place) const
{
    int height = 0;
    for (const QLayoutItem *item : row)
        height = std::max(height, item->sizeHint().height());
    for (QLayoutItem *item : row) {
        const QSize size = item->sizeHint();
        // Captions stand below their examples: what stands on the bottom of the row keeps them in line.
        if (place)
            item->setGeometry(QRect(topLeft + QPoint(0, height - size.height()), size));
        topLeft.rx() += size.width() + m_horizontalGap;
    }
    return height;
}
