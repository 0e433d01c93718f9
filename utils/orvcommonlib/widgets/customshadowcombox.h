#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QEvent>
#include <QtCore/QPoint>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>
#include <QtCore/QVector>
#include <QtWidgets/QWidget>

class CustomComboxHeader;
class ShadowPopupWidget;

/// A drop-down selector with a list in a shadowed window of its own, in a normal look (48 high) and a small
/// one.
///
/// \image html popup-customshadowcombox-gray.png
///
/// Rows can be gray, as not available: a click on one is reported separately and selects nothing. The list
/// opens below the header, or above it where the screen has no room, and the arrow tells which; it closes on
/// a click on a row or the header, on any key, on a press elsewhere, with the combo box or its window, when
/// the window comes to another screen or its screen changes in ratio, size or place, and when the list is
/// deactivated while the pointer is outside combo box and list.
///
/// Once it has a focus policy, which it has not at first, the closed combo box answers keys: Space, Return, Enter, F4
/// and Alt+Down open the list, Up, Down, Home and End choose the next row that is not gray, as a click on it. It then
/// shows that it has the focus if that came from the keyboard.
///
/// Signals:
/// - a click on another row: the row becomes current, `currentIndexChanged()`, then the list hides;
/// - a click on the current row: the list hides, nothing is emitted;
/// - a click on a gray row: the list hides, then `currentGrayIndexChanged()`;
/// - a press outside, a deactivation with the pointer outside, a key press, `hidePopup()`, a change of screen,
///   or a combo box or window that is hidden or closed: the list hides, then
///   `signalPopWidHideWhenClickOtherPos()` once;
/// - a click on the header while the list is open: the list hides, nothing is emitted;
/// - `setCurrentIndex()` emits nothing, nor does a change of the rows.
///
/// Rows may be changed, inserted and removed while the list is open, in a slot of these signals too: it stays at
/// the header, also when its last row has gone.
///
/// The combo box watches the application's events through a filter on the application object. It may be
/// destroyed at any time, also by what is connected to its signals. GUI thread only.
///
/// The list is a translucent window of its own: without a compositing manager on X11 its shadow is a black frame.
///
/// \par When to use it
/// For a short list of texts in the library's look, with rows that are not available. A model, icons, an editor, or
/// hundreds of rows are for a QComboBox.
///
/// \par Example
/// \snippet comboboxes.cpp CustomShadowCombox
///
/// \since 1.0
/// \sa customcombox, QComboBox, \ref guide_combo_box, \ref guide_logging
/// \ingroup combos
class ORVCOMMONLIB_EXPORT CustomShadowCombox : public QWidget
{
    Q_OBJECT
    /// The number of rows.
    Q_PROPERTY(int count READ count)
    /// The texts of all rows. Stands before the index, which form code then writes to rows that are there.
    Q_PROPERTY(QStringList items READ items WRITE setItems)
    /// The selected row. An index that is written to this property, not by setCurrentIndex(), while there are
    /// no rows is selected when #items is written.
    Q_PROPERTY(int currentIndex READ currentIndex WRITE writeCurrentIndex USER true)
    /// The header's text.
    Q_PROPERTY(QString currentText READ currentText)

public:
    /// The normal look.
    /// \param parent the owner; may be null
    explicit CustomShadowCombox(QWidget *parent = nullptr);
    /// \param isSmallStyle the small look, with rows 28 high; otherwise the normal one
    /// \param parent       the owner; may be null
    CustomShadowCombox(bool isSmallStyle, QWidget *parent);
    /// \param isSmallStyle the small look; otherwise the normal one
    /// \param itemHeight   the height of the rows of the small look, by which its list is measured; rows of
    ///                     the normal look are always counted as 48 high
    /// \param parent       the owner; may be null
    CustomShadowCombox(bool isSmallStyle, int itemHeight, QWidget *parent);
    ~CustomShadowCombox() override;

    /// Appends a normal row, and logs that in four lines.
    /// \param text the row's text; one that is too long is shown elided
    void addItem(QString text);
    /// Appends a normal row that may start gray.
    /// \param text      the row's text
    /// \param isGray    whether it starts gray, with a badge
    /// \param isChinese the badge in Chinese, or the other one
    void addItem(QString text, bool isGray, bool isChinese);
    /// Appends a normal row.
    /// \param text     the row's text
    /// \param fontSize the size of the text in pixels
    void addItem(QString text, int fontSize);
    /// Appends a row of small corners.
    /// \param text       the row's text
    /// \param itemHeight the height of the row, which the list's height does not follow
    /// \param fontSize   the size of the text in pixels
    /// \param iconSize   width and height of the check mark
    void addItem(QString text, int itemHeight, int fontSize, int iconSize);
    /// Appends a small row: 28 high with a text of 12 pixels.
    /// \param text the row's text
    void addSmallStyleItem(QString text);

    /// \return the texts of all rows
    QStringList items() const;
    /// Replaces all rows with plain ones of the combo box's style, those of the small look in the height that the
    /// combo box was made with. The selection stays at its index; where the new rows do not reach that far
    /// there is none any more, and the header is empty. Emits and logs nothing.
    /// \param texts the texts of the new rows
    void setItems(const QStringList &texts);

    /// Inserts a plain row in the combo box's own look, in the small look with the row height that the
    /// combo box was constructed with. The current index goes with its row. Logs and emits nothing.
    /// \param index the row before which it comes; one outside 0 to count() is brought into that range
    /// \param text  the row's text; one that is too long is shown elided
    void insertItem(int index, const QString &text);
    /// Deletes a row. The current index goes with its row; when that row itself is removed the index is -1
    /// and the header is empty. Emits nothing.
    /// \param index the row; one out of range is ignored
    void removeItem(int index);

