#pragma once

#include <QtCore/QVector>
#include <QtWidgets/QLayout>

/// Lays its items out in rows from left to right, as words of a text, each row as tall as its tallest item.
class FlowLayout : public QLayout
{
    Q_OBJECT

public:
    FlowLayout(int horizontalGap, int verticalGap, QWidget *parent = nullptr);
    ~FlowLayout() override;

    void addItem(QLayoutItem *item) override;
    int count() const override;
    QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;

    Qt::Orientations expandingDirections() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;
    QSize minimumSize() const override;
    QSize sizeHint() const override;
    void setGeometry(const QRect &rect) override;

private:
    /// Places the items into `rect` (only measures them when `place` is false) and returns the height they
    /// take.
    int arrange(const QRect &rect, bool place) const;
    int placeRow(const QVector<QLayoutItem *> &row, QPoint topLeft, bool place) const;

    QVector<QLayoutItem *> m_items;
    int m_horizontalGap;
    int m_verticalGap;
};
