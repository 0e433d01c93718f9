#pragma once

#include "orvcommonlib_global.h"

#include <QtCore/QPoint>
#include <QtWidgets/QSlider>

#include <memory>

class PressGesture;

/// A QSlider that also tells which value a click on it means, and leaves it to the client to go there.
///
/// \image html class-customslider.png
///
/// To be used in the GUI thread only. Logs nothing.
///
/// \par When to use it
/// For a position that has to be asked of something else before the slider goes there, such as a player that seeks.
/// Where a click may simply move the handle a step, a QSlider is enough.
///
/// \par Example
/// \snippet sliders.cpp CustomSlider
///
/// \since 1.0
/// \sa QSlider
/// \ingroup sliders
class ORVCOMMONLIB_EXPORT CustomSlider : public QSlider
{
    Q_OBJECT

public:
    /// A vertical slider, as QSlider makes it.
    /// \param parent the parent widget, or null
    explicit CustomSlider(QWidget *parent = nullptr);
    /// \param orientation which way the slider lies
    /// \param parent      the parent widget, or null
    CustomSlider(Qt::Orientation orientation, QWidget *parent);
    ~CustomSlider() override;

Q_SIGNALS:
    /// A left click, whose release is less than 5 pixels away from its press. Comes after QSlider has handled
    /// the release; the slider's own value is not changed by it. A press that loses its release (the slider
    /// is hidden, closed or disabled meanwhile, a modal window blocks it, or a popup opens) is no click.
    /// \param value what the click means: the share of the release's x in the slider's width, rounded, and
    ///              never outside the range. Deliberately so in a vertical slider too.
    void signalClickValue(int value);

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    Q_DISABLE_COPY(CustomSlider)

    int clickedValue() const;

    std::unique_ptr<PressGesture> m_press;
    QPoint m_pressPosition;
    QPoint m_releasePosition;
};
