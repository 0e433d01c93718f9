#pragma once

#include "orvcommonlib_global.h"

#include <QtGui/QColor>
#include <QtWidgets/QSlider>

/// A horizontal QSlider with a tick at the centre of its range and a coloured line from there to the handle.
///
/// It wears a style sheet whose handle image, ":/resources/channels/slider_handle.png", belongs to the
/// application. As long as enableWheel() does not say otherwise it leaves the mouse wheel to its parent, so
/// that a scroll area around it scrolls.
///
/// To be used in the GUI thread only. Logs nothing.
class ORVCOMMONLIB_EXPORT CustomBidirectionSlider : public QSlider
{
    Q_OBJECT

public:
    /// With a line of 6 pixels in "#4B66EB", for a handle of 24, as the style sheet makes it.
    /// \param parent the parent widget, or null
    explicit CustomBidirectionSlider(QWidget *parent = nullptr);
    /// \param lineWidth   the thickness of the coloured line in pixels, 0 for a hairline
    /// \param handleWidth how wide the handle is taken to be: the line ends half of it before the handle's centre
    /// \param lineColor   the colour of the line
    /// \param parent      the parent widget, or null
    CustomBidirectionSlider(int lineWidth, int handleWidth, QColor lineColor, QWidget *parent);
    ~CustomBidirectionSlider() override;

    /// \param enable whether the wheel changes the value, false at first
    void enableWheel(bool enable);

protected:
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    Q_DISABLE_COPY(CustomBidirectionSlider)

    int middle() const;
    double share(int value) const;
    int centerX() const;
    int valueX() const;

    int m_lineWidth;
    int m_handleWidth;
    QColor m_lineColor;
    bool m_wheelEnabled = false;
};
