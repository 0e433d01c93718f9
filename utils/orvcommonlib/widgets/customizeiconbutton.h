#pragma once

#include "orvcommonlib_global.h"
#include "orvqtcompat.h"

#include <QtCore/QPoint>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtWidgets/QWidget>

#include <array>
#include <memory>

class PressGesture;
class QBoxLayout;
class QLabel;
class QSpacerItem;

/// A light button of an icon and a text whose whole look is style sheets: one for the button, one for the
/// icon and one for the text in each of the states normal, hover, pressed and disabled.
///
/// \image html class-customizeiconbutton.png
///
/// An empty sheet leaves the one in force that was applied before. The object name is the client's to set, for sheets
/// that select on it. Each change of state applies its sheets anew, so that they see what they select on as it is then.
///
/// A click is a left press and its release within `QApplication::startDragDistance()`; `clicked()` is emitted after the
/// look has gone back. A press whose release cannot come, because the button is hidden or a modal window opens, ends
/// without a click. Once it has a focus policy, which it has not at first, the button is clicked with Space, Return and
/// Enter, too, once at the press of the key, and shows that it has the focus if that came from the keyboard. A slot may
/// destroy the button. GUI thread only.
///
/// Its own setEnabled(), or setButtonEnabled(), shows the disabled look. QWidget::setEnabled(), called through a
/// `QWidget *` or by a parent that is disabled, takes the events away and leaves the look as it is.
///
/// \par When to use it
/// For an icon and a text that style sheets dress differently in each state. A button with one icon and one sheet,
/// `:hover` and `:pressed` in it, is a QPushButton.
///
/// \par Example
/// \snippet buttons.cpp CustomizeIconButton
///
/// \since 1.0
/// \sa CustomPictureBtn, QPushButton, \ref guide_buttons
/// \ingroup buttons
class ORVCOMMONLIB_EXPORT CustomizeIconButton : public QWidget
{
    Q_OBJECT
    /// The text beside the icon.
    Q_PROPERTY(QString text READ text WRITE setText)
    /// The size of the icon.
    Q_PROPERTY(QSize iconSize READ iconSize WRITE setIconSize)
    /// The gap between icon and text.
    Q_PROPERTY(int spacing READ spacing WRITE setSpacing)
    /// Whether expanding room is put on both sides.
    Q_PROPERTY(bool centered READ isCentered WRITE setCentered)
    /// Whether the button takes pointer, clicks and keys, which is the class's own flag and not QWidget::enabled.
    Q_PROPERTY(bool buttonEnabled READ isButtonEnabled WRITE setButtonEnabled)

public:
    /// An icon of 24 x 24 without a text, 8 pixels from it, in the middle.
    /// \param parent the owner; may be null
    explicit CustomizeIconButton(QWidget *parent = nullptr);
    /// \param iconSize the size of the icon, in device-independent pixels
    /// \param text     the text beside the icon
    /// \param spacing  the gap between icon and text, in device-independent pixels
    /// \param parent   the owner; may be null
    /// \param isCenter whether expanding room is put on both sides
    CustomizeIconButton(QSize iconSize, QString text, int spacing, QWidget *parent, bool isCenter);
    ~CustomizeIconButton() override;

    /// Sets the icon's pictures, each a file name or resource path. A path with a quote, a comma, a parenthesis or a
    /// backslash does not work in a style sheet.
    /// \param normal,hover,pressed,disabled the picture in each state; for an empty path Qt warns of a file without a
    ///        name
    void setIconImage(QString normal, QString hover, QString pressed, QString disabled);
    /// Sets the style sheets of the text label.
    /// \param normal,hover,pressed,disabled the sheet in each state; an empty one leaves the look alone
    void setTextStyle(QString normal, QString hover, QString pressed, QString disabled);
    /// Sets the style sheets of the button itself. The spelling is the interface's.
    /// \param normal,hover,pressed,disabled the sheet in each state; an empty one leaves the look alone
    void setOveralStyle(QString normal, QString hover, QString pressed, QString disabled);

    /// \return the text beside the icon
    QString text() const { return m_text; }
    /// \param text the text beside the icon
    void setText(const QString &text);
    /// \return the size of the icon, in device-independent pixels
    QSize iconSize() const { return m_iconSize; }
    /// \param size the size of the icon, in device-independent pixels
    void setIconSize(const QSize &size);
    /// \return the gap between icon and text, in device-independent pixels
    int spacing() const { return m_spacing; }
    /// \param spacing the gap between icon and text, in device-independent pixels; the style's own with -1
    void setSpacing(int spacing);
    /// \return whether expanding room is put on both sides
    bool isCentered() const { return !m_room.isEmpty(); }
    /// \param centered whether expanding room is put on both sides
    void setCentered(bool centered);

    /// \return this class's own flag, true at first
    bool isButtonEnabled() const { return m_enabled; }
    /// As setEnabled() of this class, but without applying the sheets anew where the flag is as it was.
    /// \param enabled whether the button takes pointer, clicks and keys
    void setButtonEnabled(bool enabled);
    /// Sets this class's own flag: a button that is not enabled ignores pointer, clicks and keys and shows the
    /// disabled look. It hides QWidget::setEnabled(): the widget itself and `isEnabled()` stay as they are.
    /// \param enabled whether the button takes pointer, clicks and keys
    void setEnabled(bool enabled);

Q_SIGNALS:
    /// The button was clicked, or pressed by a key or by assistive technology. A slot may destroy the button.
    void clicked();

protected:
    bool event(QEvent *event) override;
    void enterEvent(orvqt::EnterEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(CustomizeIconButton)

    enum State { Normal, Hover, Pressed, Disabled, StateCount };
    using Texts = std::array<QString, StateCount>;

    void initControls(bool isCenter);
    void addRoom();
    void removeRoom();
    void updateUI();
    State state() const;

    QLabel *m_iconLabel = nullptr;
    QLabel *m_textLabel = nullptr;
    QSize m_iconSize;
    QString m_text;
    int m_spacing = 0;
    Texts m_overallSheets;
    Texts m_iconImages;
    Texts m_textSheets;
    bool m_hovered = false;
    std::unique_ptr<PressGesture> m_press;
    bool m_enabled = true;
    bool m_hasIcons = false;
    QPoint m_pressPos;
    QBoxLayout *m_row = nullptr;
    QVector<QSpacerItem *> m_room; // on both sides of a centred button, empty otherwise
};