    /// Deletes all rows. The current index and the header's text are deliberately left as they were; but no
    /// row counts as the current one until setCurrentIndex() or a click chooses one, so that insertItem(),
    /// removeItem() and setItemText() leave index and header alone as well. A click on the row that has come to the
    /// place of the old index therefore tells nothing: to start afresh call reset().
    void clear();
    /// Deletes all rows and forgets the selection: the index is -1 and the header empty. Emits nothing.
    void reset();
    /// \return the number of rows
    int count() const;

    /// \return the selected row, -1 before the first selection; after clear() still that of before
    int currentIndex();
    /// Selects a row and logs that in two lines. Emits nothing.
    ///
    /// The header then shows the text of the row at currentIndex(). An index out of range therefore changes
    /// nothing, except after clear(): there is no row at the old index then, and the header becomes empty
    /// (or, when rows have been added meanwhile, shows the one that has come to that place).
    /// \param index the row; one out of range leaves the current index as it is
    void setCurrentIndex(int index);
    /// \return the header's text: that of the current row, also after clear()
    QString currentText() const;

    /// \param index the row
    /// \return the row's full text, also where it is shown elided; empty for an index out of range
    QString itemText(int index) const;
    /// Changes a row's text, and the header's when it is the current row. Emits nothing.
    /// \param index the row; one out of range is ignored
    /// \param text  the new text
    void setItemText(int index, const QString &text);
    /// \param text what is looked for, in the same case
    /// \return the first row whose full text this is, -1 when there is none
    int findText(const QString &text) const;
    /// \param value what is looked for
    /// \return the first row whose data equal it, -1 when there is none
    int findData(const QVariant &value) const;

    /// \param index the row
    /// \return what setItemData() gave it; an invalid QVariant for an index out of range
    QVariant itemData(int index);
    /// Keeps something of the client's with a row.
    /// \param index the row; one out of range is ignored
    /// \param value what is kept
    void setItemData(int index, const QVariant &value);

    /// Makes each row gray or not.
    /// \param states one for each row, otherwise nothing happens; not changed
    void setItemGrayState(QVector<bool> &states);

    /// Sets the header's style sheet.
    /// \param styleTemplate the sheet; "%1" in it stands for the header's object name
    void setHeaderStyle(QString styleTemplate);
    /// Sets the style sheet of the header's text.
    /// \param style the sheet
    void setHeaderTextStyle(QString style);

    /// \return true while the list is open, and while the combo box's window is the active one: as long as the user is
    ///         at work here. Whether the list is open it does not tell; nothing does, but the signals that it has closed.
    bool isActive();

    /// Closes the list, and reports that even when it was closed already.
    void hidePopup();

Q_SIGNALS:
    /// The user has chosen another row. The list is still open.
    /// \param index the row, which is current already
    void currentIndexChanged(int index);
    /// The user has clicked a gray row. The list is closed.
    /// \param index the row, which has not become current
    void currentGrayIndexChanged(int index);
    /// The list has closed without a choice.
    void signalPopWidHideWhenClickOtherPos();
    /// A mouse move was delivered anywhere in the application while the list is open and the pointer is
    /// outside it.
    /// \param gPos where the pointer is, in global coordinates
    void signalMouseMoveLeavePopup(QPoint gPos);
    /// The user wants one more row. The list itself has no button for that: an application that has one connects it to
    /// slotAddOneLiveOption(), in a subclass or by the slot's name, as it is protected, and this signal to what adds the
    /// row. Nothing else emits it.
    void signalAddOneLiveOption();
    /// The user wants to be rid of a row: the same for slotDeleteOneLiveOption(). The row stays until removeItem() is
    /// called.
    /// \param index the slot's argument
    void signalDeleteOneLiveOption(int index);

protected Q_SLOTS:
    /// Opens the list, or closes it where it is open.
    void slotHeaderClicked();
    /// What a click on a row does: makes it current and tells, where it was not, then closes the list.
    /// \param index the row
    void slotCurrentIndexChanged(int index);
    /// What a click on a gray row does: closes the list, then tells.
    /// \param index the row
    void slotCurrentGrayIndexChanged(int index);
    /// Emits signalAddOneLiveOption(), and does nothing else.
    void slotAddOneLiveOption();
    /// Emits signalDeleteOneLiveOption(), and does nothing else.
    /// \param index what is passed on, whether there is such a row or not
    void slotDeleteOneLiveOption(int index);

protected:
    /// Opens the list at the header, below it or above.
    void showPopup();

    bool event(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(CustomShadowCombox)

    void init();
    void showText(const QString &text);
    void keepListAtHeader(const QRect &before);
    void writeCurrentIndex(int index);

    bool isPopupOpen() const;
    bool isOutside(QPoint globalPos) const;
    bool isHiddenWith(const QWidget *hidden) const;
    void reportHiding();
    bool answerKey(const QKeyEvent *event);
    void openByKey(const QKeyEvent *event);
    void chooseFrom(int row, int step);
    void handleWhileOpen(const QObject *watched, const QEvent *event);
    void closeByKey(const QObject *watched, const QKeyEvent *event);
    void closePopup();
    void closePopupAndReport();

    QPointer<CustomComboxHeader> m_header;
    QPointer<ShadowPopupWidget> m_popup;
    bool m_smallStyle = false;
    qint32 m_rowHeight = 0;
    bool m_closing = false;
    bool m_reportIsDue = false; // of a closing because the combo box was hidden
    int m_eventDepth = 0;
    int m_indexForItems = -1; // written to the property while there were no rows
    int m_openingKey = 0;
    const QKeyEvent *m_closingKey = nullptr; // compared, never looked into
};
