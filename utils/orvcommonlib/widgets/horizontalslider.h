#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPoint>
#include <QtCore/QRectF>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtWidgets/QWidget>

#include <memory>
#include <optional>

class HorizontalSliderLogic;

/// A painted horizontal slider, 206 pixels wide, whose groove takes a colour up to the handle; a mark below
/// the groove can show the centre of its range.
///
/// \image html class-horizontalslider.png
///
/// A drag of the handle moves it by pixels and picks the value nearest to it, halfway between two the upper
/// one; a click on the groove, which is a left press beside the handle and its release, moves the handle
/// there. A bidirectional slider colours from the centre of the range to the handle instead of from the left
/// end.
///
/// A press that loses its release (the slider is hidden, closed or disabled meanwhile, a modal window blocks it,
/// or a popup opens) ends without one: it changes no value any more, and the handle goes back to where the
/// value is.
///
/// Once it has a focus policy, which it has not at first, the slider answers keys: Left and Down, Right and Up go by
/// one, PageDown and PageUp by a tenth of the range, at least by one, Home and End to its ends, all within the range.
/// It then shows that it has the focus if that came from the keyboard. Right-to-left swaps nothing. With the right
/// end below the left one there are no keys.
///
/// The looks are SVG files in a folder, the skin: "groove.svg", "handle.svg" and "zero.svg". One that is
/// missing or broken paints nothing.
///
/// Lengths are device-independent pixels. To be used in the GUI thread only. Logs nothing. A slot of any of
/// the signals may destroy the slider.
///
/// There is no disabled look: after QWidget::setEnabled() with `false` the slider takes nothing and looks as before.
/// NewHorizontalSlider::setSliderEnabled() shows one; here another skin or colour has to.
///
/// \par When to use it
/// On dark grounds: the light look's groove is white and its colour pale, and on a light ground little of it is seen.
/// On light grounds, or where the slider can be disabled, take NewHorizontalSlider; ticks, a vertical slider or the
/// style of the platform are a QSlider's.
///
/// \par Example
/// \snippet sliders.cpp HorizontalSlider
///
/// \since 1.0
/// \sa NewHorizontalSlider, CustomBidirectionSlider, \ref guide_sliders
/// \ingroup sliders
class ORVCOMMONLIB_EXPORT HorizontalSlider : public QWidget
{
    Q_OBJECT
    /// The value at the left end.
    Q_PROPERTY(int minimum READ minimum WRITE setMinimum)
    /// The value at the right end.
    Q_PROPERTY(int maximum READ maximum WRITE setMaximum)
    /// The value, which may lie outside the range.
    Q_PROPERTY(int value READ value WRITE setValue NOTIFY valueChanged USER true)
    /// The folder of the skin.
    Q_PROPERTY(QString skinPath READ getSkinPath WRITE setSkinPath)
    /// The height of the groove.
    Q_PROPERTY(int grooveHeight READ grooveHeight WRITE setGrooveHeight)
    /// The size of the handle.
    Q_PROPERTY(QSize handleSize READ handleSize WRITE setHandleSize)
    /// The colour of the groove up to the value.
    Q_PROPERTY(QColor valueColor READ valueColor WRITE setValueColor)
    /// Whether the colour starts at the centre of the range.
    Q_PROPERTY(bool bidirectional READ isBidirectional WRITE setBidirectional)

public:
    /// \param parent        the parent widget, or null
    /// \param bidirectional whether the colour starts at the centre of the range
    /// \param zeroFlag      whether the centre mark is drawn; the slider is then higher by spacing and mark
    /// \param zeroSpacing   the gap between handle and centre mark
    /// \param zeroSize      the size of the centre mark
    explicit HorizontalSlider(QWidget *parent = nullptr, bool bidirectional = false, bool zeroFlag = false,
                              int zeroSpacing = 3, QSize zeroSize = QSize(4, 4));
    ~HorizontalSlider() override;

    /// Leaves the value alone, even outside the range. With both ends equal the handle rests at the left end;
    /// with the right one below the left one the slider paints backwards and the pointer changes no value.
    /// \param min the value at the left end, 0 at first
    /// \param max the value at the right end, 100 at first
    void setRange(int min, int max);
    /// \return the value at the left end
    int minimum() const;
    /// As setRange(), with the right end as it is.
    /// \param min the value at the left end
    void setMinimum(int min);
    /// \return the value at the right end
    int maximum() const;
    /// As setRange(), with the left end as it is.
    /// \param max the value at the right end
    void setMaximum(int max);

    /// \return the value, 0 at first
    int value() const;
    /// Emits valueChanged() if the value is another one.
    /// \param val the value, deliberately not brought into the range: the handle then stands outside
    void setValue(int val);

    /// The next paint also shows what has changed in the folder since it was set the last time: what a file
    /// contains is remembered until a skin is set in any slider, or a slider is made.
    /// \param skinPath the folder of the skin, ":/images/images/hslider/" at first
    void setSkinPath(QString skinPath);
    /// \return the folder of the skin
    QString getSkinPath() const { return m_skinPath; }

    /// \param height the height of the groove, 10 at first
    void setGrooveHeight(int height);
    /// \return the height of the groove
    int grooveHeight() const { return m_grooveHeight; }
    /// The slider keeps its size.
    /// \param size the size of the handle, 14 x 14 at first
    void setHandleSize(QSize size);
    /// \return the size of the handle
    QSize handleSize() const;
    /// \param color the colour of the groove up to the value, at first that of the look in force, "#ABADBF" in the
    ///        light one, see OrvLook
    void setValueColor(QColor color);
    /// \return the colour of the groove up to the value
    QColor valueColor() const;

    /// \param bidirectional whether the colour starts at the centre of the range
    void setBidirectional(bool bidirectional);
    /// \return whether the colour starts at the centre of the range
    bool isBidirectional() const { return m_bidirectional; }

    /// Draws the centre mark from the next paint on. The slider keeps its size, so that the mark of one that
    /// was built without it needs a client that makes room.
    void showZeroFlag() { m_zeroFlag = true; }

Q_SIGNALS:
    /// The value is another one, by setValue() or by the user: a drag, a click or a key.
    /// \param val the value
    void valueChanged(int val);
    /// A drag has changed the value; follows valueChanged().
    /// \param val the value
    void sliderMoved(int val);
    /// A drag goes on, or has ended.
    /// \param bMoving true for every move of the pointer with the handle held, before the value follows; false
    ///                when the drag has ended, after its last value. A drag that loses its release ends, too.
    void sliderMoving(bool bMoving);

protected:
    /// Moves the handle by the horizontal way from the last pointer position, within the groove, and takes over
    /// the value there.
    /// \param point where the pointer is, in the slider's coordinates
    void updateState(QPoint point);
    /// Takes over the value nearest to the handle. A handle outside its travel changes nothing.
    void updateValue();

    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    Q_DISABLE_COPY(HorizontalSlider)

    QRectF grooveArea() const;
    QRectF zeroRect() const;

    bool m_bidirectional;
    bool m_zeroFlag;
    QString m_skinPath;
    int m_zeroSpacing;
    QSize m_zeroSize;
    std::unique_ptr<HorizontalSliderLogic> m_logic; // range, value, handle and gestures
    int m_grooveHeight = 10;
    std::optional<QColor> m_valueColor; // otherwise the look's
};
