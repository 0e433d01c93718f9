#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QEvent>
#include <QtCore/QPoint>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtCore/QVector>
#include <QtWidgets/QWidget>

class CustomComboxHeader;
class ShadowPopupWidget;

/// A drop-down selector with a list in a shadowed window of its own, in a normal look (48 high) and a small
/// one.
///
/// Rows can be gray, as not available: a click on one is reported separately and selects nothing. The list
/// opens below the header, or above it where the screen has no room, and the arrow tells which; it closes on
/// a click on a row or the header, on any key, on a press elsewhere and when its window is deactivated.
///
/// Signals:
/// - a click on another row: the row becomes current, `currentIndexChanged()`, then the list hides;
/// - a click on the current row: the list hides, nothing is emitted;
/// - a click on a gray row: the list hides, then `currentGrayIndexChanged()`;
/// - a press outside, a deactivation, a key press, `hidePopup()`, or a combo box or window that is hidden or
///   closed: the list hides, then `signalPopWidHideWhenClickOtherPos()` once;
/// - a click on the header while the list is open: the list hides, nothing is emitted;
/// - `setCurrentIndex()` emits nothing.
///
/// The combo box watches the application's events through a filter on the application object. It may be
/// destroyed at any time, also by what is connected to its signals. GUI thread only.
class ORVCOMMONLIB_EXPORT CustomShadowCombox : public QWidget
{
    Q_OBJECT

public:
    /// The normal look.
    explicit CustomShadowCombox(QWidget *parent);
    /// The small look when `isSmallStyle`, with rows 28 high.
    CustomShadowCombox(bool isSmallStyle, QWidget *parent);
    /// The small look when `isSmallStyle`, with rows of `itemHeight`; rows of the normal look are always 48
    /// high.
    CustomShadowCombox(bool isSmallStyle, int itemHeight, QWidget *parent);
    ~CustomShadowCombox() override;

    /// Appends a normal row.
    void addItem(QString text);
    /// Appends a normal row that may start gray, with the badge in Chinese or the other one.
    void addItem(QString text, bool isGray, bool isChinese);
    /// Appends a normal row with the given text size in pixels.
    void addItem(QString text, int fontSize);
    /// Appends a row of small corners with the given measures in pixels.
    void addItem(QString text, int itemHeight, int fontSize, int iconSize);
    /// Appends a small row: 28 high with a text of 12 pixels.
    void addSmallStyleItem(QString text);

    /// Deletes all rows. The current index and the header's text are deliberately left as they were.
    void clear();
    int count() const;

    /// The selected row, -1 before the first selection.
    int currentIndex();
    /// Selects a row and shows its text in the header; an index out of range changes nothing. Emits nothing.
    void setCurrentIndex(int index);

    /// The row's user data; an invalid QVariant for an index out of range.
    QVariant itemData(int index);
    void setItemData(int index, const QVariant &value);

    /// Makes each row gray or not; ignored unless there is one state for each row.
    void setItemGrayState(QVector<bool> &states);

    /// "%1" in the template stands for the header's object name.
    void setHeaderStyle(QString styleTemplate);
    void setHeaderTextStyle(QString style);

    /// True while the list is open, and while the combo box's window is the active one.
    bool isActive();

    /// Closes the list, and reports that even when it was closed already.
    void hidePopup();

Q_SIGNALS:
    void currentIndexChanged(int index);
    void currentGrayIndexChanged(int index);
    void signalPopWidHideWhenClickOtherPos();
    /// A mouse move was delivered anywhere in the application while the list is open and the pointer, at the
    /// global point `gPos`, is outside it.
    void signalMouseMoveLeavePopup(QPoint gPos);
    void signalAddOneLiveOption();
    void signalDeleteOneLiveOption(int index);

protected Q_SLOTS:
    void slotHeaderClicked();
    void slotCurrentIndexChanged(int index);
    void slotCurrentGrayIndexChanged(int index);
    void slotAddOneLiveOption();
    void slotDeleteOneLiveOption(int index);

protected:
    void showPopup();

    void resizeEvent(QResizeEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(CustomShadowCombox)

    void init();
    void initUI();
    void initSmallStyleUI();
    void initLayout();
    void placeHeader(CustomComboxHeader *header);
    void connectPopup(ShadowPopupWidget *popup);

    bool isPopupOpen() const;
    bool isOutside(QPoint globalPos) const;
    bool isHiddenWith(const QWidget *hidden) const;
    void reportHiding();
    void handleWhileOpen(const QObject *watched, QEvent::Type type);
    void closePopup();
    void closePopupAndReport();

    QPointer<CustomComboxHeader> m_header;
    QPointer<ShadowPopupWidget> m_popup;
    bool m_smallStyle = false;
    qint32 m_rowHeight = 0;
    bool m_closing = false;
    bool m_reportIsDue = false; // of a closing because the combo box was hidden
    int m_eventDepth = 0;
};
