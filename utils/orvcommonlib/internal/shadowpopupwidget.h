#pragma once

#include "basemovedialogwithbackimage.h"

#include <QtCore/QList>
#include <QtCore/QVariant>
#include <QtCore/QVector>

#include <memory>

class CustomComboxItem;
class QScrollArea;
class QTimer;
class QVBoxLayout;

/// The list of the shadow combo box: a frameless tool window painted from a nine-patch shadow image, with a
/// column of rows that scrolls beyond ten of them.
class ShadowPopupWidget : public BaseMoveDialogWithBackImage
{
    Q_OBJECT

public:
    /// The normal look. The four margins lie inside the shadow, which is `shadow` wide on each side.
    ShadowPopupWidget(QString backgroundImage, int left, int top, int right, int bottom, int shadow,
                      QWidget *parent);
    /// The small look, with rows of `rowHeight`.
    ShadowPopupWidget(QString backgroundImage, int margin, int rowHeight, QWidget *parent);
    ~ShadowPopupWidget() override;

    /// The parent that rows are best constructed with: a row that is moved there afterwards has its style
    /// sheets parsed on the way.
    QWidget *rowParent() const { return m_content; }
    /// Appends the row, which then belongs to the list: destroyed by somebody else or moved away it is as if removed.
    void addItem(CustomComboxItem *row);
    /// Puts a new row of the list's own look before the one at `index`, which lies within 0 to count(). The
    /// current index goes with its row.
    void insertItem(int index, const QString &text);
    /// Deletes a row. The current index goes with its row, or becomes -1 with the current row.
    void removeItem(int index);
    /// Deletes all rows. The current index is deliberately kept.
    void clear();
    /// Deletes all rows; none is current any more.
    void reset();
    int count() const { return m_rows.size(); }
    bool hasItems() const { return count() > 0; }
    const QList<CustomComboxItem *> &rows() const { return m_rows; }

    int currentIndex() const { return m_currentIndex; }
    /// An index out of range is ignored.
    void setCurrentIndex(int index);
    QString currentText() const;
    /// The first row from `row` on, in steps of 1 or -1, that is not gray; -1 if there is none.
    int findChoosable(int row, int step) const;
    /// Whether the row has been made the current one. After clear() none has, whatever the index says.
    bool isCurrentRow(int index) const;

    QString itemText(int index) const;
    void setItemText(int index, const QString &text);
    QVariant itemData(int index) const;
    void setItemData(int index, const QVariant &value);
    /// One state for each row; ignored when the numbers differ.
    void setItemGrayState(QVector<bool> &states);

    /// Fits the height to the rows.
    void updateHeight();

Q_SIGNALS:
    void currentIndexChanged(int index);
    void currentGrayIndexChanged(int index);
    /// The window that the open list belongs to has come to another screen, or its screen has another ratio or
    /// place: the list does not stand at its header any more. Told by the event loop, once for each opening.
    void screenChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    Q_DISABLE_COPY(ShadowPopupWidget)

    void initUI();
    void tellOpenOrClosed();
    void watchScreen();
    void buildList(int contentMargin);
    void place(CustomComboxItem *row, int index);
    void forget(int index, bool isCurrent);
    void renumberFrom(int index);
    void showRowsThatFit();
    void fixWidth(CustomComboxItem *row) const;
    void showRowsInView();
    void showRowsInViewSoon();
    bool hasRow(int index) const { return index >= 0 && index < count(); }

    int m_left;
    int m_top;
    int m_right;
    int m_bottom;
    QScrollArea *m_scrollArea = nullptr;
    QWidget *m_content = nullptr;
    QVBoxLayout *m_contentLayout = nullptr;
    int m_currentIndex = -1;
    QList<CustomComboxItem *> m_rows;
    int m_maxVisibleRows = 10;
    int m_rowHeight = 48;
    bool m_small = false;
    std::unique_ptr<QTimer> m_screenWatch; // while the list is open
};
