#pragma once

#include "orvcommonlib_global.h"

#include <QtGui/QColor>
#include <QtWidgets/QSlider>

#include <optional>

/// A horizontal QSlider with a tick at the centre of its range and a coloured line from there to the handle.
///
/// \image html class-custombidirectionslider.png
///
/// It wears a style sheet whose handle image, ":/resources/channels/slider_handle.png", belongs to the
/// application. As long as enableWheel() does not say otherwise it leaves the mouse wheel to its parent, so
/// that a scroll area around it scrolls.
///
/// To be used in the GUI thread only. Logs nothing.
///
/// Without the handle's picture there is no handle, and nothing says so: link `orvcommonlib::client_pictures`, or ask
/// totalcommon::missingClientPictures() at the start.
///
/// \par When to use it
/// For a balance around a centre. In a size of your own, with a skin and a disabled look it is a NewHorizontalSlider.
///
/// \par Example
/// \snippet sliders.cpp CustomBidirectionSlider
///
/// \since 1.0
/// \sa NewHorizontalSlider, QSlider, \ref guide_sliders, \ref guide_dialogs
/// \ingroup sliders
class ORVCOMMONLIB_EXPORT CustomBidirectionSlider : public QSlider
{
    Q_OBJECT
    /// The thickness of the coloured line in pixels, 0 for a hairline.
    Q_PROPERTY(int lineWidth READ lineWidth WRITE setLineWidth)
    /// How wide the handle is taken to be.
    Q_PROPERTY(int handleWidth READ handleWidth WRITE setHandleWidth)
    /// The colour of the line.
    Q_PROPERTY(QColor lineColor READ lineColor WRITE setLineColor)
    /// Whether the wheel changes the value.
    Q_PROPERTY(bool wheelEnabled READ isWheelEnabled WRITE setWheelEnabled)

public:
    /// With a line of 6 pixels in the colour of the look in force, "#4B66EB" in the light one (see OrvLook),
    /// for a handle of 24, as the style sheet makes it.
    /// \param parent the parent widget, or null
    explicit CustomBidirectionSlider(QWidget *parent = nullptr);
    /// \param lineWidth   the thickness of the coloured line in pixels, 0 for a hairline
    /// \param handleWidth how wide the handle is taken to be: the line ends half of it before the handle's centre
    /// \param lineColor   the colour of the line
    /// \param parent      the parent widget, or null
    CustomBidirectionSlider(int lineWidth, int handleWidth, QColor lineColor, QWidget *parent);
    ~CustomBidirectionSlider() override;

    /// \return the thickness of the coloured line in pixels
    int lineWidth() const { return m_lineWidth; }
    /// \param width the thickness of the coloured line in pixels, 0 for a hairline; a negative one is painted as 0
    void setLineWidth(int width);
    /// \return how wide the handle is taken to be
    int handleWidth() const { return m_handleWidth; }
    /// \param width how wide the handle is taken to be; it does not change the handle itself
    void setHandleWidth(int width);
    /// \return the colour of the line
    QColor lineColor() const;
    /// \param color the colour of the line
    void setLineColor(const QColor &color);

    /// \param enable whether the wheel changes the value, false at first
    void enableWheel(bool enable) { m_wheelEnabled = enable; }
    /// \return whether the wheel changes the value
    bool isWheelEnabled() const { return m_wheelEnabled; }
    /// The same as enableWheel().
    /// \param enabled whether the wheel changes the value
    void setWheelEnabled(bool enabled) { enableWheel(enabled); }

    /// \return that of a QSlider, with room for the whole handle
    QSize sizeHint() const override;
    /// \return that of a QSlider, with room for the whole handle
    QSize minimumSizeHint() const override;

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
    std::optional<QColor> m_lineColor; // otherwise the look's
    bool m_wheelEnabled = false;
};
