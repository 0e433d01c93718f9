#pragma once

#include "orvcommonlib_global.h"

#include <QtWidgets/QComboBox>

class QMouseEvent;
class QTimer;

/// A combo box that looks editable but is not: its text can be styled and sized like a line edit, and a left
/// click anywhere on it opens the list.
///
/// A guard of 100 milliseconds after each opening and closing keeps the click that closes the list from
/// opening it again. Signals are those of QComboBox. GUI thread only.
class ORVCOMMONLIB_EXPORT customcombox : public QComboBox
{
    Q_OBJECT

public:
    explicit customcombox(QWidget *parent);
    ~customcombox() override;

    /// At most `count` rows show without scrolling. The spelling is the interface's.
    void setVisableCount(int count);

    /// Fixes the width of the line edit, in device-independent pixels.
    void setLineEditWidth(int width);

    /// Stores a gap, in device-independent pixels, for subclasses that place the list themselves; this class
    /// places the list as QComboBox does.
    void setSpacingBetweenComboxAndPopupWidget(int spacing);

protected:
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
