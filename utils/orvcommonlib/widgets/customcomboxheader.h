#pragma once

#include "orvcommonlib_global.h"
#include "orvqtcompat.h"

#include <QtCore/QPoint>
#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <memory>

class HeaderText;
class PressGesture;
class QLabel;

/// The part of a CustomShadowCombox that is always seen: the current text, elided where it is too long, and an
/// arrow. It reports clicks.
///
/// \image html class-customcomboxheader.png
///
/// Its object name is "CustomComboxHeader". A click is a left press and its release within
/// `QApplication::startDragDistance()`; a press whose release cannot come, because the header is hidden or a
/// modal window opens, ends without a click. The arrow of the small style is the application's own picture,
/// ":/graffiti/resources/graffiti/fontbox/downarrow.svg"; without it the header shows no arrow. GUI thread
/// only.
///
/// \par When to use it
/// To open something else than a list with what looks like a combo box. CustomShadowCombox brings its own.
///
/// \par Example
/// \snippet comboboxes.cpp CustomComboxHeader
///
/// \since 1.0
/// \sa CustomShadowCombox
/// \ingroup combos
class ORVCOMMONLIB_EXPORT CustomComboxHeader : public QWidget
{
    Q_OBJECT
    /// The full text, also where it is shown elided.
    Q_PROPERTY(QString text READ text WRITE setText)

public:
    /// The normal style: fixed at 260 x 48.
    /// \param parent the owner; may be null
    explicit CustomComboxHeader(QWidget *parent = nullptr);
    /// \param isSmallStyle the small style, of no fixed size; otherwise the normal one
    /// \param parent       the owner; may be null
    CustomComboxHeader(bool isSmallStyle, QWidget *parent);
    ~CustomComboxHeader() override;

    /// \return the full text, also where it is shown elided
    QString text() const;
    /// Sets the text.
    /// \param text what the header shows; rich text and several lines are not elided
    void setText(QString text);
    /// Sets the arrow.
    /// \param isUp the arrow up; otherwise the down arrow of the style
    void setIconState(bool isUp);
    /// Sets the header's own style sheet.
    /// \param styleTemplate the sheet; "%1" in it stands for the header's object name
    void setCustomStyle(QString styleTemplate);
    /// Sets the style sheet of the text label.
    /// \param style the sheet
    void setCustomTextStyle(QString style);

Q_SIGNALS:
    /// The header was clicked. A slot may destroy it.
    void signalClicked();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void enterEvent(orvqt::EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(CustomComboxHeader)

    void initUI();
    const char *downArrowStyle() const;

    QLabel *m_iconLabel = nullptr;
    HeaderText *m_textLabel = nullptr;
    bool m_smallStyle = false;
    QPoint m_pressPos;
    QPoint m_releasePos;
    std::unique_ptr<PressGesture> m_press;
};
