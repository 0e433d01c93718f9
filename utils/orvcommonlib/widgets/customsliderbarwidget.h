#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPoint>
#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <memory>

class PressGesture;
class SkinPainter;

/// A painted bar with a few steps, 117 x 12 pixels, that the user clicks or drags to; it tells the chosen
/// step when the button is released.
///
/// \image html class-customsliderbarwidget.png
///
/// The looks are embedded SVG files: "background.svg", "item.svg", "item_active.svg" and "select.svg" under
/// ":/images/images/slider/".
///
/// While a button is held on one bar, every bar that receives pointer moves follows them, whatever buttons
/// these carry: whether that is so is deliberately known to the process and not to the bar. A press that loses
/// its release (the bar is hidden, closed or disabled meanwhile, a modal window blocks it, or a popup such as a
/// context menu opens) ends for all bars without being told. Touch reaches the bar as the mouse events that Qt
/// makes of it.
///
/// Once it has a focus policy, which it has not at first, the bar answers keys: Left and Right go by one step, Home and
/// End to the first and the last one, each change followed by the signal. It then shows that it has the focus if that
/// came from the keyboard. Right-to-left swaps nothing.
///
/// To be used in the GUI thread only. A slot of the signal may destroy the bar.
///
/// There is no disabled look: after QWidget::setEnabled() with `false` the bar takes nothing and looks as before.
///
/// \par When to use it
/// For one of a few steps, such as a zoom. More than about eight steps lie too close together; a QSlider has room for
/// any number.
///
/// \par Example
/// \snippet sliders.cpp CustomSliderBarWidget
///
/// \since 1.0
/// \sa NewHorizontalSlider, QSlider, \ref guide_sliders
/// \ingroup sliders
class ORVCOMMONLIB_EXPORT CustomSliderBarWidget : public QWidget
{
    Q_OBJECT
    /// The number of steps.
    Q_PROPERTY(int count READ getCount WRITE setCount)
    /// The current step.
    Q_PROPERTY(int currentIndex READ getCurrentIndex WRITE setCurrentIndex USER true)

public:
    /// \param parent the parent widget, or null
    explicit CustomSliderBarWidget(QWidget *parent = nullptr);
    /// A bar that is destroyed while it is pressed ends the press for all bars.
    ~CustomSliderBarWidget() override;

    /// \param count the number of steps, 2 at first; less than 2 is not taken over, and logged at info level
    void setCount(int count);
    /// \return the number of steps
    int getCount() const { return m_count; }

    /// Nothing is emitted.
    /// \param index the current step, 0 at first; any number is taken over, deliberately unchecked
    void setCurrenIndex(int index);
    /// \return the current step
    int getCurrentIndex() const { return m_currentIndex; }
    /// As setCurrenIndex(), but without repainting a bar that shows this step already.
    /// \param index the current step
    void setCurrentIndex(int index);

Q_SIGNALS:
    /// A button was released on the bar; any button, and whether or not the step has changed. Or a key has changed
    /// the step.
    /// \param index the current step
    void selectFinish(int index);

protected:
    /// Makes the step under the pointer current; of two that meet there the lower one. Beyond the last step's
    /// half the current one stays.
    /// \param point where the pointer is, in the bar's coordinates
    void updateState(QPoint point);

    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    Q_DISABLE_COPY(CustomSliderBarWidget)

    void follow(QPoint point);
    void choose(qint64 wanted);
    QRect area() const;
    int markDistance() const;
    qint64 markX(qint64 index) const;
    qint64 fillX() const;
    QRectF squareAt(qint64 centerX, int side) const;
    void paintMarks(SkinPainter *painter, const QString &piece, qint64 from, qint64 to) const;

    int m_count = 2;
    int m_currentIndex = 0;
    std::unique_ptr<PressGesture> m_press;
    QPoint m_lastPosition;
    QString m_skinPath;
};
