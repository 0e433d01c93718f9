#pragma once

#include "orvcommonlib_global.h"

#include <QtWidgets/QComboBox>

class QMouseEvent;
class QTimer;

/// A combo box that looks editable but is not: its text can be styled and sized like a line edit, and a left
/// click anywhere on it opens the list.
///
/// \image html class-customcombox.png
///
/// A guard of 100 milliseconds after each opening and closing keeps the click that closes the list from
/// opening it again. Once it is over the second of two quick clicks counts like any other. A line edit that a
/// client puts in place of the first one is the client's own: clicks on it do not open the list. Signals are
/// those of QComboBox. GUI thread only.
///
/// \par When to use it
/// For a QComboBox, with its model, whose text a style sheet dresses like a line edit. A combo box that needs no such
/// text is a QComboBox.
///
/// \par Example
/// \snippet comboboxes.cpp customcombox
///
/// \since 1.0
/// \sa CustomShadowCombox, QComboBox
/// \ingroup combos
class ORVCOMMONLIB_EXPORT customcombox : public QComboBox
{
    Q_OBJECT
    /// How many rows of the list show without scrolling, at most.
    Q_PROPERTY(int visibleCount READ visibleCount WRITE setVisibleCount)
    /// The width of the line edit: the fixed one, or the present one where none was set.
    Q_PROPERTY(int lineEditWidth READ lineEditWidth WRITE setLineEditWidth)
    /// A gap for subclasses that place the list themselves.
    Q_PROPERTY(int popupSpacing READ popupSpacing WRITE setPopupSpacing)

public:
    /// \param parent the owner; may be null
    explicit customcombox(QWidget *parent = nullptr);
    ~customcombox() override;

    /// Limits the height of the list. The spelling is the interface's.
    /// \param count how many rows show without scrolling, at most
    void setVisableCount(int count);
    /// The same as setVisableCount().
    /// \param count how many rows show without scrolling, at most
    void setVisibleCount(int count) { setVisableCount(count); }
    /// \return how many rows show without scrolling, at most
    int visibleCount() const { return maxVisibleItems(); }

    /// Fixes the width of the line edit; nothing happens where there is none.
    /// \param width in device-independent pixels
    void setLineEditWidth(int width);
    /// \return the present width of the line edit, 0 where there is none
    int lineEditWidth() const;

    /// Stores a gap for subclasses that place the list themselves; this class places the list as QComboBox does.
    /// \param spacing in device-independent pixels
    void setSpacingBetweenComboxAndPopupWidget(int spacing) { m_popupSpacing = spacing; }
    /// The same as setSpacingBetweenComboxAndPopupWidget().
    /// \param spacing in device-independent pixels
    void setPopupSpacing(int spacing) { setSpacingBetweenComboxAndPopupWidget(spacing); }
    /// \return the gap that was stored, 4 at first
    int popupSpacing() const { return m_popupSpacing; }

protected:
    /// \return the gap that was stored, 4 at first
    int spacingBetweenComboxAndPopupWidget() const { return m_popupSpacing; }

    void showPopup() override;
    void hidePopup() override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    Q_DISABLE_COPY(customcombox)

    void pressArrow(QMouseEvent *event);
    QPoint arrowCenter() const;

    QTimer *m_guardTimer = nullptr;
    int m_popupSpacing = 4;
};
