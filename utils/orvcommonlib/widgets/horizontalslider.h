#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPoint>
#include <QtCore/QRectF>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtWidgets/QWidget>

template<typename Slider>
class HorizontalSliderLogic;

/// A painted horizontal slider, 206 pixels wide, whose groove takes a colour up to the handle; a mark below
/// the groove can show the centre of its range.
///
/// A drag of the handle moves it by pixels and picks the value nearest to it, halfway between two the upper
/// one; a click on the groove, which is a left press beside the handle and its release, moves the handle
/// there. A bidirectional slider colours from the centre of the range to the handle instead of from the left
/// end.
///
/// The looks are SVG files in a folder, the skin: "groove.svg", "handle.svg" and "zero.svg". One that is
/// missing or broken paints nothing.
///
/// Lengths are device-independent pixels. To be used in the GUI thread only. Logs nothing. A slot of any of
/// the signals may destroy the slider.
class ORVCOMMONLIB_EXPORT HorizontalSlider : public QWidget
{
    Q_OBJECT

public:
    /// \param bidirectional whether the colour starts at the centre of the range
    /// \param zeroFlag      whether the centre mark is drawn; the slider is then higher by spacing and mark
    /// \param zeroSpacing   the gap between handle and centre mark
    /// \param zeroSize      the size of the centre mark
    explicit HorizontalSlider(QWidget *parent = nullptr, bool bidirectional = false, bool zeroFlag = false,
                              int zeroSpacing = 3, QSize zeroSize = QSize(4, 4));
    ~HorizontalSlider() override;

    /// 0 to 100 at first. The value is left alone, even outside the range. With `max` equal to `min` the
    /// handle rests at the left end; with `max` below `min` the slider paints backwards and the pointer
    /// changes no value.
    void setRange(int min, int max);

    /// 0 at first.
    int value() const;
    /// Emits valueChanged() if the value is another one. It is deliberately not brought into the range: the
    /// handle then stands outside.
    void setValue(int val);

    /// The folder of the skin, ":/images/images/hslider/" at first. Shows at the next paint; with the folder
    /// that it is already, what has changed in there since shows then, in all sliders.
    void setSkinPath(QString skinPath);
    QString getSkinPath() const;

    /// 10 at first. Shows at the next paint, as do the following two.
    void setGrooveHeight(int height);
    /// 14 x 14 at first. The slider keeps its size.
    void setHandleSize(QSize size);
    /// The colour of the groove up to the value, "#ABADBF" at first.
    void setValueColor(QColor color);

    /// Draws the centre mark from the next paint on. The slider keeps its size, so that the mark of one that
    /// was built without it needs a client that makes room.
    void showZeroFlag();

Q_SIGNALS:
    /// The value is another one, by setValue() or by the user.
    void valueChanged(int val);
    /// A drag has changed the value; follows valueChanged().
    void sliderMoved(int val);
    /// True for every move of the pointer with the handle held, before the value follows; false when a drag
    /// has ended, after its last value.
    void sliderMoving(bool bMoving);

protected:
    /// Moves the handle by the horizontal way from the last pointer position to `point`, within the groove,
    /// and takes over the value there.
    void updateState(QPoint point);
    /// Takes over the value nearest to the handle. A handle outside its travel changes nothing.
    void updateValue();

    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    Q_DISABLE_COPY(HorizontalSlider)
    friend class HorizontalSliderLogic<HorizontalSlider>;

    QRectF grooveArea() const;
    QRectF zeroRect();

    bool m_bidirectional;
    bool m_zeroFlag;
    QString m_skinPath;
    int m_zeroSpacing;
    QSize m_zeroSize;
    int m_minimum = 0;
    int m_maximum = 100;
    int m_value = 0;
    QSize m_handleSize = QSize(14, 14);
    int m_grooveHeight = 10;
    QColor m_valueColor;
    bool m_pressedOnHandle = false;
    bool m_moving = false;
    QPoint m_lastPosition;
    double m_step = 1.0;         // pixels per value, as last painted
    double m_handlePosition = 0; // the handle's centre
    QRectF m_grooveRect;         // the travel of the handle's centre, as last painted
    bool m_pressedOnGroove = false;
};
